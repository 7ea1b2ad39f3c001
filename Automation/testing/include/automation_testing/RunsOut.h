// RunsOut: runs an action while its memory is refused.
#pragma once

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "automation_testing/FailingMemory.h"

namespace automation::testing {

/// Whether the action threw std::bad_alloc; it must exactly when memory was refused.
template <class Action>
bool RunsOut(const MemoryPlan& plan, Action&& action) {
    bool threw = false;
    int64_t refused = 0;
    {
        const FailingMemory memory(plan);
        try {
            std::forward<Action>(action)();
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        refused = memory.Refused();
    }
    EXPECT_EQ(threw, refused > 0);
    return threw;
}

}  // namespace automation::testing

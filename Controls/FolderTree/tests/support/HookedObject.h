// HookedObject: an automation object, and all that can be reached from it, that tells a test of each call first.
#pragma once

#include <functional>
#include <memory>

#include "automation/Object.h"

namespace foldertree::testing {

/// Runs before each call on the object and on what it returns; gets the number of the call, from 1. Calls to other
/// processes let messages in, so a host can do anything inside one.
struct CallHook {
    std::function<void(int call)> onCall;
    int calls = 0;
};

automation::ObjectRef Hook(const automation::ObjectRef& object, const std::shared_ptr<CallHook>& hook);

}  // namespace foldertree::testing

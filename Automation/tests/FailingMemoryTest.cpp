// FailingMemory: that exactly the allocations of the plan fail, and no others.
#include "automation_testing/FailingMemory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <new>
#include <thread>
#include <vector>

namespace automation::testing {
namespace {

/// Which of `count` allocations failed.
std::vector<int> FailedOnes(MemoryPlan plan, int count) {
    std::vector<int> failed;
    failed.reserve(static_cast<size_t>(count));
    const FailingMemory memory(plan);
    for (int number = 1; number <= count; ++number) {
        try {
            ::operator delete(::operator new(8));
        } catch (const std::bad_alloc&) {
            failed.push_back(number);
        }
    }
    return failed;
}

TEST(FailingMemory, FailsTheChosenAllocationOnce) {
    EXPECT_EQ(FailedOnes({3, false}, 6), std::vector<int>{3});
}

TEST(FailingMemory, FailsFromTheChosenAllocationOn) {
    EXPECT_EQ(FailedOnes({4, true}, 6), (std::vector<int>{4, 5, 6}));
}

TEST(FailingMemory, OnlyCountsWithoutAChosenAllocation) {
    EXPECT_TRUE(FailedOnes({}, 4).empty());
    const FailingMemory memory;
    ::operator delete(::operator new(1));
    ::operator delete[](::operator new[](1));
    EXPECT_EQ(memory.Asked(), 2);
    EXPECT_EQ(memory.Refused(), 0);
}

TEST(FailingMemory, EndsWithItsScope) {
    { const FailingMemory memory({1, true}); }
    EXPECT_NO_THROW(std::make_unique<int>(1));
}

TEST(FailingMemory, GivesNullWhereTheCallerAskedForIt) {
    void* one = nullptr;
    void* two = nullptr;
    {
        const FailingMemory memory({1, true});
        one = ::operator new(8, std::nothrow);
        two = ::operator new[](8, std::nothrow);
    }
    EXPECT_EQ(one, nullptr);
    EXPECT_EQ(two, nullptr);
}

TEST(FailingMemory, SparesWhatIsExempt) {
    const FailingMemory memory({2, false});
    ::operator delete(::operator new(1));
    {
        const SparedMemory outside;
        const SparedMemory nested;
        ::operator delete(::operator new(1));
    }
    EXPECT_EQ(memory.Asked(), 1);
    EXPECT_THROW(::operator delete(::operator new(1)), std::bad_alloc);
    EXPECT_EQ(memory.Refused(), 1);
}

TEST(FailingMemory, LeavesOtherThreadsAlone) {
    std::atomic<bool> armed = false;
    bool failed = false;
    std::thread other([&] {
        while (!armed) std::this_thread::yield();
        try {
            ::operator delete(::operator new(8));
        } catch (const std::bad_alloc&) {
            failed = true;
        }
    });
    const FailingMemory memory({1, true});
    armed = true;
    other.join();
    EXPECT_FALSE(failed);
}

TEST(FailingMemory, FailsEachAllocationOfAScenarioInItsTurn) {
    for (const bool andAllAfter : {false, true}) {
        std::vector<int> reached;
        const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
            int done = 0;
            int64_t refused = 0;
            {
                const FailingMemory memory(plan);
                try {
                    for (; done < 3; ++done) ::operator delete(::operator new(8));
                } catch (const std::bad_alloc&) {
                }
                refused = memory.Refused();
            }
            reached.push_back(done);
            return refused > 0;
        });
        EXPECT_EQ(failures, 3);
        EXPECT_EQ(reached, (std::vector<int>{0, 1, 2, 3}));
    }
}

}  // namespace
}  // namespace automation::testing

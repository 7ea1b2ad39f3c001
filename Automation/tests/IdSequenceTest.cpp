// IdSequence: positions and ids against a plain vector, and what it does without memory.
#include "automation/IdSequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "automation_testing/FailingMemory.h"
#include "automation_testing/RunsOut.h"

namespace automation {
namespace {

using testing::FailEachAllocation;
using testing::FailingMemory;
using testing::MemoryPlan;
using testing::RunsOut;
using Id = IdSequence::Id;

void ExpectSame(const IdSequence& sequence, const std::vector<Id>& plain) {
    ASSERT_EQ(sequence.Count(), static_cast<int32_t>(plain.size()));
    for (int32_t position = 0; position < sequence.Count(); ++position) {
        const Id id = plain[static_cast<size_t>(position)];
        ASSERT_EQ(sequence.At(position), id);
        ASSERT_EQ(sequence.PositionOf(id), position);
        ASSERT_FALSE(sequence.Precedes(id, id));
        if (position == 0) continue;
        ASSERT_TRUE(sequence.Precedes(plain[static_cast<size_t>(position) - 1], id));
    }
}

TEST(IdSequence, AppendedIdsStandInTheirOrder) {
    IdSequence sequence;
    std::vector<Id> plain;
    for (Id id = 0; id < 2000; ++id) {
        sequence.Insert(sequence.Count(), id);
        plain.push_back(id);
    }
    ExpectSame(sequence, plain);
}

TEST(IdSequence, IdsPutInFrontOneByOneStandInReverse) {
    IdSequence sequence;
    std::vector<Id> plain;
    for (Id id = 0; id < 2000; ++id) {
        sequence.Insert(0, id);
        plain.insert(plain.begin(), id);
    }
    ExpectSame(sequence, plain);
}

TEST(IdSequence, EmptiesAndFillsAgain) {
    IdSequence sequence;
    for (int round = 0; round < 3; ++round) {
        for (Id id = 0; id < 600; ++id) sequence.Insert(sequence.Count(), id);
        while (sequence.Count() > 0) sequence.Remove(round == 0 ? 0 : sequence.Count() - 1);
    }
    EXPECT_EQ(sequence.Count(), 0);
    sequence.Insert(0, 7);
    EXPECT_EQ(sequence.At(0), 7u);
}

TEST(IdSequence, RandomInsertionsAndRemovalsKeepTheOrder) {
    for (uint32_t seed = 1; seed <= 5; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        IdSequence sequence;
        std::vector<Id> plain;
        std::vector<Id> unused;
        Id next = 0;
        for (int step = 0; step < 8000; ++step) {
            // Runs that grow and runs that shrink, so that chunks split and join.
            const bool grows = step / 2000 % 2 == 0;
            if (plain.empty() || random() % 10 < (grows ? 8 : 2)) {
                const size_t place = random() % (plain.size() + 1);
                Id id = next;
                if (unused.empty()) {
                    ++next;
                } else {
                    id = unused.back();
                    unused.pop_back();
                }
                sequence.Insert(static_cast<int32_t>(place), id);
                plain.insert(plain.begin() + static_cast<ptrdiff_t>(place), id);
            } else {
                const size_t place = random() % plain.size();
                unused.push_back(plain[place]);
                sequence.Remove(static_cast<int32_t>(place));
                plain.erase(plain.begin() + static_cast<ptrdiff_t>(place));
            }
            if (plain.empty()) continue;
            const size_t any = random() % plain.size();
            ASSERT_EQ(sequence.PositionOf(plain[any]), static_cast<int32_t>(any));
            if (step % 500 == 0) ExpectSame(sequence, plain);
            if (::testing::Test::HasFatalFailure()) return;
        }
        ExpectSame(sequence, plain);
    }
}

TEST(IdSequence, IdsThatComeAndGoLeaveNoMemoryBehind) {
    IdSequence sequence;
    for (Id id = 0; id < 100'000; ++id) sequence.Insert(sequence.Count(), id);
    const size_t before = sequence.MemoryUse();
    for (Id id = 99'999; id >= 1000; --id) sequence.Remove(static_cast<int32_t>(id));
    // Every id's chunk stays remembered.
    EXPECT_LT(sequence.MemoryUse(), before / 2 + 100'000);
}

std::vector<Id> IdsOf(const IdSequence& sequence) {
    std::vector<Id> ids;
    for (int32_t position = 0; position < sequence.Count(); ++position) {
        ids.push_back(sequence.At(position));
        EXPECT_EQ(sequence.PositionOf(ids.back()), position);
    }
    return ids;
}

TEST(IdSequenceWithoutMemory, AnInsertionThatFailsChangesNothing) {
    for (const int32_t size : {0, 1, 8, 255, 256, 257, 512, 2048}) {
        for (const int32_t place : {0, size / 2, size}) {
            for (const bool andAllAfter : {false, true}) {
                SCOPED_TRACE(std::to_string(size) + " ids, at " + std::to_string(place));
                FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
                    IdSequence sequence;
                    for (int32_t id = 0; id < size; ++id) sequence.Insert(id, static_cast<Id>(id));
                    std::vector<Id> expected = IdsOf(sequence);
                    const auto fresh = static_cast<Id>(size);
                    const bool failed = RunsOut(plan, [&] { sequence.Insert(place, fresh); });
                    if (failed) {
                        EXPECT_EQ(IdsOf(sequence), expected);
                        sequence.Insert(place, fresh);
                    }
                    expected.insert(expected.begin() + place, fresh);
                    EXPECT_EQ(IdsOf(sequence), expected);
                    return failed;
                });
            }
        }
    }
}

TEST(IdSequenceWithoutMemory, IdsAreTakenOutWithoutMemory) {
    for (const int32_t step : {1, 3, 200}) {
        IdSequence sequence;
        for (Id id = 0; id < 3000; ++id) sequence.Insert(step % 2 == 0 ? 0 : sequence.Count(), id);
        const FailingMemory memory({1, true});
        for (int32_t position = 0; sequence.Count() > 0; position = (position + step) % std::max(1, sequence.Count()))
            sequence.Remove(position);
        EXPECT_EQ(memory.Asked(), 0);
    }
}

}  // namespace
}  // namespace automation

// RowSequenceTest: numbers and identities of rows, against a plain vector.
#include "rows/RowSequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace foldertree {
namespace {

void ExpectSame(const RowSequence& sequence, const std::vector<RowId>& plain) {
    ASSERT_EQ(sequence.Count(), static_cast<int32_t>(plain.size()));
    for (int32_t number = 0; number < sequence.Count(); ++number) {
        const RowId row = plain[static_cast<size_t>(number)];
        ASSERT_EQ(sequence.At(number), row);
        ASSERT_EQ(sequence.NumberOf(row), number);
        ASSERT_FALSE(sequence.Precedes(row, row));
        if (number == 0) continue;
        ASSERT_TRUE(sequence.Precedes(plain[static_cast<size_t>(number) - 1], row));
    }
}

TEST(RowSequence, AppendedRowsStandInTheirOrder) {
    RowSequence sequence;
    std::vector<RowId> plain;
    for (RowId row = 0; row < 2000; ++row) {
        sequence.Insert(sequence.Count(), row);
        plain.push_back(row);
    }
    ExpectSame(sequence, plain);
}

TEST(RowSequence, RowsPutInFrontOneByOneStandInReverse) {
    RowSequence sequence;
    std::vector<RowId> plain;
    for (RowId row = 0; row < 2000; ++row) {
        sequence.Insert(0, row);
        plain.insert(plain.begin(), row);
    }
    ExpectSame(sequence, plain);
}

TEST(RowSequence, EmptiesAndFillsAgain) {
    RowSequence sequence;
    for (int round = 0; round < 3; ++round) {
        for (RowId row = 0; row < 600; ++row) sequence.Insert(sequence.Count(), row);
        while (sequence.Count() > 0) sequence.Remove(round == 0 ? 0 : sequence.Count() - 1);
    }
    EXPECT_EQ(sequence.Count(), 0);
    sequence.Insert(0, 7);
    EXPECT_EQ(sequence.At(0), 7u);
}

TEST(RowSequence, RandomInsertionsAndRemovalsKeepTheOrder) {
    for (uint32_t seed = 1; seed <= 5; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        RowSequence sequence;
        std::vector<RowId> plain;
        std::vector<RowId> unused;
        RowId next = 0;
        for (int step = 0; step < 8000; ++step) {
            // Runs that grow and runs that shrink, so that chunks split and join.
            const bool grows = step / 2000 % 2 == 0;
            if (plain.empty() || random() % 10 < (grows ? 8 : 2)) {
                const size_t place = random() % (plain.size() + 1);
                RowId row = next;
                if (unused.empty()) {
                    ++next;
                } else {
                    row = unused.back();
                    unused.pop_back();
                }
                sequence.Insert(static_cast<int32_t>(place), row);
                plain.insert(plain.begin() + static_cast<ptrdiff_t>(place), row);
            } else {
                const size_t place = random() % plain.size();
                unused.push_back(plain[place]);
                sequence.Remove(static_cast<int32_t>(place));
                plain.erase(plain.begin() + static_cast<ptrdiff_t>(place));
            }
            if (plain.empty()) continue;
            const size_t any = random() % plain.size();
            ASSERT_EQ(sequence.NumberOf(plain[any]), static_cast<int32_t>(any));
            if (step % 500 == 0) ExpectSame(sequence, plain);
            if (::testing::Test::HasFatalFailure()) return;
        }
        ExpectSame(sequence, plain);
    }
}

TEST(RowSequence, RowsThatComeAndGoLeaveNoMemoryBehind) {
    RowSequence sequence;
    for (RowId row = 0; row < 100'000; ++row) sequence.Insert(sequence.Count(), row);
    const size_t before = sequence.MemoryUse();
    for (RowId row = 99'999; row >= 1000; --row) sequence.Remove(static_cast<int32_t>(row));
    // Every row's chunk is remembered by its id, so that much stays.
    EXPECT_LT(sequence.MemoryUse(), before / 2 + 100'000);
}

}  // namespace
}  // namespace foldertree

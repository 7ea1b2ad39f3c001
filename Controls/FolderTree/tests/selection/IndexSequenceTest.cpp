// IndexSequenceTest: numbers in an order, against a plain list of them.
#include "selection/IndexSequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace foldertree {
namespace {

struct Plain {
    IndexSequence::Entry entry;
    int32_t index;
};

TEST(IndexSequence, FindsPlacesAsAPlainListDoes) {
    std::mt19937 random(7);
    const auto below = [&](size_t limit) { return static_cast<int32_t>(random() % limit); };
    IndexSequence sequence;
    std::vector<Plain> plain;
    std::vector<IndexSequence::Entry> gone;
    for (int step = 0; step < 12000; ++step) {
        if (below(4) > 0 || plain.empty()) {
            const int32_t position = below(3) > 0 ? static_cast<int32_t>(plain.size()) : below(plain.size() + 1);
            const int32_t index = below(5000) - 20;
            plain.insert(plain.begin() + position, {sequence.Insert(position, index), index});
        } else {
            const auto at = plain.begin() + below(plain.size());
            gone.push_back(at->entry);
            sequence.Remove(at->entry);
            plain.erase(at);
        }
        ASSERT_EQ(sequence.Count(), static_cast<int32_t>(plain.size()));
        const double wanted = below(6000) + 0.5 * below(2);
        const auto found =
            std::find_if(plain.begin(), plain.end(), [&](const Plain& each) { return each.index >= wanted; });
        ASSERT_EQ(sequence.FirstNotLess(wanted), found - plain.begin());
        if (plain.empty()) continue;
        const int32_t position = below(plain.size());
        ASSERT_EQ(sequence.PositionOf(plain[static_cast<size_t>(position)].entry), position);
    }
    ASSERT_GT(plain.size(), 4000u);
    for (const IndexSequence::Entry entry : gone) EXPECT_EQ(sequence.PositionOf(entry), std::nullopt);
}

TEST(IndexSequence, AnEmptyOneHasItsOnlyPlaceAtItsStart) {
    IndexSequence sequence;
    EXPECT_EQ(sequence.FirstNotLess(5), 0);
    sequence.Remove(sequence.Append(9));
    EXPECT_EQ(sequence.FirstNotLess(5), 0);
    EXPECT_EQ(sequence.Count(), 0);
    sequence.Append(4);
    EXPECT_EQ(sequence.FirstNotLess(5), 1);
    EXPECT_EQ(sequence.FirstNotLess(4), 0);
}

}  // namespace
}  // namespace foldertree

// KeyIndexTest: first rows of keys, with few hashes so that they collide.
#include "rows/KeyIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace foldertree {
namespace {

/// Rows with numbers as keys; every key's hash is its remainder, so different keys share hashes.
class KeyedRows {
  public:
    explicit KeyedRows(uint32_t hashes) : hashes_(hashes) {}

    void Insert(int32_t number, RowId row, int key) {
        order_.Insert(number, row);
        keys_[row] = key;
        index_.Insert(Hash(key), row, [&](RowId other) { return keys_.at(other) == key; });
    }
    RowId Remove(int32_t number) {
        const RowId row = order_.At(number);
        index_.Remove(Hash(keys_.at(row)), row);
        order_.Remove(number);
        keys_.erase(row);
        return row;
    }
    int32_t First(int key, int32_t start = 0) const {
        const auto from = start == 0 ? std::nullopt : std::optional(order_.At(start));
        const auto row = index_.First(
            Hash(key), [&](RowId other) { return keys_.at(other) == key; }, from);
        return row ? order_.PositionOf(*row) : -1;
    }
    int32_t FirstByScan(int key, int32_t start) const {
        for (int32_t number = start; number < order_.Count(); ++number)
            if (keys_.at(order_.At(number)) == key) return number;
        return -1;
    }
    int32_t Count() const { return order_.Count(); }

  private:
    uint32_t Hash(int key) const { return static_cast<uint32_t>(key) % hashes_; }

    uint32_t hashes_;
    automation::IdSequence order_;
    KeyIndex index_{order_};
    std::map<RowId, int> keys_;
};

TEST(KeyIndex, FindsNothingWhenEmpty) {
    EXPECT_EQ(KeyedRows(10).First(1), -1);
}

TEST(KeyIndex, PassesOverARowThatItDoesNotHave) {
    automation::IdSequence order;
    order.Insert(0, 0);
    order.Insert(1, 1);
    KeyIndex index(order);
    index.Remove(7, 0);  // no row was ever entered
    index.Insert(7, 0, [](RowId) { return false; });
    index.Remove(7, 1);
    EXPECT_EQ(index.First(7, [](RowId row) { return row == 0; }), RowId{0});
}

TEST(KeyIndex, FindsTheFirstOfEqualKeysWhereverTheyWereInserted) {
    KeyedRows rows(10);
    rows.Insert(0, 0, 5);
    rows.Insert(1, 1, 5);
    rows.Insert(0, 2, 5);
    EXPECT_EQ(rows.First(5), 0);
    rows.Remove(0);
    rows.Insert(0, 2, 7);
    EXPECT_EQ(rows.First(5), 1);
    EXPECT_EQ(rows.First(5, 2), 2);
    rows.Remove(1);
    EXPECT_EQ(rows.First(5), 1);
    EXPECT_EQ(rows.First(5, 1), 1);
    rows.Remove(1);
    EXPECT_EQ(rows.First(5), -1);
}

TEST(KeyIndex, AgreesWithAScanAsRowsComeAndGo) {
    for (uint32_t seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const int keys = seed % 2 == 0 ? 8 : 300;
        KeyedRows rows(seed < 4 ? 13 : 100000);
        std::vector<RowId> unused;
        for (RowId row = 0; row < 600; ++row) unused.push_back(row);
        for (int step = 0; step < 4000; ++step) {
            const bool insert = rows.Count() == 0 || (!unused.empty() && random() % 2 == 0);
            if (insert) {
                const auto number = static_cast<int32_t>(random() % static_cast<uint32_t>(rows.Count() + 1));
                rows.Insert(number, unused.back(), static_cast<int>(random() % static_cast<uint32_t>(keys)));
                unused.pop_back();
            } else {
                const auto number = static_cast<int32_t>(random() % static_cast<uint32_t>(rows.Count()));
                unused.insert(unused.begin(), rows.Remove(number));
            }
            const int key = static_cast<int>(random() % static_cast<uint32_t>(keys));
            ASSERT_EQ(rows.First(key), rows.FirstByScan(key, 0)) << "step " << step;
            if (rows.Count() == 0) continue;
            const auto start = static_cast<int32_t>(random() % static_cast<uint32_t>(rows.Count()));
            ASSERT_EQ(rows.First(key, start), rows.FirstByScan(key, start)) << "step " << step;
        }
    }
}

}  // namespace
}  // namespace foldertree

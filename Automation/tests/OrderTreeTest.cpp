// OrderTree: positions against a plain list, and that the tree stays low however it grows.
#include "automation/OrderTree.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace automation {
namespace {

using Items = std::vector<OrderLink*>;

void ExpectOrder(const OrderTree& tree, const Items& expected) {
    ASSERT_EQ(tree.Count(), static_cast<int32_t>(expected.size()));
    for (int32_t position = 0; position < tree.Count(); ++position) {
        ASSERT_EQ(tree.At(position), expected[static_cast<size_t>(position)]) << position;
        ASSERT_EQ(tree.PositionOf(*expected[static_cast<size_t>(position)]), position);
    }
}

TEST(OrderTree, KeepsTheOrderOfAPlainListThroughRandomChanges) {
    std::mt19937 random(7);
    const auto below = [&random](size_t limit) { return static_cast<size_t>(random() % limit); };
    std::vector<std::unique_ptr<OrderLink>> links;
    OrderTree tree;
    Items list;
    for (int step = 0; step < 20000; ++step) {
        // Grows for a while, then shrinks, so that small and empty trees come by as well.
        const bool insert = list.empty() || below(10) < (step / 500 % 2 == 0 ? 7u : 3u);
        if (insert) {
            const size_t place = below(list.size() + 1);
            OrderLink* const item = links.emplace_back(std::make_unique<OrderLink>()).get();
            tree.Insert(static_cast<int32_t>(place), *item);
            list.insert(list.begin() + static_cast<ptrdiff_t>(place), item);
        } else {
            const size_t place = below(list.size());
            tree.Remove(*list[place]);
            list.erase(list.begin() + static_cast<ptrdiff_t>(place));
        }
        if (!list.empty()) {
            const size_t place = below(list.size());
            ASSERT_EQ(tree.At(static_cast<int32_t>(place)), list[place]);
        }
        if (step % 100 == 0) ExpectOrder(tree, list);
    }
    ExpectOrder(tree, list);
}

TEST(OrderTree, StaysLowHoweverItGrows) {
    constexpr int32_t many = 100000;
    constexpr int32_t low = 60;  // a search tree that is not balanced would be as high as it has items
    std::mt19937 random(7);
    for (int way = 0; way < 3; ++way) {
        std::vector<OrderLink> links(many);
        OrderTree tree;
        for (int32_t i = 0; i < many; ++i) {
            const int32_t middle = static_cast<int32_t>(random() % static_cast<uint32_t>(i + 1));
            tree.Insert(way == 0 ? i : way == 1 ? 0 : middle, links[static_cast<size_t>(i)]);
        }
        EXPECT_LT(tree.Height(), low);
        for (int32_t i = 0; i < many - 1000; ++i) tree.Remove(*tree.At(way == 0 ? 0 : tree.Count() / 2));
        EXPECT_LT(tree.Height(), low);
        EXPECT_EQ(tree.Count(), 1000);
    }
}

TEST(OrderTree, GivesAllItemsAwayInTheirOrder) {
    std::vector<OrderLink> links(1000);
    OrderTree tree;
    EXPECT_EQ(tree.TakeAll(), nullptr);
    for (OrderLink& link : links) tree.Insert(0, link);
    OrderLink* item = tree.TakeAll();
    EXPECT_EQ(tree.Count(), 0);
    for (auto expected = links.rbegin(); expected != links.rend(); ++expected) {
        ASSERT_EQ(item, &*expected);
        item = item->right;
    }
    EXPECT_EQ(item, nullptr);
}

}  // namespace
}  // namespace automation

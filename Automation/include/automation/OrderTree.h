// OrderTree: an order of items, from an item's position to the item and back; to change it needs no memory.
#pragma once

#include <cstdint>

namespace automation {

/// What an item of an OrderTree derives from. It belongs to one tree at a time, and only the tree uses its data.
struct OrderLink {
    OrderLink* parent = nullptr;
    OrderLink* left = nullptr;
    OrderLink* right = nullptr;
    int32_t size = 1;  ///< items in this one's part of the tree
    uint32_t priority = 0;
};

/// A balanced tree over items that somebody else owns. Every member but TakeAll takes O(log n), reading positions one
/// after the other O(1) each. Nothing here throws. Positions are 0-based; callers pass positions and items that exist.
class OrderTree {
  public:
    OrderTree() = default;
    OrderTree(const OrderTree&) = delete;
    OrderTree& operator=(const OrderTree&) = delete;

    int32_t Count() const noexcept { return SizeOf(root_); }
    OrderLink* At(int32_t position) const noexcept;
    int32_t PositionOf(const OrderLink& item) const noexcept;

    /// Puts an item that is in no tree before the one that now has the position; with position Count(), at the end.
    void Insert(int32_t position, OrderLink& item) noexcept;
    void Remove(OrderLink& item) noexcept;
    /// Empties the tree and returns the first item; each one's `right` is the next.
    OrderLink* TakeAll() noexcept;

    /// How many items are on the longest way from the top of the tree to an item. O(n), for tests.
    int32_t Height() const;

  private:
    static int32_t SizeOf(const OrderLink* link) { return link == nullptr ? 0 : link->size; }
    OrderLink*& PlaceOf(const OrderLink& item);
    void RotateUp(OrderLink& item);
    uint32_t NextPriority();

    OrderLink* root_ = nullptr;
    uint32_t random_ = 2463534242;
    mutable OrderLink* last_ = nullptr;  ///< the item that At gave last; null once the order has changed
    mutable int32_t lastPosition_ = 0;
};

}  // namespace automation

// OrderTree: a search tree by position, kept balanced by random priorities: a parent's is never below its child's.
#include "automation/OrderTree.h"

#include <algorithm>

namespace automation {

namespace {

OrderLink* Next(OrderLink* link) {
    if (link->right != nullptr) {
        for (link = link->right; link->left != nullptr;) link = link->left;
        return link;
    }
    while (link->parent != nullptr && link == link->parent->right) link = link->parent;
    return link->parent;
}

int32_t HeightOf(const OrderLink* link) {
    return link == nullptr ? 0 : 1 + std::max(HeightOf(link->left), HeightOf(link->right));
}

}  // namespace

OrderLink* OrderTree::At(int32_t position) const noexcept {
    if (last_ == nullptr || position != lastPosition_ + 1) {
        last_ = root_;
        for (int32_t before = position; before != SizeOf(last_->left);) {
            const int32_t left = SizeOf(last_->left);
            if (before < left) {
                last_ = last_->left;
            } else {
                before -= left + 1;
                last_ = last_->right;
            }
        }
    } else {
        last_ = Next(last_);
    }
    lastPosition_ = position;
    return last_;
}

int32_t OrderTree::PositionOf(const OrderLink& item) const noexcept {
    int32_t before = SizeOf(item.left);
    for (const OrderLink* link = &item; link->parent != nullptr; link = link->parent)
        if (link == link->parent->right) before += SizeOf(link->parent->left) + 1;
    return before;
}

void OrderTree::Insert(int32_t position, OrderLink& item) noexcept {
    item = OrderLink();
    item.priority = NextPriority();
    last_ = nullptr;
    OrderLink** place = &root_;
    while (*place != nullptr) {
        item.parent = *place;
        ++item.parent->size;
        const int32_t left = SizeOf(item.parent->left);
        if (position <= left) {
            place = &item.parent->left;
        } else {
            position -= left + 1;
            place = &item.parent->right;
        }
    }
    *place = &item;
    while (item.parent != nullptr && item.parent->priority < item.priority) RotateUp(item);
}

void OrderTree::Remove(OrderLink& item) noexcept {
    last_ = nullptr;
    while (item.left != nullptr || item.right != nullptr) {
        const bool left = item.right == nullptr || (item.left != nullptr && item.left->priority > item.right->priority);
        RotateUp(left ? *item.left : *item.right);
    }
    PlaceOf(item) = nullptr;
    for (OrderLink* link = item.parent; link != nullptr; link = link->parent) --link->size;
}

OrderLink* OrderTree::TakeAll() noexcept {
    OrderLink head;
    head.right = root_;
    OrderLink* done = &head;
    while (OrderLink* const rest = done->right) {
        if (OrderLink* const left = rest->left) {
            rest->left = left->right;
            left->right = rest;
            done->right = left;
        } else {
            done = rest;
        }
    }
    root_ = last_ = nullptr;
    return head.right;
}

int32_t OrderTree::Height() const {
    return HeightOf(root_);
}

OrderLink*& OrderTree::PlaceOf(const OrderLink& item) {
    if (item.parent == nullptr) return root_;
    return item.parent->left == &item ? item.parent->left : item.parent->right;
}

/// Makes the item its parent's parent; the order stays.
void OrderTree::RotateUp(OrderLink& item) {
    OrderLink& parent = *item.parent;
    PlaceOf(parent) = &item;
    const bool fromLeft = parent.left == &item;
    OrderLink*& given = fromLeft ? item.right : item.left;
    OrderLink*& taken = fromLeft ? parent.left : parent.right;
    taken = given;
    if (given != nullptr) given->parent = &parent;
    given = &parent;
    item.parent = parent.parent;
    parent.parent = &item;
    item.size = parent.size;
    parent.size = SizeOf(parent.left) + SizeOf(parent.right) + 1;
}

/// Marsaglia's xorshift: any order of insertions gives the same tree in every run.
uint32_t OrderTree::NextPriority() {
    random_ ^= random_ << 13;
    random_ ^= random_ >> 17;
    random_ ^= random_ << 5;
    return random_;
}

}  // namespace automation

// KeyIndex: a table of rows by hash, with ordered groups for shared keys.
#include "rows/KeyIndex.h"

#include "automation/ReserveOne.h"

namespace foldertree {

std::optional<RowId> KeyIndex::FirstOf(uint32_t content, std::optional<RowId> start) const {
    if (!IsGroup(content)) {
        if (start && order_.Precedes(content, *start)) return std::nullopt;
        return content;
    }
    const Group& group = GroupOf(content);
    const auto found = start ? group.lower_bound(*start) : group.begin();
    if (found == group.end()) return std::nullopt;
    return *found;
}

bool KeyIndex::Holds(uint32_t content, RowId row) const {
    return IsGroup(content) ? GroupOf(content).contains(row) : content == row;
}

void KeyIndex::AddToGroup(Group& group, RowId row) {
    // A load appends: its rows go to the end without a search.
    if (order_.Precedes(*group.rbegin(), row)) {
        group.insert(group.end(), row);
    } else {
        group.insert(row);
    }
    ++grouped_;
}

uint32_t KeyIndex::MakeGroup(RowId one, RowId other) {
    auto group = std::make_unique<Group>(ByPosition{&order_});
    group->insert(one);
    group->insert(other);
    uint32_t number;
    if (freeGroups_.empty()) {
        automation::ReserveOne(groups_);
        freeGroups_.reserve(groups_.capacity());  // so that a group can be given up without asking for memory
        number = static_cast<uint32_t>(groups_.size());
        groups_.push_back(std::move(group));
    } else {
        number = freeGroups_.back();
        freeGroups_.pop_back();
        groups_[number] = std::move(group);
    }
    grouped_ += 2;
    return number | groupFlag;
}

void KeyIndex::TakeOut(uint32_t hash, RowId row, const uint32_t* notThere) noexcept {
    uint32_t* const content =
        places_.Find(hash, [&](const uint32_t& each) { return &each != notThere && Holds(each, row); });
    if (content == nullptr) return;
    if (IsGroup(*content)) {
        RemoveFromGroup(*content, row);
    } else {
        places_.Remove(content);
    }
}

void KeyIndex::RemoveFromGroup(uint32_t& content, RowId row) noexcept {
    Group& group = GroupOf(content);
    group.erase(row);
    --grouped_;
    if (group.size() > 1) return;
    const RowId last = *group.begin();
    const uint32_t number = content & ~groupFlag;
    freeGroups_.push_back(number);
    groups_[number].reset();
    content = last;
    --grouped_;
}

size_t KeyIndex::MemoryUse() const {
    constexpr size_t nodeSize = 48;  // of a std::set on 64 bits, with the allocator's own word
    return places_.MemoryUse() + groups_.capacity() * sizeof(void*) +
           (groups_.size() - freeGroups_.size()) * sizeof(Group) + freeGroups_.capacity() * sizeof(uint32_t) +
           grouped_ * nodeSize;
}

}  // namespace foldertree

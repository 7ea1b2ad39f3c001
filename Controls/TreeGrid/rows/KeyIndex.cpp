// KeyIndex: an open-addressing table of rows, with ordered groups for shared keys.
#include "rows/KeyIndex.h"

namespace foldertree {

std::optional<RowId> KeyIndex::FirstOf(const Entry& entry, std::optional<RowId> start) const {
    if (!IsGroup(entry)) {
        if (start && order_.Precedes(entry.content, *start)) return std::nullopt;
        return entry.content;
    }
    const Group& group = GroupOf(entry);
    const auto found = start ? group.lower_bound(*start) : group.begin();
    if (found == group.end()) return std::nullopt;
    return *found;
}

bool KeyIndex::Holds(const Entry& entry, RowId row) const {
    return IsGroup(entry) ? GroupOf(entry).contains(row) : entry.content == row;
}

void KeyIndex::AddToGroup(Entry& entry, RowId row) {
    if (!IsGroup(entry)) {
        auto group = std::make_unique<Group>(ByPosition{&order_});
        group->insert(entry.content);
        uint32_t number = static_cast<uint32_t>(groups_.size());
        if (freeGroups_.empty()) {
            groups_.push_back(std::move(group));
        } else {
            number = freeGroups_.back();
            groups_[number] = std::move(group);
            freeGroups_.pop_back();
        }
        entry.content = number | groupFlag;
        ++grouped_;
    }
    Group& group = GroupOf(entry);
    // A load appends: its rows go to the end without a search.
    if (order_.Precedes(*group.rbegin(), row)) {
        group.insert(group.end(), row);
    } else {
        group.insert(row);
    }
    ++grouped_;
}

void KeyIndex::RemoveFromGroup(Entry& entry, RowId row) {
    Group& group = GroupOf(entry);
    group.erase(row);
    --grouped_;
    if (group.size() > 1) return;
    const RowId last = *group.begin();
    const uint32_t number = entry.content & ~groupFlag;
    freeGroups_.push_back(number);
    groups_[number].reset();
    entry.content = last;
    --grouped_;
}

void KeyIndex::Remove(uint32_t hash, RowId row) {
    const size_t mask = entries_.size() - 1;
    for (size_t at = hash & mask; entries_[at].content != empty; at = (at + 1) & mask) {
        Entry& entry = entries_[at];
        if (entry.hash != hash || !Holds(entry, row)) continue;
        if (IsGroup(entry)) {
            RemoveFromGroup(entry, row);
        } else {
            Erase(at);
        }
        return;
    }
}

void KeyIndex::InsertSingle(uint32_t hash, RowId row) {
    if ((used_ + 1) * 4 > entries_.size() * 3) Grow();
    Place({hash, row});
    ++used_;
}

void KeyIndex::Place(const Entry& entry) {
    const size_t mask = entries_.size() - 1;
    size_t at = entry.hash & mask;
    while (entries_[at].content != empty) at = (at + 1) & mask;
    entries_[at] = entry;
}

void KeyIndex::Erase(size_t at) {
    // Later entries of the run move up into the gap, so that no search stops short of them.
    const size_t mask = entries_.size() - 1;
    size_t gap = at;
    for (size_t next = (gap + 1) & mask; entries_[next].content != empty; next = (next + 1) & mask) {
        const size_t home = entries_[next].hash & mask;
        if (((next - home) & mask) < ((next - gap) & mask)) continue;
        entries_[gap] = entries_[next];
        gap = next;
    }
    entries_[gap] = {};
    --used_;
}

void KeyIndex::Grow() {
    std::vector<Entry> old(entries_.empty() ? 64 : entries_.size() * 2);
    old.swap(entries_);
    for (const Entry& entry : old)
        if (entry.content != empty) Place(entry);
}

size_t KeyIndex::MemoryUse() const {
    constexpr size_t nodeSize = 48;  // of a std::set on 64 bits, with the allocator's own word
    return entries_.capacity() * sizeof(Entry) + groups_.capacity() * sizeof(void*) +
           (groups_.size() - freeGroups_.size()) * sizeof(Group) + freeGroups_.capacity() * sizeof(uint32_t) +
           grouped_ * nodeSize;
}

}  // namespace foldertree

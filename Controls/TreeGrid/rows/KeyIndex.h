// KeyIndex: finds the first row that has a key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "rows/RowSequence.h"

namespace foldertree {

/// Rows by the hash of their key. The index holds no key: the caller says whether a row has the key that is meant. Rows
/// with equal keys are kept in the order of the sequence, which insertion and removal of other rows never changes.
class KeyIndex {
  public:
    /// The sequence must outlive the index. A row is in the sequence as long as it is in the index.
    explicit KeyIndex(const RowSequence& order) : order_(order) {}

    /// Enters a row. `same(other)` tells whether a row in the index has the same key.
    template <class Same>
    void Insert(uint32_t hash, RowId row, Same&& same) {
        if (Entry* entry = Find(hash, same)) {
            AddToGroup(*entry, row);
        } else {
            InsertSingle(hash, row);
        }
    }
    /// Takes out a row that was entered with this hash.
    void Remove(uint32_t hash, RowId row);

    /// The first row for which `same(row)` holds, from the row `start` on where one is given.
    template <class Same>
    std::optional<RowId> First(uint32_t hash, Same&& same, std::optional<RowId> start = std::nullopt) const {
        const Entry* entry = const_cast<KeyIndex*>(this)->Find(hash, same);
        if (entry == nullptr) return std::nullopt;
        return FirstOf(*entry, start);
    }

    size_t MemoryUse() const;

  private:
    static constexpr uint32_t empty = UINT32_MAX;
    static constexpr uint32_t groupFlag = 0x80000000;  ///< the content is a group's number, not a row

    struct Entry {
        uint32_t hash = 0;
        uint32_t content = empty;
    };
    struct ByPosition {
        const RowSequence* order;
        bool operator()(RowId a, RowId b) const { return order->Precedes(a, b); }
    };
    using Group = std::set<RowId, ByPosition>;

    static bool IsGroup(const Entry& entry) { return (entry.content & groupFlag) != 0; }
    Group& GroupOf(const Entry& entry) const { return *groups_[entry.content & ~groupFlag]; }
    RowId AnyOf(const Entry& entry) const { return IsGroup(entry) ? *GroupOf(entry).begin() : entry.content; }

    template <class Same>
    Entry* Find(uint32_t hash, Same&& same) {
        if (entries_.empty()) return nullptr;
        const size_t mask = entries_.size() - 1;
        for (size_t at = hash & mask; entries_[at].content != empty; at = (at + 1) & mask)
            if (entries_[at].hash == hash && same(AnyOf(entries_[at]))) return &entries_[at];
        return nullptr;
    }
    std::optional<RowId> FirstOf(const Entry& entry, std::optional<RowId> start) const;
    bool Holds(const Entry& entry, RowId row) const;
    void AddToGroup(Entry& entry, RowId row);
    void RemoveFromGroup(Entry& entry, RowId row);
    void InsertSingle(uint32_t hash, RowId row);
    void Place(const Entry& entry);
    void Erase(size_t at);
    void Grow();

    const RowSequence& order_;
    std::vector<Entry> entries_;  ///< open addressing, linear probing
    size_t used_ = 0;
    std::vector<std::unique_ptr<Group>> groups_;  ///< of the keys that several rows share
    std::vector<uint32_t> freeGroups_;
    size_t grouped_ = 0;  ///< rows in groups
};

}  // namespace foldertree

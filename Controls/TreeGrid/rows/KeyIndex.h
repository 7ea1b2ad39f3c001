// KeyIndex: finds the first row that has a key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "automation/HashPlaces.h"
#include "rows/RowId.h"

namespace foldertree {

/// Rows by the hash of their key. The index holds no key: the caller says whether a row has the key that is meant. Rows
/// with equal keys are kept in the order of the sequence, which insertion and removal of other rows never changes.
/// A member that fails for want of memory has changed nothing; taking out and finding need none.
class KeyIndex {
  public:
    /// The sequence must outlive the index. A row is in the sequence as long as it is in the index.
    explicit KeyIndex(const automation::IdSequence& order) : order_(order) {}

    /// Enters a row. `same(other)` tells whether a row in the index has the same key.
    template <class Same>
    void Insert(uint32_t hash, RowId row, Same&& same) {
        Enter(hash, row, same);
    }
    /// Gives a row that was entered with the hash `from` another key, which it does not have yet.
    template <class Same>
    void Change(uint32_t from, uint32_t to, RowId row, Same&& same) {
        TakeOut(from, row, Enter(to, row, same));
    }
    /// Takes out a row that was entered with this hash. A row that was not is passed over.
    void Remove(uint32_t hash, RowId row) noexcept { TakeOut(hash, row, nullptr); }

    /// The first row for which `same(row)` holds, from the row `start` on where one is given.
    template <class Same>
    std::optional<RowId> First(uint32_t hash, Same&& same, std::optional<RowId> start = std::nullopt) const {
        const uint32_t* content = places_.Find(hash, [&](uint32_t each) { return same(AnyOf(each)); });
        if (content == nullptr) return std::nullopt;
        return FirstOf(*content, start);
    }

    size_t MemoryUse() const;

  private:
    static constexpr uint32_t groupFlag = 0x80000000;  ///< the content is a group's number, not a row

    struct ByPosition {
        const automation::IdSequence* order;
        bool operator()(RowId a, RowId b) const { return order->Precedes(a, b); }
    };
    using Group = std::set<RowId, ByPosition>;

    static bool IsGroup(uint32_t content) { return (content & groupFlag) != 0; }
    Group& GroupOf(uint32_t content) const { return *groups_[content & ~groupFlag]; }
    RowId AnyOf(uint32_t content) const { return IsGroup(content) ? *GroupOf(content).begin() : content; }

    /// Where the row stands afterwards.
    template <class Same>
    const uint32_t* Enter(uint32_t hash, RowId row, Same& same) {
        uint32_t* const content = places_.Find(hash, [&](uint32_t each) { return same(AnyOf(each)); });
        if (content == nullptr) return places_.Add(hash, row);
        if (IsGroup(*content)) {
            AddToGroup(GroupOf(*content), row);
        } else {
            *content = MakeGroup(*content, row);
        }
        return content;
    }
    std::optional<RowId> FirstOf(uint32_t content, std::optional<RowId> start) const;
    bool Holds(uint32_t content, RowId row) const;
    void AddToGroup(Group& group, RowId row);
    uint32_t MakeGroup(RowId one, RowId other);
    void TakeOut(uint32_t hash, RowId row, const uint32_t* notThere) noexcept;
    void RemoveFromGroup(uint32_t& content, RowId row) noexcept;

    const automation::IdSequence& order_;
    automation::HashPlaces places_;               ///< a row or a group for each key
    std::vector<std::unique_ptr<Group>> groups_;  ///< of the keys that several rows share
    std::vector<uint32_t> freeGroups_;            ///< has room for every group's number
    size_t grouped_ = 0;                          ///< rows in groups
};

}  // namespace foldertree

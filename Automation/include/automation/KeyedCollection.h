// KeyedCollection: a collection of our own, of the shape and with the errors that Visual Basic hosts know.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "automation/HashPlaces.h"
#include "automation/IdSequence.h"
#include "automation/Object.h"
#include "automation/TabledObject.h"
#include "automation/TextHash.h"

namespace automation {

/// Members: `Item(Index)` (default), `Add(Item, Key?, Before?, After?)`, `Count`, `Remove(Index)`, `_NewEnum`. An index
/// is a 1-based position or a key; keys are unique and compared without regard to case. An empty key is no key. Errors:
/// 457 duplicate key, 5 unknown key or both Before and After, 9 position out of range, 13 an index of another type. An
/// enumerator stays usable when the collection changes; it then goes on at the same position.
/// A member that fails, for want of memory too, has changed nothing. The end of an item may use the collection. Going
/// through the items, adding and removing at one place and finding by key take constant time; a change in front of
/// where the next one looks takes n / 256 steps more.
class KeyedCollection : public TabledObject<KeyedCollection> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const MemberEntry<KeyedCollection>> Members();

    std::unique_ptr<Enumerator> NewEnum() override;

    ~KeyedCollection() override;

    int32_t Count() const { return order_.Count(); }
    Value Item(const Value& index) const;
    /// The item at a position from 1 to Count().
    const Value& ItemAt(int32_t position) const;
    void Add(Value item, const Value& key, const Value& before, const Value& after);
    void Remove(const Value& index);

  private:
    /// One per id; free ones are empty.
    struct Entry {
        Value item;
        std::string key;       ///< empty when the entry has no key
        uint32_t keyHash = 0;  ///< of a free entry: the next free one
    };
    using Id = IdSequence::Id;

    static uint32_t HashOf(std::string_view key) { return static_cast<uint32_t>(CaselessHash()(key)); }
    std::optional<Id> FindKey(uint32_t hash, std::string_view key) const;
    /// The entry that an index means.
    Id Find(const Value& index) const;
    Id NextEntry();

    std::deque<Entry> entries_;  ///< by id
    Id firstFree_ = noEntry;
    IdSequence order_;
    HashPlaces byKey_;  ///< the ids of entries that have a key
    static constexpr Id noEntry = UINT32_MAX;
};

}  // namespace automation

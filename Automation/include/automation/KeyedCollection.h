// KeyedCollection: a collection of our own, of the shape and with the errors that Visual Basic hosts know.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

#include "automation/Object.h"
#include "automation/OrderTree.h"
#include "automation/TabledObject.h"
#include "automation/TextHash.h"

namespace automation {

/// Members: `Item(Index)` (default), `Add(Item, Key?, Before?, After?)`, `Count`, `Remove(Index)`, `_NewEnum`. An index
/// is a 1-based position or a key; keys are unique and compared without regard to case. An empty key is no key. Errors:
/// 457 duplicate key, 5 unknown key or both Before and After, 9 position out of range, 13 an index of another type. An
/// enumerator stays usable when the collection changes; it then goes on at the same position.
/// A member that fails, for want of memory too, has changed nothing. The end of an item may use the collection. Adding
/// anywhere, removing by position and removing by key all take O(log n).
class KeyedCollection : public TabledObject<KeyedCollection> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const MemberEntry<KeyedCollection>> Members();

    std::unique_ptr<Enumerator> NewEnum() override;

    ~KeyedCollection() override;

    int32_t Count() const { return order_.Count(); }
    Value Item(const Value& index) const;
    void Add(Value item, const Value& key, const Value& before, const Value& after);
    void Remove(const Value& index);

  private:
    struct Entry : OrderLink {
        Value item;
        std::string key;  ///< empty when the entry has no key
    };
    struct KeyHash : CaselessHash {
        using CaselessHash::operator();
        size_t operator()(const Entry* entry) const { return (*this)(std::string_view(entry->key)); }
    };
    struct SameKey : CaselessEqual {
        using CaselessEqual::operator();
        bool operator()(const Entry* a, const Entry* b) const { return (*this)(a->key, b->key); }
        bool operator()(std::string_view key, const Entry* entry) const { return (*this)(key, entry->key); }
        bool operator()(const Entry* entry, std::string_view key) const { return (*this)(entry->key, key); }
    };

    Entry& FindKey(std::string_view key) const;
    Entry& Find(const Value& index) const;

    OrderTree order_;  ///< of all entries; they belong to the collection
    std::unordered_set<Entry*, KeyHash, SameKey> byKey_;
};

}  // namespace automation

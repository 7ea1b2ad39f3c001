// KeyedCollection: a collection of our own, of the shape and with the errors that Visual Basic hosts know.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "automation/Object.h"
#include "automation/TabledObject.h"
#include "automation/TextHash.h"

namespace automation {

/// Members: `Item(Index)` (default), `Add(Item, Key?, Before?, After?)`, `Count`, `Remove(Index)`, `_NewEnum`. An index
/// is a 1-based position or a key; keys are unique and compared without regard to case. An empty key is no key. Errors:
/// 457 duplicate key, 5 unknown key or both Before and After, 9 position out of range, 13 an index of another type. An
/// enumerator stays usable when the collection changes; it then goes on at the same position.
class KeyedCollection : public TabledObject<KeyedCollection> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const MemberEntry<KeyedCollection>> Members();

    std::unique_ptr<Enumerator> NewEnum() override;

    int32_t Count() const { return static_cast<int32_t>(entries_.size()); }
    const Value& Item(const Value& index) const;
    void Add(Value item, const Value& key, const Value& before, const Value& after);
    void Remove(const Value& index);

  private:
    struct Entry {
        Value item;
        std::string key;  ///< empty when the entry has no key
    };
    const Entry& FindKey(std::string_view key) const;
    size_t Position(const Value& index) const;  ///< 0-based

    std::deque<std::unique_ptr<Entry>> entries_;
    std::unordered_map<std::string_view, Entry*, CaselessHash, CaselessEqual>
        byKey_;  ///< its keys are the entries' own texts
};

}  // namespace automation

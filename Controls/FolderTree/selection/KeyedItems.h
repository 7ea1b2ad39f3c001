// KeyedItems: items of a selection collection, found by their keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/TextHash.h"
#include "selection/HashPlaces.h"
#include "selection/SelItem.h"

namespace foldertree {

/// Numbers items in the order in which they come. Looking for one runs no code of the host.
class KeyedItems {
  public:
    /// Adds the item, whose key is that one, under the number Count().
    void Add(const SelItem& item, std::string key) {
        const size_t hash = automation::CaselessHash()(key);
        entries_.push_back({item, item.Own() != nullptr ? std::string() : std::move(key)});
        places_.Add(hash);
    }
    uint32_t Count() const { return static_cast<uint32_t>(entries_.size()); }
    const SelItem& At(uint32_t number) const { return entries_[number].item; }

    /// Calls `visit(number)` for each item with that key, without regard to case, in the order of their numbers, until
    /// it returns true; tells whether it did.
    template <class Visit>
    bool Any(std::string_view key, Visit&& visit) const {
        return places_.Any(automation::CaselessHash()(key),
                           [&](uint32_t number) { return entries_[number].HasKey(key) && visit(number); });
    }

  private:
    struct Entry {
        SelItem item;
        std::string
            strangersKey;  ///< a stranger's key is an outside call, and asked for once; ours are made when needed

        bool HasKey(std::string_view key) const {
            return item.Own() != nullptr ? item.Own()->HasKey(key) : automation::EqualNoCase(strangersKey, key);
        }
    };

    std::vector<Entry> entries_;
    HashPlaces places_;
};

}  // namespace foldertree

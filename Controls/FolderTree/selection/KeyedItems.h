// KeyedItems: items of a selection collection, found by their keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/HashPlaces.h"
#include "automation/TextHash.h"
#include "selection/SelItem.h"

namespace foldertree {

/// Numbers items in the order in which they come. Looking for one runs no code of the host.
class KeyedItems {
  public:
    /// Adds the item, whose key is that one, under the number Count().
    void Add(const SelItem& item, std::string key) {
        const uint32_t hash = HashOf(key);
        places_.Reserve();
        entries_.push_back({item, item.Own() != nullptr ? std::string() : std::move(key)});
        places_.Add(hash, Count() - 1);
        keysMayChange_ |= item.Own() != nullptr && item.Own()->Incomplete();
    }
    /// Finds each item by the key that it has now: one that was completed from a row has the row's.
    void FollowKeys() {
        if (!keysMayChange_) return;
        automation::HashPlaces places;
        for (uint32_t number = 0; number < Count(); ++number) places.Add(HashOf(entries_[number].Key()), number);
        places_ = std::move(places);
    }
    uint32_t Count() const { return static_cast<uint32_t>(entries_.size()); }
    const SelItem& At(uint32_t number) const { return entries_[number].item; }

    /// Calls `visit(number)` for each item with that key, without regard to case, in the order of their numbers, until
    /// it returns true; tells whether it did.
    template <class Visit>
    bool Any(std::string_view key, Visit&& visit) const {
        const auto isMeant = [&](uint32_t number) { return entries_[number].HasKey(key) && visit(number); };
        return places_.Find(HashOf(key), isMeant) != nullptr;
    }

  private:
    struct Entry {
        SelItem item;
        std::string
            strangersKey;  ///< a stranger's key is an outside call, and asked for once; ours are made when needed

        std::string Key() const { return item.Own() != nullptr ? item.Own()->Key() : strangersKey; }
        bool HasKey(std::string_view key) const {
            return item.Own() != nullptr ? item.Own()->HasKey(key) : automation::EqualNoCase(strangersKey, key);
        }
    };

    static uint32_t HashOf(std::string_view key) { return static_cast<uint32_t>(automation::CaselessHash()(key)); }

    std::vector<Entry> entries_;
    automation::HashPlaces places_;
    bool keysMayChange_ = false;  ///< an item waits to be completed
};

}  // namespace foldertree

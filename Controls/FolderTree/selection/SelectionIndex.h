// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "selection/HashPlaces.h"
#include "selection/SelectionSet.h"

namespace foldertree {

/// Made from one walk over the collection; must not live across a yield. Items that are taken out leave the collection
/// together, in Flush(), so that taking out many costs one walk and not one each.
class SelectionIndex {
  public:
    explicit SelectionIndex(SelectionSet& selection);

    /// The first item with that key; a null one when there is none.
    SelItem Find(std::string_view key) const;
    bool Remove(std::string_view key);
    /// Adds at the end, under the item's own key.
    void Add(const SelItem& item);
    /// Carries out what was removed.
    void Flush();
    /// Finds each item by the key that it has now: one that was completed from a row has the row's.
    void FollowKeys();

  private:
    struct Entry {
        SelItem item;
        std::string
            strangersKey;  ///< a stranger's key is an outside call, and asked for once; ours are made when needed
        enum { inCollection, leaving, gone } state = inCollection;

        bool HasKey(std::string_view key) const;
    };

    void Enter(const SelItem& item, std::string strangersKey, size_t hash);
    /// The first item with that key that was not removed; null when there is none.
    const Entry* Entered(std::string_view key) const;
    bool IsLeaving(size_t hash) const;

    SelectionSet& selection_;
    std::vector<Entry> entries_;  ///< in the order of the collection, those that are gone between
    HashPlaces places_;           ///< of the entries, by their keys
};

}  // namespace foldertree

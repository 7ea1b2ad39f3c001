// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#pragma once

#include <string_view>
#include <vector>

#include "selection/CollectionPass.h"
#include "selection/KeyedItems.h"

namespace foldertree {

/// Made from one walk over the pass's collection. Items that are taken out leave the collection together, in Flush(),
/// so that taking out many costs one walk and not one each.
class SelectionIndex {
  public:
    explicit SelectionIndex(CollectionPass& pass);

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
    enum class State : uint8_t { InCollection, Leaving, Gone };

    void Enter(const SelItem& item, std::string key);
    /// The first item with that key that was not removed; nothing when there is none.
    std::optional<uint32_t> Entered(std::string_view key) const;
    bool IsLeaving(std::string_view key) const;

    CollectionPass& pass_;
    KeyedItems items_;  ///< in the order of the collection, those that are gone between
    std::vector<State> states_;
};

}  // namespace foldertree

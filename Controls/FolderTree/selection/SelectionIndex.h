// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "selection/SelectionSet.h"

namespace foldertree {

/// Made from one walk over the collection; must not live across a yield. Items that are taken out leave the collection
/// together, in Flush(), so that taking out many costs one walk and not one each.
class SelectionIndex {
  public:
    explicit SelectionIndex(SelectionSet& selection);

    /// The item under that key; a null one when there is none.
    SelItem Find(std::string_view key) const;
    bool Remove(std::string_view key);
    /// Adds at the end, under the item's own key.
    void Add(const SelItem& item);
    /// Carries out what was removed.
    void Flush();

  private:
    SelectionSet& selection_;
    std::unordered_map<std::string, SelItem> items_;  ///< by case-folded key
    std::unordered_set<std::string> removed_;         ///< case-folded keys of items to take out
};

}  // namespace foldertree

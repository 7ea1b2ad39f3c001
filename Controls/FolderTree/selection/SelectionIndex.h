// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "selection/SelectionSet.h"

namespace foldertree {

/// Made from one walk over the collection; must not live across a yield. Items that are taken out leave the collection
/// together, in Flush(), so that taking out many costs one walk and not one each.
class SelectionIndex {
  public:
    explicit SelectionIndex(SelectionSet& selection);

    /// The first item with that key; a null one when there is none.
    SelItem Find(std::string_view key) const;
    /// Takes out the first item with that key. A host may have filed a second one under a key of its own; that stays.
    bool Remove(std::string_view key);
    /// Adds at the end, under the item's own key.
    void Add(const SelItem& item);
    /// Carries out what was removed.
    void Flush();

  private:
    /// The items of one key, in collection order. More than one is rare, so the others have their place only then.
    struct Items {
        SelItem first;
        std::vector<SelItem> others;
    };

    void File(std::string foldedKey, SelItem item);

    SelectionSet& selection_;
    std::unordered_map<std::string, Items> items_;     ///< by case-folded key
    std::unordered_map<std::string, size_t> removed_;  ///< how many items of a case-folded key are to be taken out
};

}  // namespace foldertree

// SelectionSet: what the user has picked: the host's keyed collection, or one item in single-select.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/ControlContext.h"
#include "selection/SelItem.h"

namespace foldertree {

/// The holders of the pick and the small operations on them. The collection is the host's own object, used by reference
/// and never copied: what the control adds and removes, the host sees in its own variable.
class SelectionSet {
  public:
    explicit SelectionSet(ControlContext& context) : context_(context) {}

    automation::ObjectRef collection;  ///< null until something is assigned or ticked
    ItemRef singleItem;                ///< the single-select pick
    bool pickedInTree = false;         ///< it was, or one before it, a row of the tree: hosts can read it
    bool dirty = false;                ///< the collection may no longer match the grid

    /// The collection, made when there is none.
    const automation::ObjectRef& EnsureCollection();

    // These three throw PassEnded where the host assigns another collection meanwhile.
    SelItem GetSelItemByKey(std::string_view key);
    /// Takes out the first item with that key and returns it; a null one when there is none.
    SelItem RemoveSelItemByKey(std::string_view key);
    /// The largest Index in the collection, never below 0.
    int32_t GetHighIndex();
    /// The number behind `high`. Throws Error 6: a host may have given an item the largest number there is.
    static int32_t NextIndex(int32_t high);
    /// An error in a cell is told in one line, and leaves out the cells behind it. Throws when memory runs out.
    ItemRef CreateSelItemFromRow(int32_t row);
    ItemRef CreateSelItem(int32_t lFolderRecID, std::string_view sStoreID, std::string_view sEntryID,
                          std::string_view sEntryIDShort, std::string_view sAdListID);
    /// Empties the collection from the front and clears the variable.
    void KillCollection(automation::ObjectRef& oColl);
    /// Empties the control's own collection and lets it go. One that cannot be emptied stays.
    void KillCollection();

  private:
    /// One text for all items that are made one after the other from rows of one store.
    const SharedText& SharedStoreID(std::string_view storeID);

    ControlContext& context_;
    SharedText lastStoreID_;
};

}  // namespace foldertree

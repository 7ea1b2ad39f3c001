// ItemLookup: the item of a tree row, by identifiers that the host holds.
#pragma once

#include <string_view>

#include "common/ControlContext.h"
#include "selection/SelectionSet.h"

namespace foldertree {

/// A new item made from the folder's row; null when the tree has no row with exactly that key. Nothing is selected.
ItemRef GetMsgItem(ControlContext& context, SelectionSet& selection, std::string_view sStoreID,
                   std::string_view sEntryID);

/// The same for an address-list entry.
ItemRef GetAdListItem(ControlContext& context, SelectionSet& selection, std::string_view sAdListID,
                      std::string_view sAdListEntryID);

}  // namespace foldertree

// ItemLookup: the item of a tree row, by identifiers that the host holds.
#include "selection/ItemLookup.h"

#include "common/FolderKey.h"

namespace foldertree {
namespace {

ItemRef ItemByKey(ControlContext& context, SelectionSet& selection, const ErrorLine& line, auto&& makeKey) {
    ItemRef item;
    Guarded(context, line, [&] {
        const int32_t row = context.grid.FindRow(makeKey());
        if (row > -1) item = selection.CreateSelItemFromRow(row);
    });
    return item;
}

}  // namespace

ItemRef GetMsgItem(ControlContext& context, SelectionSet& selection, std::string_view sStoreID,
                   std::string_view sEntryID) {
    return ItemByKey(context, selection, errorLines::getMsgItem, [&] { return FolderKey(sStoreID, sEntryID); });
}

ItemRef GetAdListItem(ControlContext& context, SelectionSet& selection, std::string_view sAdListID,
                      std::string_view sAdListEntryID) {
    return ItemByKey(context, selection, errorLines::getAdListItem,
                     [&] { return AddressListKey(sAdListID).append("|").append(sAdListEntryID); });
}

}  // namespace foldertree

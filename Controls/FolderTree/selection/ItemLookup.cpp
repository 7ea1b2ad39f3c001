// ItemLookup: the item of a tree row, by identifiers that the host holds.
#include "selection/ItemLookup.h"

namespace foldertree {
namespace {

ItemRef ItemByKey(ControlContext& context, SelectionSet& selection, const ErrorLine& line, std::string_view form,
                  std::string_view id, std::string_view entryID) {
    ItemRef item;
    Guarded(context, line, [&] {
        std::string key(form);
        key.append(id).append("|").append(entryID);
        const int32_t row = context.grid.FindRow(key);
        if (row > -1) item = selection.CreateSelItemFromRow(row);
    });
    return item;
}

}  // namespace

ItemRef GetMsgItem(ControlContext& context, SelectionSet& selection, std::string_view sStoreID,
                   std::string_view sEntryID) {
    return ItemByKey(context, selection, errorLines::getMsgItem, "S", sStoreID, sEntryID);
}

ItemRef GetAdListItem(ControlContext& context, SelectionSet& selection, std::string_view sAdListID,
                      std::string_view sAdListEntryID) {
    return ItemByKey(context, selection, errorLines::getAdListItem, "L", sAdListID, sAdListEntryID);
}

}  // namespace foldertree

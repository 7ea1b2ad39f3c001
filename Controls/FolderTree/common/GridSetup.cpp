// GridSetup: the empty grid that a control starts with, and the picture of a folder row.
#include "common/GridSetup.h"

namespace foldertree {
namespace {

constexpr int32_t booleanColumn = 11;  // VT_BOOL: the column shows check boxes

void ToggleCaption(TreeGrid& grid, int col, std::string_view placeholder) {
    grid.SetCellText(0, col, grid.CellText(0, col).empty() ? placeholder : "");
}

enuFTIItemType DefaultFolderType(const DefaultFolderIDs& ids, std::string_view sEntryID, enuFTIItemType eType) {
    if (sEntryID.empty()) return eType;
    if (sEntryID == ids.drafts) return FTIDraft;
    if (sEntryID == ids.inbox) return FTIInbox;
    if (sEntryID == ids.outbox) return FTIOutbox;
    if (sEntryID == ids.sentItems) return FTISent;
    if (sEntryID == ids.deletedItems) return FTITrashcan;
    if (sEntryID == ids.notes) return FTINoteItem;
    return eType;
}

Picture PictureOfType(enuFTIItemType eType) {
    switch (eType) {
        case FTIMailItem:
            return picItemType[3].picture;
        case FTIAppointmentItem:
            return picItemType[0].picture;
        case FTIContactItem:
            return picItemType[1].picture;
        case FTITaskItem:
            return picItemType[5].picture;
        case FTIjournalItem:
            return picItemType[2].picture;
        case FTINoteItem:
            return picItemType[4].picture;
        case FTIPostItem:
        case FTIDistributionList:
            return picFolderClosed;
        case FTITrashcan:
            return picItemType[6].picture;
        case FTIInbox:
            return picItemType[7].picture;
        case FTIOutbox:
            return picItemType[8].picture;
        case FTISent:
            return picItemType[9].picture;
        case FTIDraft:
            return picItemType[11].picture;
        case FTIHome:
            return picItemType[10].picture;
        default:
            return Picture::None;
    }
}

}  // namespace

void ShowIndexColumn(ControlContext& context) {
    context.grid.SetColHidden(colIndex, !context.state.Indexing());
}

void SetupGrid(ControlContext& context) {
    Guarded(context, errorLines::setupGrid, [&] {
        TreeGrid& grid = context.grid;
        grid.SetColCount(gridColumnCount);
        grid.SetFixedColCount(0);
        grid.SetRowCount(1);
        grid.SetFixedRowCount(1);
        ShowIndexColumn(context);
        ToggleCaption(grid, colIndex, "<index>");
        ToggleCaption(grid, colSel, "<sel>");
        ToggleCaption(grid, colName, "<name>");
        grid.SetColDataType(colSel, booleanColumn);
        for (int col = colReserved; col < grid.ColCount(); ++col) grid.SetColHidden(col, true);
        grid.AutoSizeColumns(0, grid.ColCount() - 1);
    });
}

Picture GetIcon(ControlContext& context, enuFTIItemType eType, std::string_view sEntryID) {
    Picture picture = Picture::None;
    Guarded(context, errorLines::getIcon,
            [&] { picture = PictureOfType(DefaultFolderType(context.state.defaultFolders, sEntryID, eType)); });
    return picture;
}

}  // namespace foldertree

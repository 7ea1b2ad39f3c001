// FolderRows: how store rows, folder rows and placeholder rows are written into the grid.
#include "enumeration/FolderRows.h"

#include <limits>

#include "automation/Text.h"
#include "common/GridSetup.h"
#include "selection/Highlighting.h"

namespace foldertree {
namespace {

constexpr uint32_t leftCentred = 1;

void InsertPlaceholder(TreeGrid& grid, int32_t row) {
    const int16_t level = grid.RowOutlineLevel(row);
    if (level == std::numeric_limits<int16_t>::max()) throw automation::VbError(automation::errors::overflow);
    const int32_t placeholder = row + 1 == grid.RowCount() ? AppendRow(grid) : grid.AddRow("", row + 1);
    grid.SetCellText(placeholder, colRowKind, rowKind::dummy);
    grid.SetRowOutlineLevel(placeholder, static_cast<int16_t>(level + 1));
    grid.SetNodeState(placeholder, nodeCollapsed);
    grid.SetNodeState(row, nodeCollapsed);
}

}  // namespace

int32_t AppendRow(TreeGrid& grid) {
    const int32_t row = grid.RowCount();
    grid.SetRowCount(row + 1);
    return row;
}

void SetRowPicture(TreeGrid& grid, int32_t row, Picture picture) {
    grid.SetCellFormat(CellSetting::Picture, row, colName, static_cast<uint32_t>(picture));
    grid.SetCellFormat(CellSetting::PictureAlignment, row, colName, leftCentred);
}

int32_t AppendStoreRow(ControlContext& context, std::string_view kind, std::string_view name) {
    TreeGrid& grid = context.grid;
    const int32_t row = AppendRow(grid);
    const int last = grid.ColCount() - 1;
    grid.SetRowHeight(row, context.state.rowHeight);
    grid.SetCellText(row, colRowKind, kind);
    grid.SetCellText(row, colName, name);
    grid.SetCellText(row, colSel, "");
    grid.SetCellText(row, colIndex, "");
    grid.SetCellFormat(CellSetting::BackColor, row, 0, row, last, colors::buttonFace);
    grid.SetCellFormat(CellSetting::Bold, row, 0, row, last, true);
    grid.SetRowOutlineLevel(row, 0);
    grid.SetIsNode(row, true);
    return row;
}

void SetStorePicture(ControlContext& context, int32_t row, bool isDefaultStore) {
    SetRowPicture(context.grid, row, isDefaultStore ? GetIcon(context, FTIHome, "") : picFolderOpen);
}

void FillFolderRow(ControlContext& context, int32_t row, int16_t level, const FolderCells& cells) {
    TreeGrid& grid = context.grid;
    grid.SetRowHeight(row, context.state.rowHeight);
    grid.SetCellText(row, colRowKind, rowKind::folder);
    grid.SetCellText(row, colName, cells.name);
    grid.SetCellText(row, colSel, cells.sel);
    grid.SetCellText(row, colIndex, cells.index);
    grid.SetCellText(row, colItemType, std::to_string(cells.itemType));
    grid.SetCellText(row, colStoreID, cells.storeID);
    grid.SetCellText(row, colEntryID, cells.entryID);
    grid.SetCellText(row, colEntryIDShort, cells.entryIDShort);
    grid.SetCellText(row, colPath, cells.path);
    grid.SetCellText(row, colKey, cells.key);
    grid.SetRowOutlineLevel(row, level);
    SetRowPicture(grid, row, GetIcon(context, static_cast<enuFTIItemType>(cells.itemType), cells.entryID));
    HighlightNewRow(context, row, cells.itemType);
    grid.SetIsNode(row, true);
}

void MarkUnread(ControlContext& context, int32_t row) {
    context.grid.SetCellText(row, colIncomplete, "-1");
    InsertPlaceholder(context.grid, row);
}

bool IsRowKind(const TreeGrid& grid, int32_t row, std::string_view kind) {
    return automation::EqualNoCase(grid.CellView(row, colRowKind), kind);
}

}  // namespace foldertree

// GridRows: reading the grid, and the two forms of a line.
#include "conformance/GridRows.h"

namespace foldertree::testing {

namespace {

constexpr std::array<const char*, pictureCount> pictureNames{
    "-",     "Calendar", "Contact", "Journal", "Mail",  "Note",         "Task",       "Trash",
    "Inbox", "Outbox",   "Sent",    "Home",    "Draft", "FolderClosed", "FolderOpen", "AdList"};

GridRow RowAt(const TreeGrid& grid, int32_t row) {
    GridRow result;
    result.level = grid.RowOutlineLevel(row);
    for (int col = 0; col < gridColumnCount; ++col) {
        result.cells[static_cast<size_t>(col)] = grid.CellText(row, col);
        result.colors[static_cast<size_t>(col)] = {IsBold(grid, row, col), BackColor(grid, row, col),
                                                   ForeColor(grid, row, col)};
    }
    result.picture = PictureOf(grid, row);
    result.pictureAlignment = grid.CellFormat(CellSetting::PictureAlignment, row, colName);
    result.height = grid.RowHeight(row);
    result.node = grid.IsNode(row);
    result.closed = grid.NodeState(row) == nodeCollapsed;
    return result;
}

std::string ColorsText(const CellColors& look) {
    std::string text;
    if (look.bold) text += " bold";
    if (look.fore != colors::buttonText) text += look.fore == colors::buttonShadow ? " grey" : " other";
    if (look.back == colors::buttonFace) text += " on face";
    if (look.back == colors::ticked) text += " on yellow";
    return text;
}

/// The columns that do not look plain, in runs of equal ones.
std::string ColorsText(const GridRow& row) {
    std::string text;
    for (size_t first = 0; first < row.colors.size();) {
        size_t end = first + 1;
        while (end < row.colors.size() && row.colors[end] == row.colors[first]) ++end;
        if (!(row.colors[first] == CellColors())) {
            text += " (" + std::to_string(first);
            if (end - first > 1) text += "-" + std::to_string(end - 1);
            text += ColorsText(row.colors[first]) + ")";
        }
        first = end;
    }
    return text;
}

std::string TreeLine(const GridRow& row) {
    std::string line(static_cast<size_t>(row.level) * 2, ' ');
    line += row.cells[colName];
    if (row.cells[colRowKind] != "Folder" || row.level == 0) line += " [" + row.cells[colRowKind] + "]";
    if (row.picture != Picture::None) line += std::string(" ") + pictureNames[static_cast<size_t>(row.picture)];
    if (row.pictureAlignment != 1 && row.picture != Picture::None) line += " unaligned";
    if (!row.cells[colIncomplete].empty()) line += " unread=" + row.cells[colIncomplete];
    if (row.closed) line += " closed";
    return line + ColorsText(row);
}

std::string CellLine(const GridRow& row) {
    struct Named {
        const char* name;
        int col;
    };
    constexpr std::array<Named, 10> hidden{{{"sel", colSel},
                                            {"index", colIndex},
                                            {"type", colItemType},
                                            {"store", colStoreID},
                                            {"entry", colEntryID},
                                            {"short", colEntryIDShort},
                                            {"record", colFolderRecID},
                                            {"list", colAddressListID},
                                            {"path", colPath},
                                            {"key", colKey}}};
    std::string line = row.cells[colName] + ":";
    for (const Named& cell : hidden) {
        const std::string& text = row.cells[static_cast<size_t>(cell.col)];
        if (!text.empty()) line += std::string(" ") + cell.name + "='" + text + "'";
    }
    if (!row.cells[colReserved].empty()) line += " reserved='" + row.cells[colReserved] + "'";
    return line;
}

Lines LinesOf(const std::vector<GridRow>& rows, std::string (*line)(const GridRow&)) {
    Lines lines;
    for (const GridRow& row : rows) lines.push_back(line(row));
    return lines;
}

}  // namespace

std::vector<GridRow> RowsOf(const TreeGrid& grid) {
    std::vector<GridRow> rows;
    for (int32_t row = 0; row < grid.RowCount(); ++row) rows.push_back(RowAt(grid, row));
    return rows;
}

Lines TreeLines(const std::vector<GridRow>& rows) {
    return LinesOf(rows, TreeLine);
}

Lines CellLines(const std::vector<GridRow>& rows) {
    return LinesOf(rows, CellLine);
}

Lines WholeLines(const std::vector<GridRow>& rows) {
    return LinesOf(rows, [](const GridRow& row) {
        return TreeLine(row) + (row.node ? " | node " : " | ") + std::to_string(row.height) + " | " + CellLine(row);
    });
}

}  // namespace foldertree::testing

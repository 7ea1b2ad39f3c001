// LiteralGrid: the tree grid as a plain table: rows in a vector, each operation a loop.
#include "reference/LiteralGrid.h"

#include "automation/Error.h"
#include "reference/LiteralText.h"

namespace foldertree::reference {
namespace {

[[noreturn]] void ThrowSubscript() {
    throw automation::VbError(automation::errors::subscript);
}

}  // namespace

LiteralRow& LiteralGrid::At(int32_t row) {
    if (row < 0 || row >= RowCount()) ThrowSubscript();
    return rows[static_cast<size_t>(row)];
}

const LiteralRow& LiteralGrid::At(int32_t row) const {
    if (row < 0 || row >= RowCount()) ThrowSubscript();
    return rows[static_cast<size_t>(row)];
}

void LiteralGrid::SetRowCount(int32_t count) {
    while (RowCount() > count) RemoveRow(RowCount() - 1);
    while (RowCount() < count) rows.emplace_back();
}

int32_t LiteralGrid::AddRow(std::optional<int32_t> before) {
    const int32_t row = before.value_or(RowCount());
    if (row < 1 || row > RowCount()) ThrowSubscript();
    rows.insert(rows.begin() + row, LiteralRow());
    const bool appended = row == RowCount() - 1;
    if (!appended && currentRow >= row) ++currentRow;
    if (headingRow >= row) ++headingRow;
    return row;
}

void LiteralGrid::RemoveRow(int32_t row) {
    if (row < 1 || row >= RowCount()) ThrowSubscript();
    rows.erase(rows.begin() + row);
    if (headingRow == row)
        headingRow = 0;
    else if (headingRow > row)
        --headingRow;
    if (currentRow > row) {
        --currentRow;
    } else if (currentRow == row) {
        // To the row above, but not to the header while there are others.
        currentRow = row == 1 ? 1 : row - 1;
        if (currentRow >= RowCount()) currentRow = 0;
    }
}

double LiteralGrid::CellValue(int32_t row, int col) const {
    return NumberAtStart(CellText(row, col));
}

int32_t LiteralGrid::FindRow(const std::string& text, int col) const {
    for (int32_t row = 0; row < RowCount(); ++row)
        if (SameText(CellText(row, col), text)) return row;
    return -1;
}

void LiteralGrid::SetBold(int32_t row, int firstCol, int lastCol, bool bold) {
    for (int col = firstCol; col <= lastCol; ++col) At(row).cells[static_cast<size_t>(col)].bold = bold;
}

void LiteralGrid::SetBackColor(int32_t row, int firstCol, int lastCol, OleColor color) {
    for (int col = firstCol; col <= lastCol; ++col) At(row).cells[static_cast<size_t>(col)].backColor = color;
}

void LiteralGrid::SetForeColor(int32_t row, int firstCol, int lastCol, OleColor color) {
    for (int col = firstCol; col <= lastCol; ++col) At(row).cells[static_cast<size_t>(col)].foreColor = color;
}

void LiteralGrid::SetPicture(int32_t row, Picture picture) {
    LiteralCell& cell = At(row).cells[colName];
    cell.picture = picture;
    cell.pictureAlignment = 1;
}

OleColor LiteralGrid::BackColor(int32_t row, int col) const {
    return At(row).cells[static_cast<size_t>(col)].backColor.value_or(colors::window);
}

std::vector<int32_t> LiteralGrid::VisibleRows() const {
    std::vector<int32_t> visible;
    for (int32_t row = 1; row < RowCount(); ++row) {
        visible.push_back(row);
        if (!At(row).isNode || NodeState(row) != 2) continue;
        // What lies deeper below a collapsed node is hidden.
        const int16_t level = RowOutlineLevel(row);
        while (row + 1 < RowCount() && RowOutlineLevel(row + 1) > level) ++row;
    }
    return visible;
}

}  // namespace foldertree::reference

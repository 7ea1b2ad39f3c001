// PlainGrid: every operation as its plainest loop.
#include "PlainGrid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "automation/Text.h"

namespace foldertree::testing {

using namespace sample;
void PlainGrid::SetRowCount(int32_t count) {
    rows.resize(static_cast<size_t>(std::min(count, Count())));
    while (Count() < count) rows.emplace_back().id = ++lastId;
    if (currentRow >= count) currentRow = count > fixedRows ? count - 1 : 0;
}

void PlainGrid::InsertRow(int32_t before, std::string_view text) {
    rows.insert(rows.begin() + before, PlainRow{});
    Row(before).id = ++lastId;
    Row(before).cells[colSel] = text;
    if (currentRow >= before) ++currentRow;
}

void PlainGrid::RemoveRow(int32_t row) {
    rows.erase(rows.begin() + row);
    if (currentRow < row) return;
    --currentRow;
    if (currentRow < row - 1 || currentRow >= row) return;
    // The cursor was on the removed row: it stands on the row above now, unless that is the header.
    if (currentRow < fixedRows) currentRow = Count() > fixedRows ? fixedRows : 0;
}

void PlainGrid::SetFormat(CellSetting setting, int32_t row1, int col1, int32_t row2, int col2, uint32_t value) {
    for (int32_t row = row1; row <= row2; ++row) {
        for (int col = col1; col <= col2; ++col) {
            CellLook& look = Row(row).looks[static_cast<size_t>(col)];
            if (setting == CellSetting::Picture) look.picture = static_cast<PictureNumber>(value);
            if (setting == CellSetting::PictureAlignment) look.pictureAlignment = static_cast<uint8_t>(value);
            if (setting == CellSetting::BackColor) look.backColor = value;
            if (setting == CellSetting::ForeColor) look.foreColor = value;
            if (setting == CellSetting::Bold) look.bold = value != 0;
        }
    }
}

std::optional<int32_t> PlainGrid::RowWithId(int64_t id) const {
    for (int32_t row = 0; row < Count(); ++row)
        if (Row(row).id == id) return row;
    return std::nullopt;
}

int32_t PlainGrid::FindRow(std::string_view text, int32_t start, int col) const {
    for (int32_t row = start; row < Count(); ++row)
        if (automation::EqualNoCase(Row(row).cells[static_cast<size_t>(col)], text)) return row;
    return -1;
}

// A row is hidden when a closed node above it has only deeper rows between itself and the row.
bool PlainGrid::IsHidden(int32_t row) const {
    if (row < fixedRows) return false;
    int16_t least = Row(row).level;  // of the rows between the node and the row
    for (int32_t node = row - 1; node >= fixedRows; --node) {
        const PlainRow& above = Row(node);
        if (above.isNode && above.nodeState == nodeCollapsed && above.level < least) return true;
        least = std::min(least, above.level);
    }
    return false;
}

bool PlainGrid::HasChildren(int32_t row) const {
    return row + 1 < Count() && Row(row + 1).level > Row(row).level;
}

std::vector<int32_t> PlainGrid::VisibleRows() const {
    std::vector<int32_t> visible;
    for (int32_t row = fixedRows; row < Count(); ++row)
        if (!IsHidden(row)) visible.push_back(row);
    return visible;
}

int32_t PlainGrid::VisibleAncestor(int32_t row) const {
    while (IsHidden(row)) --row;
    return row;
}

void CompareRow(const TreeGrid& grid, const PlainGrid& plain, int32_t row) {
    const PlainRow& expected = plain.Row(row);
    for (int col = 0; col < grid.ColCount(); ++col) {
        ASSERT_EQ(grid.CellText(row, col), expected.cells[static_cast<size_t>(col)]) << "row " << row;
        ASSERT_EQ(grid.Look(row, col), expected.looks[static_cast<size_t>(col)]) << "row " << row;
        if (col == grid.Schema().key) continue;
        ASSERT_EQ(grid.CellView(row, col), expected.cells[static_cast<size_t>(col)]) << "row " << row;
    }
    ASSERT_EQ(grid.RowOutlineLevel(row), expected.level);
    ASSERT_EQ(grid.IsNode(row), expected.isNode);
    ASSERT_EQ(grid.NodeState(row), expected.nodeState);
    ASSERT_EQ(grid.RowHeight(row), expected.height);
}

void CompareGrids(const TreeGrid& grid, const PlainGrid& plain) {
    ASSERT_EQ(grid.RowCount(), plain.Count());
    ASSERT_EQ(grid.CurrentRow(), plain.currentRow);
    const int key = grid.Schema().key;
    for (int32_t row = 0; row < plain.Count(); ++row) {
        ASSERT_NO_FATAL_FAILURE(CompareRow(grid, plain, row));
        ASSERT_EQ(grid.RowOf(grid.HandleOf(row)), row);
        const std::string& text = plain.Row(row).cells[static_cast<size_t>(key)];
        ASSERT_EQ(grid.FindRow(text), plain.FindRow(text, 0, key)) << "row " << row;
    }
    const std::vector<int32_t> visible = plain.VisibleRows();
    ASSERT_EQ(grid.VisibleCount(), static_cast<int32_t>(visible.size()));
    for (size_t position = 0; position < visible.size(); ++position)
        ASSERT_EQ(grid.VisibleRow(static_cast<int32_t>(position)), visible[position]);
}

}  // namespace foldertree::testing

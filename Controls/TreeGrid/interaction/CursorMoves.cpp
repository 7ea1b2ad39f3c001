// CursorMoves: where the cursor is seen, and where it goes.
#include "interaction/CursorMoves.h"

#include <algorithm>

namespace foldertree {

int32_t CursorRow(const TreeGrid& grid) {
    const int32_t row = grid.CurrentRow();
    if (row < grid.FixedRowCount() || row >= grid.RowCount()) return 0;
    return grid.VisibleAncestor(row);
}

int32_t RowFromCursor(const TreeGrid& grid, int64_t rows) {
    const int32_t count = grid.VisibleCount();
    if (count == 0) return 0;
    const int32_t row = CursorRow(grid);
    int64_t target = 0;
    if (row != 0)
        target = grid.VisiblePosition(row).value_or(0) + rows;
    else if (rows >= count)
        target = count;
    return grid.VisibleRow(static_cast<int32_t>(std::clamp<int64_t>(target, 0, count - 1)));
}

int32_t ParentRow(const TreeGrid& grid, int32_t row) {
    const int16_t level = grid.RowOutlineLevel(row);
    int32_t parent = row - 1;
    while (parent >= grid.FixedRowCount() && grid.RowOutlineLevel(parent) >= level) --parent;
    return parent >= grid.FixedRowCount() ? parent : 0;
}

bool HasSign(const TreeGrid& grid, int32_t row) {
    return grid.IsNode(row) && grid.HasChildren(row);
}

}  // namespace foldertree

// RowActs: the acts on one row that ask before, and look at the row again after.
#include "interaction/RowActs.h"

namespace foldertree {

bool TakesGesture(const TreeGrid& grid, int32_t row) {
    return grid.Enabled() && row >= grid.FixedRowCount() && row < grid.RowCount();
}

// A notification may load, refresh or empty the tree, so the row is looked at again after it.
bool MayEdit(TreeGrid& grid, GridEvents& events, int32_t row, int col) {
    if (!TakesGesture(grid, row)) return false;
    bool cancel = false;
    events.fgd_BeforeEdit(row, col, cancel);
    return !cancel && TakesGesture(grid, row);
}

void FlipTick(TreeGrid& grid, int32_t row) {
    grid.SetCellText(row, colSel, grid.CellValue(row, colSel) != 0 ? "0" : "-1");
}

int32_t OtherNodeState(const TreeGrid& grid, int32_t row) {
    return grid.NodeState(row) == nodeCollapsed ? nodeExpanded : nodeCollapsed;
}

bool TurnNode(TreeGrid& grid, GridEvents& events, int32_t row, int32_t state) {
    const bool wasNode = grid.IsNode(row);
    bool cancel = false;
    events.fgd_BeforeCollapse(row, static_cast<int16_t>(state), cancel);
    if (cancel || row >= grid.RowCount() || grid.IsNode(row) != wasNode) return false;
    grid.SetNodeState(row, state);
    return true;
}

}  // namespace foldertree

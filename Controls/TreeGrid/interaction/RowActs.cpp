// RowActs: the acts on one row that ask before, and look at the row again after.
#include "interaction/RowActs.h"

#include "interaction/CursorMoves.h"

namespace foldertree {
namespace {

bool MayTurn(const TreeGrid& grid, int32_t row, int32_t state, const NodeIsRead& isRead) {
    if (!HasSign(grid, row) || grid.NodeState(row) == state) return false;
    return state != nodeExpanded || !isRead || isRead(grid, row);
}

}  // namespace

bool TakesGesture(const TreeGrid& grid, int32_t row) {
    return grid.Enabled() && row >= grid.FixedRowCount() && row < grid.RowCount();
}

// A notification may load, refresh or empty the tree, so the row is looked for again after it.
std::optional<int32_t> AskToEdit(TreeGrid& grid, GridEvents& events, int32_t row, int col) {
    if (col == GridSchema::none || !TakesGesture(grid, row)) return std::nullopt;
    const RowHandle handle = grid.HandleOf(row);
    bool cancel = false;
    events.fgd_BeforeEdit(row, col, cancel);
    return cancel || !grid.Enabled() ? std::nullopt : grid.RowOf(handle);
}

void FlipTick(TreeGrid& grid, int32_t row) {
    const int box = grid.Schema().box;
    grid.SetCellText(row, box, grid.CellValue(row, box) != 0 ? "0" : "-1");
}

int32_t OtherNodeState(const TreeGrid& grid, int32_t row) {
    return grid.NodeState(row) == nodeCollapsed ? nodeExpanded : nodeCollapsed;
}

bool TurnNode(TreeGrid& grid, GridEvents& events, int32_t row, int32_t state) {
    const RowHandle handle = grid.HandleOf(row);
    const bool wasNode = grid.IsNode(row);
    bool cancel = false;
    events.fgd_BeforeCollapse(row, static_cast<int16_t>(state), cancel);
    const std::optional<int32_t> now = grid.RowOf(handle);
    if (cancel || !now || grid.IsNode(*now) != wasNode) return false;
    grid.SetNodeState(*now, state);
    return true;
}

void TurnBranch(TreeGrid& grid, GridEvents& events, int32_t row, int32_t state, const NodeIsRead& isRead) {
    const int16_t level = grid.RowOutlineLevel(row);
    do {
        if (MayTurn(grid, row, state, isRead)) {
            const RowHandle handle = grid.HandleOf(row);
            TurnNode(grid, events, row, state);
            const std::optional<int32_t> now = grid.RowOf(handle);
            if (!now || !grid.Enabled()) return;
            row = *now;
        }
        ++row;
    } while (row < grid.RowCount() && grid.RowOutlineLevel(row) > level);
}

}  // namespace foldertree

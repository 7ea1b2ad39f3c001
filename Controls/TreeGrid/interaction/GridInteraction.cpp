// GridInteraction: gestures, notifications and writes, in their order.
#include "interaction/GridInteraction.h"

#include <string>

namespace foldertree {

// A notification may load, refresh or empty the tree, so the row is looked at again after each.
bool GridInteraction::TakesGesture(int32_t row) const {
    return grid_.Enabled() && row >= grid_.FixedRowCount() && row < grid_.RowCount();
}

bool GridInteraction::MayEdit(int32_t row, int32_t col) {
    if (!TakesGesture(row)) return false;
    bool cancel = false;
    events_.fgd_BeforeEdit(row, col, cancel);
    return !cancel && TakesGesture(row);
}

bool GridInteraction::ToggleTick(int32_t row) {
    if (!MayEdit(row, colSel)) return false;
    const bool ticked = grid_.CellValue(row, colSel) != 0;
    grid_.SetCellText(row, colSel, ticked ? "0" : "-1");
    events_.fgd_AfterEdit(row, colSel);
    return true;
}

bool GridInteraction::MayEditIndex(int32_t row) {
    return MayEdit(row, colIndex);
}

bool GridInteraction::CommitIndex(int32_t row, std::string_view text) {
    if (!TakesGesture(row)) return false;
    const std::string typed(text);
    grid_.SetEditText(typed);
    bool cancel = false;
    events_.fgd_ValidateEdit(row, colIndex, cancel);
    grid_.SetEditText({});
    if (cancel || !TakesGesture(row)) return false;
    grid_.SetCellText(row, colIndex, typed);
    events_.fgd_AfterEdit(row, colIndex);
    return true;
}

void GridInteraction::SetNode(int32_t row, bool open) {
    if (!TakesGesture(row) || !grid_.IsNode(row) || !grid_.HasChildren(row)) return;
    const int32_t state = open ? nodeExpanded : nodeCollapsed;
    if (grid_.NodeState(row) == state) return;
    bool cancel = false;
    events_.fgd_BeforeCollapse(row, static_cast<int16_t>(state), cancel);
    if (cancel || row >= grid_.RowCount() || !grid_.IsNode(row)) return;
    grid_.SetNodeState(row, state);
    grid_.DeliverChanges();
}

void GridInteraction::ToggleNode(int32_t row) {
    if (!TakesGesture(row)) return;
    SetNode(row, grid_.NodeState(row) == nodeCollapsed);
}

void GridInteraction::DoubleClick(int32_t row) {
    if (!TakesGesture(row)) return;
    grid_.SetCurrentRow(row);
    events_.fgd_DblClick();
}

}  // namespace foldertree

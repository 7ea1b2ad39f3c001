// GridInteraction: what a user's gestures mean for the grid: ticks, the cursor, opening and closing nodes.
#include "interaction/GridInteraction.h"

#include <limits>
#include <optional>
#include <string>

#include "interaction/CursorMoves.h"
#include "interaction/RowActs.h"

namespace foldertree {

// ---- Pointer and keyboard

void GridInteraction::Press(int32_t row, GridPart part, bool second) {
    if (!TakesGesture(grid_, row)) return;
    grid_.SetCurrentRow(row);
    // The second press of a double click is on the box one more tick, and on the sign one more turn.
    if (part == GridPart::Box && Box(row) != BoxKind::None)
        ToggleTick(row);
    else if (part == GridPart::Glyph && HasSign(grid_, row))
        Turn(row, grid_.NodeState(row) != nodeExpanded);
    else if (second)
        DoubleClick(row);
    else if (part == GridPart::Index)
        number_.Open(row);
}

void GridInteraction::Press(GridKey key, bool repeated) {
    if (!grid_.Enabled()) return;
    switch (key) {
        case GridKey::Up:
            return MoveCursorTo(RowFromCursor(grid_, -1));
        case GridKey::Down:
            return MoveCursorTo(RowFromCursor(grid_, 1));
        case GridKey::PageUp:
            return MoveCursorTo(RowFromCursor(grid_, -view_.PageRows()));
        case GridKey::PageDown:
            return MoveCursorTo(RowFromCursor(grid_, view_.PageRows()));
        case GridKey::Home:
            return MoveCursorTo(RowFromCursor(grid_, std::numeric_limits<int32_t>::min()));
        case GridKey::End:
            return MoveCursorTo(RowFromCursor(grid_, std::numeric_limits<int32_t>::max()));
        default:
            break;
    }
    const int32_t row = CursorRow(grid_);
    if (row == 0) return;
    if (key == GridKey::Right) OpenOrStepIn(row);
    if (key == GridKey::Left) CloseOrStepOut(row);
    if (key == GridKey::Tick && !repeated && Box(row) != BoxKind::None) ToggleTick(row);
    if (key == GridKey::Edit) number_.Open(row);
}

void GridInteraction::Type(char32_t character) {
    const int32_t row = CursorRow(grid_);
    if (!grid_.Enabled() || row == 0) return;
    if (character == U'+') Turn(row, true);
    if (character == U'-') Turn(row, false);
    if (character < U'0' || character > U'9') return;
    number_.Open(row);
    if (NumberBox* box = view_.OpenedNumberBox()) box->Type(std::string(1, static_cast<char>(character)));
}

void GridInteraction::MoveCursorTo(int32_t row) {
    if (row == 0) return;
    grid_.SetCurrentRow(row);
    view_.BringIntoView(row);
}

// A cursor that the closed node hides goes to the node.
void GridInteraction::Turn(int32_t row, bool open) {
    SetNode(row, open);
    if (const int32_t cursor = CursorRow(grid_); cursor != 0) grid_.SetCurrentRow(cursor);
}

void GridInteraction::OpenOrStepIn(int32_t row) {
    if (!HasSign(grid_, row)) return;
    if (grid_.NodeState(row) != nodeExpanded) return Turn(row, true);
    MoveCursorTo(row + 1);
}

void GridInteraction::CloseOrStepOut(int32_t row) {
    if (HasSign(grid_, row) && grid_.NodeState(row) == nodeExpanded) return Turn(row, false);
    MoveCursorTo(ParentRow(grid_, row));
}

// ---- Acts on one row

bool GridInteraction::ToggleTick(int32_t row) {
    const int box = grid_.Schema().box;
    const std::optional<int32_t> asked = AskToEdit(grid_, events_, row, box);
    if (!asked) return false;
    FlipTick(grid_, *asked);
    events_.fgd_AfterEdit(*asked, box);
    return true;
}

void GridInteraction::SetNode(int32_t row, bool open) {
    if (!TakesGesture(grid_, row) || !HasSign(grid_, row)) return;
    const int32_t state = open ? nodeExpanded : nodeCollapsed;
    if (grid_.NodeState(row) != state) TurnNode(grid_, events_, row, state);
    grid_.DeliverChanges();
}

void GridInteraction::ToggleNode(int32_t row) {
    if (!TakesGesture(grid_, row)) return;
    SetNode(row, grid_.NodeState(row) == nodeCollapsed);
}

void GridInteraction::DoubleClick(int32_t row) {
    if (!TakesGesture(grid_, row)) return;
    grid_.SetCurrentRow(row);
    events_.fgd_DblClick();
}

}  // namespace foldertree

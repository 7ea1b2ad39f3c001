// GridInteraction: what a user's gestures mean for the grid: ticks, the cursor, opening and closing nodes.
#include "interaction/GridInteraction.h"

#include <limits>
#include <optional>
#include <string>

#include "interaction/CursorMoves.h"
#include "interaction/RowActs.h"
#include "interaction/RowPath.h"

namespace foldertree {
namespace {

/// Keys that write nothing send characters as well.
bool IsPrintable(char32_t character) {
    return character >= U' ' && (character < 0x7F || character > 0x9F);
}

std::optional<GridScroll> ScrollOf(GridKey key) {
    constexpr std::pair<GridKey, GridScroll> scrolls[] = {
        {GridKey::ScrollUp, GridScroll::Up},         {GridKey::ScrollDown, GridScroll::Down},
        {GridKey::ScrollPageUp, GridScroll::PageUp}, {GridKey::ScrollPageDown, GridScroll::PageDown},
        {GridKey::ScrollTop, GridScroll::Top},       {GridKey::ScrollBottom, GridScroll::Bottom},
        {GridKey::ScrollLeft, GridScroll::Left},     {GridKey::ScrollRight, GridScroll::Right}};
    for (const auto& [scrollKey, scroll] : scrolls)
        if (scrollKey == key) return scroll;
    return std::nullopt;
}

}  // namespace

// ---- Pointer and keyboard

void GridInteraction::Press(int32_t row, GridPart part, bool second) {
    if (!TakesGesture(grid_, row)) return;
    typeAhead_.End();
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
    if (key == GridKey::Tick && typeAhead_.Started()) return;
    typeAhead_.End();
    if (const auto rows = RowsToMove(key)) return MoveCursorTo(RowFromCursor(grid_, *rows));
    if (const auto scroll = ScrollOf(key)) return view_.Scroll(*scroll);
    const int32_t row = CursorRow(grid_);
    if (row == 0) return;
    switch (key) {
        case GridKey::Right:
            return OpenOrStepIn(row);
        case GridKey::Left:
            return CloseOrStepOut(row);
        case GridKey::Parent:
            return MoveCursorTo(ParentRow(grid_, row));
        case GridKey::Tick:
            if (!repeated && Box(row) != BoxKind::None) ToggleTick(row);
            return;
        case GridKey::Edit:
            return number_.Open(row);
        case GridKey::CopyName:
            return view_.Copy(RowName(grid_, row));
        case GridKey::CopyPath:
            return view_.Copy(RowPath(grid_, row));
        default:
            return;
    }
}

std::optional<int64_t> GridInteraction::RowsToMove(GridKey key) const {
    switch (key) {
        case GridKey::Up:
            return -1;
        case GridKey::Down:
            return 1;
        case GridKey::PageUp:
            return -view_.PageRows();
        case GridKey::PageDown:
            return view_.PageRows();
        case GridKey::Home:
            return std::numeric_limits<int32_t>::min();
        case GridKey::End:
            return std::numeric_limits<int32_t>::max();
        default:
            return std::nullopt;
    }
}

void GridInteraction::Type(char32_t character) {
    if (!grid_.Enabled() || !IsPrintable(character) || TypeSign(character)) return;
    const bool inWord = typeAhead_.Started();
    // A blank that begins no word was the key that ticks.
    if (!inWord && (character == U' ' || TypeNumber(character))) return;
    if (grid_.Enabled()) MoveCursorTo(typeAhead_.Add(grid_, character));
}

bool GridInteraction::TypeSign(char32_t character) {
    if (character != U'+' && character != U'-' && character != U'*' && character != U'/') return false;
    typeAhead_.End();
    const int32_t row = CursorRow(grid_);
    if (row == 0) return true;
    if (character == U'+') Turn(row, true);
    if (character == U'-') Turn(row, false);
    if (character == U'*') TurnBranch(row, true);
    if (character == U'/') TurnBranch(row, false);
    return true;
}

bool GridInteraction::TypeNumber(char32_t character) {
    const int32_t row = CursorRow(grid_);
    if (row == 0 || character < U'0' || character > U'9') return false;
    number_.Open(row);
    NumberBox* box = view_.OpenedNumberBox();
    if (box != nullptr) box->Type(std::string(1, static_cast<char>(character)));
    return box != nullptr;
}

void GridInteraction::MoveCursorTo(int32_t row) {
    if (row == 0) return;
    grid_.SetCurrentRow(row);
    view_.BringIntoView(row);
}

// A cursor that a closed node hides goes to the node.
void GridInteraction::KeepCursorShown() {
    if (const int32_t cursor = CursorRow(grid_); cursor != 0) grid_.SetCurrentRow(cursor);
}

void GridInteraction::Turn(int32_t row, bool open) {
    SetNode(row, open);
    KeepCursorShown();
}

void GridInteraction::TurnBranch(int32_t row, bool open) {
    foldertree::TurnBranch(grid_, events_, row, open ? nodeExpanded : nodeCollapsed, isRead_);
    grid_.DeliverChanges();
    KeepCursorShown();
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

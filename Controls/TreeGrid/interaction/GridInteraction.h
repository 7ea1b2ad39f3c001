// GridInteraction: what a user's gestures mean for the grid: ticks, the cursor, opening and closing nodes.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "interaction/GridEvents.h"
#include "interaction/GridView.h"
#include "interaction/NumberEditing.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// The keys that mean something to a grid.
enum class GridKey { Up, Down, PageUp, PageDown, Home, End, Left, Right, Tick, Edit };

/// Turns gestures into notifications, writes and moves of the cursor, with the exact cancel rules; a window only finds
/// out which gesture it was and on which row. It must not outlive what it is given. A disabled grid takes no gesture.
class GridInteraction {
  public:
    GridInteraction(TreeGrid& grid, GridEvents& events, GridView& view = NoGridView(), RowHasBox hasBox = nullptr)
        : grid_(grid), events_(events), view_(view), hasBox_(std::move(hasBox)), number_(grid, events, view) {}

    // Pointer and keyboard
    /// The main button went down on that part of a row; `second` is the second press of a double click.
    void Press(int32_t row, GridPart part, bool second);
    /// `repeated` is a key that is held down.
    void Press(GridKey key, bool repeated);
    void Type(char32_t character);

    // Acts on one row
    /// Before-edit, the tick is written ("-1" or "0"), after-edit. False when refused.
    bool ToggleTick(int32_t row);
    /// Opens or closes a node: before-collapse, then the node state. A row with nothing below it does nothing.
    void SetNode(int32_t row, bool open);
    void ToggleNode(int32_t row);
    /// A double click outside the box.
    void DoubleClick(int32_t row);

    /// The number that is being typed.
    NumberEditing& Number() { return number_; }
    bool MayEditIndex(int32_t row) { return number_.MayOpen(row); }
    bool CommitIndex(int32_t row, std::string_view text) { return number_.Commit(row, text); }

    BoxKind Box(int32_t row) const { return BoxOf(grid_, hasBox_, row); }

  private:
    void MoveCursorTo(int32_t row);
    void Turn(int32_t row, bool open);
    void OpenOrStepIn(int32_t row);
    void CloseOrStepOut(int32_t row);

    TreeGrid& grid_;
    GridEvents& events_;
    GridView& view_;
    RowHasBox hasBox_;
    NumberEditing number_;
};

}  // namespace foldertree

// GridInteraction: what a user's gestures mean for the grid: ticks, the cursor, opening and closing nodes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "interaction/GridEvents.h"
#include "interaction/GridView.h"
#include "interaction/NumberEditing.h"
#include "interaction/TypeAhead.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// The keys that mean something to a grid.
enum class GridKey {
    // move the cursor
    Up,
    Down,
    PageUp,
    PageDown,
    Home,
    End,
    Left,
    Right,
    Parent,
    // leave it where it is
    ScrollUp,
    ScrollDown,
    ScrollPageUp,
    ScrollPageDown,
    ScrollTop,
    ScrollBottom,
    ScrollLeft,
    ScrollRight,
    Tick,
    Edit,
    CopyName,
    CopyPath
};

/// Turns gestures into notifications, writes and moves of the cursor, with the exact cancel rules; a window only finds
/// out which gesture it was and on which row. It must not outlive what it is given. A disabled grid takes no gesture.
class GridInteraction {
  public:
    GridInteraction(TreeGrid& grid, GridEvents& events, GridView& view = NoGridView(), RowHasBox hasBox = nullptr,
                    NodeIsRead isRead = nullptr, TypeAhead::Now now = TypeAhead::Clock::now)
        : grid_(grid),
          events_(events),
          view_(view),
          hasBox_(std::move(hasBox)),
          isRead_(std::move(isRead)),
          number_(grid, events, view),
          typeAhead_(std::move(now)) {}

    // Pointer and keyboard
    /// The main button went down on that part of a row; `second` is the second press of a double click. Of any other
    /// button the part is GridPart::Row: it moves the cursor and does nothing else.
    void Press(int32_t row, GridPart part, bool second);
    /// `repeated` is a key that is held down. A Tick inside a word that is being typed waits for its character.
    void Press(GridKey key, bool repeated);
    /// What has no meaning of its own, and everything but a sign once a word is begun, is the beginning of a name.
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
    std::optional<int64_t> RowsToMove(GridKey key) const;
    bool TypeSign(char32_t character);
    bool TypeNumber(char32_t character);
    void MoveCursorTo(int32_t row);
    void KeepCursorShown();
    void Turn(int32_t row, bool open);
    void TurnBranch(int32_t row, bool open);
    void OpenOrStepIn(int32_t row);
    void CloseOrStepOut(int32_t row);

    TreeGrid& grid_;
    GridEvents& events_;
    GridView& view_;
    RowHasBox hasBox_;
    NodeIsRead isRead_;
    NumberEditing number_;
    TypeAhead typeAhead_;
};

}  // namespace foldertree

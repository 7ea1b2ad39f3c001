// GridInteraction: what a user's gestures mean for the grid: ticks, typed numbers, opening and closing nodes.
#pragma once

#include <cstdint>
#include <string_view>

#include "rows/TreeGrid.h"

namespace foldertree {

/// The five notifications of the grid. `cancel` set to true refuses what the user is about to do.
class GridEvents {
  public:
    virtual ~GridEvents() = default;
    virtual void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) = 0;
    virtual void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel) = 0;
    virtual void fgd_AfterEdit(int32_t row, int32_t col) = 0;
    virtual void fgd_BeforeCollapse(int32_t row, int16_t state, bool& cancel) = 0;
    virtual void fgd_DblClick() = 0;
};

/// Turns gestures into notifications and writes, with the exact cancel rules; a window only finds out which gesture it
/// was and on which row. It must not outlive the grid and the events. A disabled grid takes no gesture.
class GridInteraction {
  public:
    GridInteraction(TreeGrid& grid, GridEvents& events) : grid_(grid), events_(events) {}

    /// A click on the box or the Space key: before-edit, the tick is written ("-1" or "0"), after-edit. False when
    /// refused.
    bool ToggleTick(int32_t row);
    /// Whether the number editor may open on the row's colIndex cell (before-edit).
    bool MayEditIndex(int32_t row);
    /// The editor's text is offered: validate-edit; when accepted it is written, then after-edit. False when refused.
    bool CommitIndex(int32_t row, std::string_view text);
    /// Opens or closes a node: before-collapse, then the node state. A row with nothing below it does nothing.
    void SetNode(int32_t row, bool open);
    void ToggleNode(int32_t row);
    /// A double click outside the box.
    void DoubleClick(int32_t row);

  private:
    bool TakesGesture(int32_t row) const;
    bool MayEdit(int32_t row, int32_t col);

    TreeGrid& grid_;
    GridEvents& events_;
};

}  // namespace foldertree

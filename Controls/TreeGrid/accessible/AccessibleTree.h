// AccessibleTree: the grid as assistive programs see it, as data.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "accessible/AccessibleHost.h"
#include "accessible/ChildIds.h"
#include "accessible/SiblingSets.h"
#include "interaction/GridView.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// What is true of the grid or of a row at the moment.
struct AccessibleState {
    bool focusable = true;
    bool focused = false;
    bool selectable = false;
    bool selected = false;
    bool checked = false;
    bool expanded = false;
    bool collapsed = false;
    bool offscreen = false;    ///< shown by the outline, but scrolled out of view
    bool invisible = false;    ///< inside a closed node
    bool unavailable = false;  ///< the control is disabled
    bool operator==(const AccessibleState&) const = default;
};

/// Ways from a row to another one.
enum class AccessibleStep { Next, Previous, Parent, FirstChild };

/// What a row does when it is told to, without saying what.
enum class AccessibleAction { None, Check, Uncheck, Expand, Collapse };
std::string_view TextOf(AccessibleAction action);  ///< UTF-8; empty for none

/// The tree is flat: the grid, and below it a child for each row that is not inside a closed node, in their order. A
/// child has a number that stays with its row and never means another one; all else is asked of the rows when it is
/// wanted, so a grid that nobody looks at costs nothing here. Texts are UTF-8, and whole. Questions change nothing and
/// tell nobody but the grid's observers; those that ask for memory throw std::bad_alloc.
class AccessibleTree final : private TreeGridObserver {
  public:
    /// All of them outlive the tree. `hasBox` as in GridInteraction.
    AccessibleTree(TreeGrid& grid, const RowHasBox& hasBox, const AccessibleView& view, const AccessibleHost& host);
    ~AccessibleTree() override;
    AccessibleTree(const AccessibleTree&) = delete;
    AccessibleTree& operator=(const AccessibleTree&) = delete;

    // The grid
    std::string Name() const;         ///< may run other code (AccessibleHost::DisplayName)
    std::string Description() const;  ///< the captions of the shown columns
    AccessibleState State() const;
    /// Whether a user could do anything here.
    bool Available() const { return grid_.Enabled() && host_.Enabled(); }

    // The children, by their position from 0 on and by their rows. A row is one of the grid's, not a fixed one.
    int32_t ChildCount() const { return grid_.VisibleCount(); }
    /// The row of a child; 0 beyond the last.
    int32_t RowAt(int32_t position) const;
    std::optional<int32_t> PositionOf(int32_t row) const { return grid_.VisiblePosition(row); }
    int32_t IdOf(int32_t row);
    /// Where the child's row stands now; 0 for a number that was not given out or whose row has gone.
    int32_t RowOf(int32_t id);
    /// The cursor's row, which has the focus and is the selection; 0 when there is none.
    int32_t CursorRow() const;

    // One row
    std::string RowName(int32_t row) const;
    std::string RowValue(int32_t row) const;        ///< the outline level
    std::string RowDescription(int32_t row) const;  ///< "No. 3 of 12"
    AccessibleState RowState(int32_t row) const;
    AccessibleAction RowAction(int32_t row) const;
    /// The row that the step leads to; 0 for none. From a row that is not shown no step leads anywhere.
    int32_t StepFrom(int32_t row, AccessibleStep step);
    int32_t PositionInSet(int32_t row);  ///< from 1 on
    int32_t SizeOfSet(int32_t row);

    size_t MemoryUse() const { return ids_.MemoryUse() + siblings_.MemoryUse(); }

  private:
    void GridChanged(const GridChanges& changes) noexcept override;
    void ForgetGoneRows() noexcept;
    std::string Caption(int col) const;
    bool IsTicked(int32_t row) const;
    bool IsShown(int32_t row) const { return grid_.VisiblePosition(row).has_value(); }
    int32_t Neighbour(int32_t row, int32_t distance) const;

    TreeGrid& grid_;
    const RowHasBox& hasBox_;
    const AccessibleView& view_;
    const AccessibleHost& host_;
    ChildIds ids_;
    size_t forgetAt_;  ///< so many rows with a number are looked through for those that have gone
    SiblingSets siblings_{grid_};
};

}  // namespace foldertree

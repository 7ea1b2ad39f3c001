// RowActs: the acts on one row that ask before, and look at the row again after.
#pragma once

#include <cstdint>
#include <optional>

#include "interaction/GridEvents.h"
#include "interaction/GridView.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// Whether the row is one that a user can act on now. A disabled grid takes no gesture.
bool TakesGesture(const TreeGrid& grid, int32_t row);

/// Asks with before-edit whether the cell may be edited. Where the row stands after the question; nothing when it was
/// refused, when there is no such column, or when the row takes no gesture, before or after.
std::optional<int32_t> AskToEdit(TreeGrid& grid, GridEvents& events, int32_t row, int col);

/// Writes the other tick into the row's box: "0" over a tick, "-1" over none. Asks and tells nobody.
void FlipTick(TreeGrid& grid, int32_t row);

/// The state that the row's node does not have.
int32_t OtherNodeState(const TreeGrid& grid, int32_t row);

/// Asks with before-collapse, then gives the row that state, wherever it stands after the question. False when it was
/// refused, or when the row is gone or no longer the node (or the leaf) that it was.
bool TurnNode(TreeGrid& grid, GridEvents& events, int32_t row, int32_t state);

/// The same for each node of the branch, from the row down, that does not have the state yet. A node that would have to
/// be read is not opened; one that is refused stays as it is. Ends where a row that was asked about is gone.
void TurnBranch(TreeGrid& grid, GridEvents& events, int32_t row, int32_t state, const NodeIsRead& isRead);

}  // namespace foldertree

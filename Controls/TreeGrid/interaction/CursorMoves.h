// CursorMoves: where the cursor is seen, and where it goes.
#pragma once

#include <cstdint>

#include "rows/TreeGrid.h"

namespace foldertree {

/// The row on which the cursor is seen and acts: its own, or the closed node that hides it; 0 when there is none.
int32_t CursorRow(const TreeGrid& grid);

/// The shown row so many rows below the cursor (above it when negative), at the most the last or the first one; 0 when
/// nothing is shown. From nowhere the cursor comes to the first row, or to the last one when that is asked for.
int32_t RowFromCursor(const TreeGrid& grid, int64_t rows);

/// The row that the row lies below in the outline; 0 when there is none.
int32_t ParentRow(const TreeGrid& grid, int32_t row);

/// Whether the row has a sign that opens and closes it.
bool HasSign(const TreeGrid& grid, int32_t row);

}  // namespace foldertree

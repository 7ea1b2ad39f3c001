// RowWalk: goes over the grid's rows though the host's code may run at each.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "automation/Error.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// The row's number now. Throws automation::Error 9, like a number that is out of range, when it has gone.
inline int32_t RequireRow(const TreeGrid& grid, RowHandle handle) {
    const std::optional<int32_t> row = grid.RowOf(handle);
    if (!row) throw automation::VbError(automation::errors::subscript);
    return *row;
}

/// Visits the data rows from the first to the last. Rows may come and go meanwhile; when the visited row itself goes,
/// the place is lost with it and the walk ends.
template <class Visit>
void ForEachRow(const TreeGrid& grid, Visit&& visit) {
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) {
        const RowHandle place = grid.HandleOf(row);
        visit(std::as_const(row));
        // Mostly no row has moved, and looking there first costs less than asking where it is.
        if (row < grid.RowCount() && grid.HandleOf(row) == place) continue;
        const std::optional<int32_t> now = grid.RowOf(place);
        if (!now) return;
        row = *now;
    }
}

}  // namespace foldertree

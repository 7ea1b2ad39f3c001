// RowWalk: goes over the grid's rows though the host's code may run at each.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "automation/Error.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// The row's number now; for who knows the number that it had, looked for there first. Throws automation::Error 9, like
/// a number that is out of range, when it has gone.
inline int32_t RequireRow(const TreeGrid& grid, RowHandle handle, int32_t lastSeenAt = -1) {
    const std::optional<int32_t> row = grid.RowOf(handle, lastSeenAt);
    if (!row) throw automation::VbError(automation::errors::subscript);
    return *row;
}

/// Visits the wanted data rows from the first to the last. Rows may come and go during a visit; when the visited row
/// itself goes, the place is lost with it and the walk ends. To ask `isWanted` must run no other code.
template <class IsWanted, class Visit>
void ForEachRow(const TreeGrid& grid, IsWanted&& isWanted, Visit&& visit) {
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) {
        if (!isWanted(std::as_const(row))) continue;
        const RowHandle place = grid.HandleOf(row);
        visit(std::as_const(row));
        const std::optional<int32_t> now = grid.RowOf(place, row);
        if (!now) return;
        row = *now;
    }
}

}  // namespace foldertree

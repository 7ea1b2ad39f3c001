// GridChanges: what changed in a grid since its observers were last told.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "rows/NotedRows.h"

namespace foldertree {

/// A batch of changes. Row numbers are those after the batch; a number of `noRow` says that nothing of the kind
/// happened. Rows from `firstMoved` on may be others than before or stand elsewhere, so nothing more is said of them.
struct GridChanges {
    static constexpr int32_t noRow = std::numeric_limits<int32_t>::max();

    int32_t firstMoved = noRow;    ///< rows came or went from here on
    int32_t firstOutline = noRow;  ///< levels, nodes or node states changed from here on
    int32_t firstChanged = noRow;  ///< texts or looks changed between these two rows
    int32_t lastChanged = -1;
    bool levels = false;      ///< levels or nodes changed, not only what is open
    bool emptied = false;     ///< for a moment there was no data row
    bool columns = false;     ///< hidden columns, widths to fit, data types
    bool appearance = false;  ///< font, colours, enabled
    bool cursor = false;      ///< the cursor went to another row, or its row went
    NotedRows noted;          ///< rows whose tick, number or node state changed

    bool Any() const {
        return firstMoved != noRow || firstOutline != noRow || firstChanged != noRow || levels || emptied || columns ||
               appearance || cursor || !noted.Empty();
    }

    void RowsMovedFrom(int32_t row) { firstMoved = std::min(firstMoved, row); }
    void OutlineChangedFrom(int32_t row) { firstOutline = std::min(firstOutline, row); }
    void RowsChanged(int32_t first, int32_t last) {
        firstChanged = std::min(firstChanged, first);
        lastChanged = std::max(lastChanged, last);
    }
};

/// Told of each batch of changes, once.
class TreeGridObserver {
  public:
    virtual ~TreeGridObserver() = default;
    virtual void GridChanged(const GridChanges& changes) noexcept = 0;
};

}  // namespace foldertree

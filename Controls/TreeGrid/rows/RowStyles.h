// RowStyles: what the cells of a row look like, stored once for all rows that look the same.
#pragma once

#include <array>
#include <cstdint>

#include "rows/InternTable.h"
#include "rows/TreeGrid.h"

namespace foldertree {

struct RowStyle {
    std::array<CellLook, GridSchema::maxColumns> cells;
    int32_t height = 0;

    static uint64_t Hash(const RowStyle& style);
    bool operator==(const RowStyle&) const = default;
};

/// One change of a row's look: a setting of the cells from col1 to col2, or the row's height.
struct StyleChange {
    static constexpr int rowHeight = -1;

    int setting = 0;  ///< a CellSetting, or rowHeight
    int col1 = 0;
    int col2 = 0;
    uint32_t value = 0;
    bool operator==(const StyleChange&) const = default;
};

/// The styles in use. A change leads from a style to a style; the ways that were taken lately are remembered, so that
/// painting rows alike does not build and compare styles again.
class RowStyles {
  public:
    using Id = uint32_t;  ///< 0 is the style of a new row

    const RowStyle& operator[](Id id) const { return styles_[id]; }
    /// The style with the change made, with one more reference to it. When memory runs out, nothing has changed.
    Id Changed(Id from, const StyleChange& change);
    Id Acquire(const RowStyle& style) { return styles_.Acquire(style); }
    void Release(Id id) noexcept { styles_.Release(id); }
    size_t MemoryUse() const { return styles_.MemoryUse(); }

  private:
    struct Step {
        Id from = 0;
        Id to = 0;
        StyleChange change;  ///< setting 0: the entry is empty
    };
    static size_t PlaceOf(Id from, const StyleChange& change);

    InternTable<RowStyle, RowStyle> styles_{RowStyle{}};
    std::array<Step, 512> steps_;
    uint32_t stepsSweep_ = 0;  ///< the sweep of styles_ since which steps_ is right
};

}  // namespace foldertree

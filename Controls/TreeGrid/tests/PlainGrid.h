// PlainGrid: the tree grid written word for word, with no index and no sharing: what TreeGrid is compared with.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rows/TreeGrid.h"
#include "tests/SampleSchema.h"

namespace foldertree::testing {

struct PlainRow {
    int64_t id = 0;  ///< of no other row of the grid, ever
    std::array<std::string, sample::columnCount> cells;
    std::array<CellLook, sample::columnCount> looks;
    int32_t height = 0;
    int16_t level = 0;
    bool isNode = false;
    int32_t nodeState = nodeExpanded;
};

struct PlainGrid {
    static constexpr int32_t fixedRows = 1;

    std::vector<PlainRow> rows = std::vector<PlainRow>(1);
    int32_t currentRow = 0;
    int64_t lastId = 0;

    int32_t Count() const { return static_cast<int32_t>(rows.size()); }
    PlainRow& Row(int32_t row) { return rows[static_cast<size_t>(row)]; }
    const PlainRow& Row(int32_t row) const { return rows[static_cast<size_t>(row)]; }

    void SetRowCount(int32_t count);
    void InsertRow(int32_t before, std::string_view text);
    void RemoveRow(int32_t row);
    void SetFormat(CellSetting setting, int32_t row1, int col1, int32_t row2, int col2, uint32_t value);

    std::optional<int32_t> RowWithId(int64_t id) const;
    int32_t FindRow(std::string_view text, int32_t start, int col) const;
    bool IsHidden(int32_t row) const;
    bool HasChildren(int32_t row) const;
    std::vector<int32_t> VisibleRows() const;
    int32_t VisibleAncestor(int32_t row) const;
};

/// Whether one row is what it is in the plain grid. Fails the test if not.
void CompareRow(const TreeGrid& grid, const PlainGrid& plain, int32_t row);
/// The same for all there is: every row, where its key is found, and what the outline shows.
void CompareGrids(const TreeGrid& grid, const PlainGrid& plain);

}  // namespace foldertree::testing

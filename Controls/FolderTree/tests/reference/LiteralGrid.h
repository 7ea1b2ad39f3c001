// LiteralGrid: the tree grid as a plain table: rows in a vector, each operation a loop.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/GridColors.h"
#include "common/GridColumns.h"
#include "common/Pictures.h"
#include "rows/Colors.h"

namespace foldertree::reference {

struct LiteralCell {
    std::string text;
    std::optional<OleColor> backColor;
    std::optional<OleColor> foreColor;
    bool bold = false;
    Picture picture = Picture::None;
    int pictureAlignment = 0;
};

struct LiteralRow {
    std::array<LiteralCell, gridColumnCount> cells;
    int16_t level = 0;
    bool isNode = false;
    int32_t state = 0;
    int32_t height = 0;
};

/// A row or column out of range is Error 9.
class LiteralGrid {
  public:
    LiteralGrid() : rows(1) {}

    int32_t RowCount() const { return static_cast<int32_t>(rows.size()); }
    void SetRowCount(int32_t count);
    int32_t AddRow(std::optional<int32_t> before = std::nullopt);
    void RemoveRow(int32_t row);

    const std::string& CellText(int32_t row, int col) const { return At(row).cells[static_cast<size_t>(col)].text; }
    void SetCellText(int32_t row, int col, const std::string& text) {
        At(row).cells[static_cast<size_t>(col)].text = text;
    }
    double CellValue(int32_t row, int col) const;
    /// The first row whose cell has that text in any letter case, the header row too; -1 when there is none.
    int32_t FindRow(const std::string& text, int col) const;

    void SetBold(int32_t row, int firstCol, int lastCol, bool bold);
    void SetBackColor(int32_t row, int firstCol, int lastCol, OleColor color);
    void SetForeColor(int32_t row, int firstCol, int lastCol, OleColor color);
    void SetPicture(int32_t row, Picture picture);
    OleColor BackColor(int32_t row, int col) const;

    int16_t RowOutlineLevel(int32_t row) const { return At(row).level; }
    void SetRowOutlineLevel(int32_t row, int16_t level) { At(row).level = level; }
    void SetIsNode(int32_t row) { At(row).isNode = true; }
    int32_t NodeState(int32_t row) const { return At(row).state; }
    void SetNodeState(int32_t row, int32_t state) { At(row).state = state; }

    LiteralRow& At(int32_t row);
    const LiteralRow& At(int32_t row) const;

    /// The rows that no collapsed node hides, the header left out.
    std::vector<int32_t> VisibleRows() const;

    std::vector<LiteralRow> rows;
    int32_t currentRow = 0;
    int32_t headingRow = 0;  ///< the row of the address lists' heading, 0 for none; follows its row
    std::array<bool, gridColumnCount> hidden{};
    std::array<int32_t, gridColumnCount> dataTypes{};
    OleColor backColor = colors::window;
    OleColor textColor = colors::buttonText;
    bool enabled = true;
    std::string editText;
};

}  // namespace foldertree::reference

// GridRows: the rows of a grid with all that a user or a host can see of them, as values and as text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "common/GridColors.h"
#include "common/GridColumns.h"
#include "common/Pictures.h"
#include "rows/Colors.h"
#include "support/ControlTest.h"

namespace foldertree::testing {

struct CellColors {
    bool bold = false;
    OleColor back = colors::window;
    OleColor fore = colors::buttonText;
    bool operator==(const CellColors&) const = default;
};

struct GridRow {
    int level = 0;
    std::array<std::string, gridColumnCount> cells;
    std::array<CellColors, gridColumnCount> colors;
    Picture picture = Picture::None;
    uint32_t pictureAlignment = 0;
    int32_t height = 0;
    bool node = false;
    bool closed = false;
};

/// All rows, the header row first.
std::vector<GridRow> RowsOf(const TreeGrid& grid);

/// One line a row: two blanks a level, the name, then what is to be seen: kind, picture, unread, closed, colours.
Lines TreeLines(const std::vector<GridRow>& rows);
/// One line a row: the name and the hidden cells.
Lines CellLines(const std::vector<GridRow>& rows);
/// Both and all the rest in one line, for comparing.
Lines WholeLines(const std::vector<GridRow>& rows);

}  // namespace foldertree::testing

// GridLayout: where everything of the grid stands in its window: columns, rows, boxes, glyphs, and what a point hits.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "interaction/GridView.h"
#include "layout/Geometry.h"

namespace foldertree {

/// The sizes that pictures are drawn for; between them they would be stretched.
inline constexpr std::array<int, 6> iconSizes{16, 20, 24, 32, 48, 64};

/// Lengths in pixels.
struct GridMetrics {
    int rowHeight = 19;
    int headerHeight = 21;
    int indent = 18;  ///< one outline level
    int iconSize = 16;
    int boxSize = 13;   ///< check box
    int glyphSize = 9;  ///< the sign that opens and closes a node
    int margin = 4;     ///< between a cell's edge and its content
    int line = 1;       ///< thickness of frames, rules and signs
    int unit = 96;      ///< 96 where the lengths above are as they stand here; what they have grown by

    /// For a screen of `dpi`, rows of `rowTwips` (0: the grid's default of 19 pixels) and a font of that line height.
    /// Rows are never lower than their text, and boxes, signs, pictures and indents grow with a text that is larger
    /// than usual. Of a resolution or height that nothing can have, as much is taken as can be drawn.
    static GridMetrics For(int dpi, int rowTwips, int fontHeight);
};

/// The columns that are ever shown, from the left: boxes, numbers, and the outline of names.
enum ShownColumn : int { shownBox = 0, shownNumber = 1, shownName = 2 };

/// Pure geometry, without a window. Positions count the visible rows, 0-based; coordinates are the window's client
/// area. A column is one of ShownColumn; the name takes what the two others leave, or as much more as its texts want;
/// then the columns are wider than the area, and the names can be moved to the left, under the two others. Where these
/// would leave the names less than half of the area, all three move. Mirrored, for languages that are read from
/// right to left, all of that is the other way round: what is said of left holds for right.
class GridLayout {
  public:
    GridLayout() = default;
    /// `selWidth` and `indexWidth` are 0 for a hidden column.
    GridLayout(const GridMetrics& metrics, Size client, int selWidth, int indexWidth, int32_t topPosition);

    /// The columns with room for names of that width (see NameWidth), and the names moved to the left by as many pixels
    /// of `left` as there is something to see at the right.
    void ScrollSideways(int nameWidth, int left);
    void SetMirrored(bool mirrored) { mirrored_ = mirrored; }

    const GridMetrics& Metrics() const { return metrics_; }
    Size Client() const { return client_; }
    bool Mirrored() const { return mirrored_; }
    int32_t TopPosition() const { return topPosition_; }
    int Left() const { return left_; }  ///< pixels out of view where the names begin
    int MostLeft() const { return std::max(0, ContentWidth() - client_.cx); }
    int ContentWidth() const { return width_; }  ///< of all columns
    /// Whether box and number stay where they are when the names move.
    bool Stays() const { return 2 * staying_ <= client_.cx; }
    int32_t FullRows() const;   ///< rows that fit whole, at least 1
    int32_t ShownRows() const;  ///< with the cut-off one at the bottom

    Rect HeaderCell(int col) const;
    Rect Row(int32_t position) const;
    Rect Cell(int32_t position, int col) const;
    /// Parts of a row, given the rectangle of its cell.
    Rect Box(const Rect& selCell) const;
    Rect Glyph(const Rect& nameCell, int level) const;
    Rect Icon(const Rect& nameCell, int level) const;
    /// Where the name's text starts and ends; `withIcon` leaves room for the picture.
    Rect NameText(const Rect& nameCell, int level, bool withIcon) const;

    /// Whether a name of that width is seen in full, not cut and not under another column. `nameCell` is its cell.
    bool ShowsWhole(const Rect& nameCell, int level, bool withIcon, int textWidth) const;

    /// The width of a name column that shows a row's indentation and its text of `textWidth` in full. Beyond a limit,
    /// which no name reaches that anybody reads, rows crowd together and texts are cut.
    int NameWidth(int level, int textWidth) const;

    /// The visible row at a height, if the point is below the header; it may be beyond the last row.
    std::optional<int32_t> PositionAt(int y) const;
    /// What the point hits on a row of that outline level. The box is a little larger than it looks, so that it is easy
    /// to hit; `GridPart::Index` is the whole cell.
    GridPart PartAt(Point point, int level) const;

  private:
    struct Column {
        int left = 0;
        int right = 0;
    };
    Column ColumnOf(int col) const { return columns_[static_cast<size_t>(col)]; }
    /// From a place of columns that begin at the left to where it is seen, and back.
    Rect Seen(const Rect& place) const;
    int IndentEnd(const Rect& nameCell, int level) const;
    Rect IconFrom(const Rect& nameCell, int level) const;

    GridMetrics metrics_;
    Size client_;
    std::array<Column, 3> columns_{};
    int staying_ = 0;  ///< width of the columns left of the names
    int width_ = 0;
    int left_ = 0;
    int32_t topPosition_ = 0;
    bool mirrored_ = false;
};

}  // namespace foldertree

// GridLayout: where everything of the grid stands in its window: columns, rows, boxes, glyphs, and what a point hits.
#include "layout/GridLayout.h"

#include <algorithm>

namespace foldertree {
namespace {

constexpr int minimumNameWidth = 40;
constexpr int minimumTextWidth = 90;    // at 96 dots per inch
constexpr int maximumNameWidth = 4000;  // the same

Rect Centred(int left, int width, int height, const Rect& cell) {
    const int top = cell.top + (cell.bottom - cell.top - height) / 2;
    return {left, top, left + width, top + height};
}

int AtDpiOf(const GridMetrics& metrics, int length) {
    return Scale(length, metrics.unit);
}

int FromTwips(int twips, int dpi) {
    constexpr int twipsPerInch = 1440;
    return static_cast<int>((int64_t{twips} * dpi + twipsPerInch / 2) / twipsPerInch);
}

/// The largest size that pictures are drawn for and that is no larger; beyond those of screens any size.
int SharpSize(int size) {
    if (size > iconSizes.back()) return size;
    int sharp = iconSizes.front();
    for (const int known : iconSizes)
        if (known <= size) sharp = known;
    return sharp;
}

}  // namespace

GridMetrics GridMetrics::For(int dpi, int rowTwips, int fontHeight) {
    constexpr int usualLine = 16;  // up to this line height at 96 dots per inch signs are large enough for the text
    constexpr int highestRow = 32767;
    GridMetrics metrics;
    dpi = SaneDpi(dpi);
    fontHeight = std::clamp(fontHeight, 0, highestRow / 2);
    metrics.unit = std::max(dpi, fontHeight * usualDpi / usualLine);
    const int wanted = rowTwips > 0 ? FromTwips(rowTwips, dpi) : 0;
    metrics.rowHeight = std::min(highestRow, std::max({1, wanted, Scale(19, dpi), fontHeight + Scale(4, dpi)}));
    metrics.headerHeight = metrics.rowHeight + Scale(3, dpi);
    metrics.indent = std::max(1, Scale(18, metrics.unit));
    metrics.iconSize = SharpSize(Scale(16, metrics.unit));
    metrics.boxSize = Scale(13, metrics.unit);
    metrics.glyphSize = Scale(9, metrics.unit) | 1;  // odd, so that the sign has a middle
    metrics.margin = Scale(4, metrics.unit);
    metrics.line = std::max(1, dpi / usualDpi);
    return metrics;
}

GridLayout::GridLayout(const GridMetrics& metrics, Size client, int selWidth, int indexWidth, int32_t topPosition)
    : metrics_(metrics), client_(std::max(0, client.cx), std::max(0, client.cy)), topPosition_(topPosition) {
    staying_ = selWidth + indexWidth;
    width_ = std::max(client_.cx, staying_ + minimumNameWidth);
    columns_ = {Column{0, selWidth}, Column{selWidth, staying_}, Column{staying_, width_}};
}

void GridLayout::ScrollSideways(int nameWidth, int left) {
    const int number = columns_[shownNumber].right - columns_[shownNumber].left;
    width_ = std::max(client_.cx, staying_ + std::max(minimumNameWidth, nameWidth));
    left_ = std::clamp(left, 0, MostLeft());
    const int staysAt = Stays() ? 0 : -left_;
    const int edge = staysAt + staying_ - number;
    columns_ = {Column{staysAt, edge}, Column{edge, staysAt + staying_}, Column{staying_ - left_, width_ - left_}};
}

int32_t GridLayout::FullRows() const {
    return std::max<int32_t>(1, (client_.cy - metrics_.headerHeight) / metrics_.rowHeight);
}

int32_t GridLayout::ShownRows() const {
    const int height = client_.cy - metrics_.headerHeight;
    return height <= 0 ? 0 : (height + metrics_.rowHeight - 1) / metrics_.rowHeight;
}

Rect GridLayout::Seen(const Rect& place) const {
    if (!mirrored_) return place;
    return {client_.cx - place.right, place.top, client_.cx - place.left, place.bottom};
}

Rect GridLayout::HeaderCell(int col) const {
    return Seen({ColumnOf(col).left, 0, ColumnOf(col).right, metrics_.headerHeight});
}

Rect GridLayout::Row(int32_t position) const {
    const int top = metrics_.headerHeight + (position - topPosition_) * metrics_.rowHeight;
    return Seen({columns_.front().left, top, columns_.back().right, top + metrics_.rowHeight});
}

Rect GridLayout::Cell(int32_t position, int col) const {
    const Rect row = Row(position);
    return Seen({ColumnOf(col).left, row.top, ColumnOf(col).right, row.bottom});
}

Rect GridLayout::Box(const Rect& selCell) const {
    const Rect cell = Seen(selCell);
    const int left = cell.left + (cell.Width() - metrics_.boxSize) / 2;
    return Seen(Centred(left, metrics_.boxSize, metrics_.boxSize, cell));
}

// Where a row of that level begins. Rows that lie very deep crowd together rather than leave the column.
int GridLayout::IndentEnd(const Rect& nameCell, int level) const {
    const int room = nameCell.Width() - 2 * metrics_.indent - AtDpiOf(metrics_, minimumTextWidth);
    const int deepest = std::max(1, room / metrics_.indent);
    return nameCell.left + metrics_.margin + std::clamp(level, 0, deepest) * metrics_.indent;
}

Rect GridLayout::Glyph(const Rect& nameCell, int level) const {
    const Rect cell = Seen(nameCell);
    const int left = IndentEnd(cell, level) + (metrics_.indent - metrics_.glyphSize) / 2 - 1;
    return Seen(Centred(left, metrics_.glyphSize, metrics_.glyphSize, cell));
}

Rect GridLayout::IconFrom(const Rect& cell, int level) const {
    return Centred(IndentEnd(cell, level) + metrics_.indent, metrics_.iconSize, metrics_.iconSize, cell);
}

Rect GridLayout::Icon(const Rect& nameCell, int level) const {
    return Seen(IconFrom(Seen(nameCell), level));
}

Rect GridLayout::NameText(const Rect& nameCell, int level, bool withIcon) const {
    const Rect cell = Seen(nameCell);
    const Rect icon = IconFrom(cell, level);
    const int left = withIcon ? icon.right + metrics_.margin : icon.left;
    return Seen({left, cell.top, std::max(left, cell.right - metrics_.margin), cell.bottom});
}

bool GridLayout::ShowsWhole(const Rect& nameCell, int level, bool withIcon, int textWidth) const {
    const Rect text = Seen(NameText(nameCell, level, withIcon));
    return text.left >= std::max(0, columns_[shownNumber].right) && textWidth <= text.Width() &&
           text.left + textWidth <= client_.cx;
}

int GridLayout::NameWidth(int level, int textWidth) const {
    const int64_t text = std::max(metrics_.iconSize + 3 * metrics_.margin + textWidth,
                                  metrics_.indent + AtDpiOf(metrics_, minimumTextWidth));
    const int64_t wanted = (static_cast<int64_t>(std::max(level, 0)) + 1) * metrics_.indent + text;
    return static_cast<int>(std::min<int64_t>(wanted, AtDpiOf(metrics_, maximumNameWidth)));
}

std::optional<int32_t> GridLayout::PositionAt(int y) const {
    if (y < metrics_.headerHeight) return std::nullopt;
    return topPosition_ + (y - metrics_.headerHeight) / metrics_.rowHeight;
}

GridPart GridLayout::PartAt(Point point, int level) const {
    const auto position = PositionAt(point.y);
    if (!position) return GridPart::Header;
    const int x = Seen({point.x, 0, point.x + 1, 0}).left;
    const Rect box = Seen(Box(Cell(*position, shownBox)));
    const int reach = metrics_.margin;
    const Rect glyph = Seen(Glyph(Cell(*position, shownName), level));
    const int glyphReach = (metrics_.indent - metrics_.glyphSize) / 2;
    if (x < columns_[shownBox].right)
        return x >= box.left - reach && x < box.right + reach ? GridPart::Box : GridPart::Row;
    if (x < columns_[shownNumber].right) return GridPart::Index;
    if (x >= glyph.left - glyphReach && x < glyph.right + glyphReach) return GridPart::Glyph;
    return GridPart::Row;
}

}  // namespace foldertree

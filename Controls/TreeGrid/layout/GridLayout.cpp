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
    return metrics.iconSize * length / 16;
}

int FromTwips(int twips, int dpi) {
    constexpr int twipsPerInch = 1440;
    return static_cast<int>((int64_t{twips} * dpi + twipsPerInch / 2) / twipsPerInch);
}

// Where a row of that level begins. Rows that lie very deep crowd together rather than leave the column.
int IndentEnd(const GridMetrics& metrics, const Rect& nameCell, int level) {
    const int room = nameCell.right - nameCell.left - 2 * metrics.indent - AtDpiOf(metrics, minimumTextWidth);
    const int deepest = std::max(1, room / metrics.indent);
    return nameCell.left + metrics.margin + std::clamp(level, 0, deepest) * metrics.indent;
}

}  // namespace

GridMetrics GridMetrics::For(int dpi, int rowTwips, int fontHeight) {
    GridMetrics metrics;
    const int wanted = rowTwips > 0 ? FromTwips(rowTwips, dpi) : 0;
    metrics.rowHeight = std::max({wanted, Scale(19, dpi), fontHeight + Scale(4, dpi)});
    metrics.headerHeight = metrics.rowHeight + Scale(3, dpi);
    metrics.indent = Scale(18, dpi);
    metrics.iconSize = Scale(16, dpi);
    metrics.boxSize = Scale(13, dpi);
    metrics.glyphSize = Scale(9, dpi) | 1;  // odd, so that the sign has a middle
    metrics.margin = Scale(4, dpi);
    constexpr int fineScreen = 192;
    metrics.line = std::max(1, dpi / fineScreen);
    return metrics;
}

GridLayout::GridLayout(const GridMetrics& metrics, Size client, int selWidth, int indexWidth, int32_t topPosition)
    : metrics_(metrics), client_(client), topPosition_(topPosition) {
    const int nameLeft = selWidth + indexWidth;
    edges_ = {0, selWidth, nameLeft, std::max<int>(client.cx, nameLeft + minimumNameWidth)};
}

void GridLayout::ScrollSideways(int nameWidth, int left) {
    const int nameLeft = edges_[2] - edges_[0];
    const int width = std::max<int>(client_.cx, nameLeft + std::max(minimumNameWidth, nameWidth));
    const int shift = edges_[0] + std::clamp<int>(left, 0, width - std::min<int>(client_.cx, width));
    for (int& edge : edges_) edge -= shift;
    edges_.back() = edges_.front() + width;
}

int32_t GridLayout::FullRows() const {
    return std::max<int32_t>(1, (client_.cy - metrics_.headerHeight) / metrics_.rowHeight);
}

int32_t GridLayout::ShownRows() const {
    const int height = client_.cy - metrics_.headerHeight;
    return height <= 0 ? 0 : (height + metrics_.rowHeight - 1) / metrics_.rowHeight;
}

Rect GridLayout::HeaderCell(int col) const {
    return {Edge(col), 0, Edge(col + 1), metrics_.headerHeight};
}

Rect GridLayout::Row(int32_t position) const {
    const int top = metrics_.headerHeight + (position - topPosition_) * metrics_.rowHeight;
    return {edges_.front(), top, edges_.back(), top + metrics_.rowHeight};
}

Rect GridLayout::Cell(int32_t position, int col) const {
    Rect cell = Row(position);
    cell.left = Edge(col);
    cell.right = Edge(col + 1);
    return cell;
}

Rect GridLayout::Box(const Rect& selCell) const {
    const int left = selCell.left + (selCell.right - selCell.left - metrics_.boxSize) / 2;
    return Centred(left, metrics_.boxSize, metrics_.boxSize, selCell);
}

Rect GridLayout::Glyph(const Rect& nameCell, int level) const {
    const int left = IndentEnd(metrics_, nameCell, level);
    return Centred(left + (metrics_.indent - metrics_.glyphSize) / 2 - 1, metrics_.glyphSize, metrics_.glyphSize,
                   nameCell);
}

Rect GridLayout::Icon(const Rect& nameCell, int level) const {
    return Centred(IndentEnd(metrics_, nameCell, level) + metrics_.indent, metrics_.iconSize, metrics_.iconSize,
                   nameCell);
}

Rect GridLayout::NameText(const Rect& nameCell, int level, bool withIcon) const {
    const Rect icon = Icon(nameCell, level);
    return {(withIcon ? icon.right + metrics_.margin : icon.left), nameCell.top, nameCell.right - metrics_.margin,
            nameCell.bottom};
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
    const Rect box = Box(Cell(*position, shownBox));
    const int reach = metrics_.margin;
    const Rect glyph = Glyph(Cell(*position, shownName), level);
    const int glyphReach = (metrics_.indent - metrics_.glyphSize) / 2;
    if (point.x < edges_[1])
        return point.x >= box.left - reach && point.x < box.right + reach ? GridPart::Box : GridPart::Row;
    if (point.x < edges_[2]) return GridPart::Index;
    if (point.x >= glyph.left - glyphReach && point.x < glyph.right + glyphReach) return GridPart::Glyph;
    return GridPart::Row;
}

}  // namespace foldertree

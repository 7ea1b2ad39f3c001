// ListeningCopy: a copy of a grid's rows kept up by its notifications alone, as a window keeps what it shows.
#include "reference/ListeningCopy.h"

namespace foldertree::reference {

SeenRow SeeGridRow(const TreeGrid& grid, int32_t row) {
    SeenRow seen;
    for (int col = 0; col < gridColumnCount; ++col) {
        const CellLook& look = grid.Look(row, col);
        seen.cells[static_cast<size_t>(col)] = {grid.CellText(row, col),
                                                look.backColor ? int64_t{*look.backColor} : -1,
                                                look.foreColor ? int64_t{*look.foreColor} : -1,
                                                look.bold,
                                                static_cast<int>(look.picture),
                                                look.pictureAlignment};
    }
    seen.level = grid.RowOutlineLevel(row);
    seen.isNode = grid.IsNode(row);
    seen.state = grid.NodeState(row);
    seen.height = grid.RowHeight(row);
    return seen;
}

SeenFrame SeeGridFrame(const TreeGrid& grid) {
    SeenFrame seen;
    for (int col = 0; col < gridColumnCount; ++col) {
        seen.hidden[static_cast<size_t>(col)] = grid.ColHidden(col);
        seen.dataTypes[static_cast<size_t>(col)] = grid.ColDataType(col);
    }
    seen.backColor = grid.BackColor();
    seen.textColor = grid.TextColor();
    seen.enabled = grid.Enabled();
    return seen;
}

ListeningCopy::ListeningCopy(TreeGrid& grid) : grid_(grid), rows_(static_cast<size_t>(grid.RowCount())) {
    grid_.AddObserver(this);
}

ListeningCopy::~ListeningCopy() {
    grid_.RemoveObserver(this);
}

std::string ListeningCopy::Untold() {
    if (static_cast<int32_t>(rows_.size()) != grid_.RowCount())
        return "told of " + std::to_string(rows_.size()) + " rows, there are " + std::to_string(grid_.RowCount());
    for (int32_t row = 0; row < grid_.RowCount(); ++row) {
        std::optional<SeenRow>& known = rows_[static_cast<size_t>(row)];
        SeenRow now = SeeGridRow(grid_, row);
        if (known && *known != now) return "row " + std::to_string(row) + " changed and nobody was told";
        if (!known) known = std::move(now);
    }
    const SeenFrame now = SeeGridFrame(grid_);
    if (frame_ && *frame_ != now) return "columns or colours changed and nobody was told";
    frame_ = now;
    return {};
}

void ListeningCopy::GridChanged(const GridChanges& changes) noexcept {
    ForgetFrom(changes.firstMoved);
    for (int32_t row = changes.firstChanged; row <= changes.lastChanged && row < grid_.RowCount(); ++row)
        rows_[static_cast<size_t>(row)].reset();
    LookAtOutlineFrom(changes.firstOutline);
    if (changes.columns || changes.appearance) frame_.reset();
}

void ListeningCopy::ForgetFrom(int32_t row) {
    if (row == GridChanges::noRow) return;
    rows_.resize(static_cast<size_t>(row));
    rows_.resize(static_cast<size_t>(grid_.RowCount()));
}

void ListeningCopy::LookAtOutlineFrom(int32_t firstRow) {
    for (size_t row = static_cast<size_t>(firstRow); row < rows_.size(); ++row) {
        if (!rows_[row]) continue;
        // Only the outline may be another one.
        rows_[row]->level = grid_.RowOutlineLevel(static_cast<int32_t>(row));
        rows_[row]->isNode = grid_.IsNode(static_cast<int32_t>(row));
        rows_[row]->state = grid_.NodeState(static_cast<int32_t>(row));
    }
}

}  // namespace foldertree::reference

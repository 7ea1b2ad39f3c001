// NodeExpansion: the frame around reading a node's children on demand, the same in all access modes.
#include "enumeration/NodeExpansion.h"

#include <limits>

#include "enumeration/FolderRows.h"

namespace foldertree {

int16_t ExpandedRows::ChildLevel() const {
    const int16_t level = context_.grid.RowOutlineLevel(Node());
    if (level == std::numeric_limits<int16_t>::max()) throw automation::VbError(automation::errors::overflow);
    return static_cast<int16_t>(level + 1);
}

void ExpandedRows::RemovePlaceholder() {
    const int32_t below = Node() + 1;
    if (below >= context_.grid.RowCount() || !IsRowKind(context_.grid, below, rowKind::dummy)) return;
    context_.grid.RemoveRow(below);
    placeholderRemoved_ = true;
}

int32_t ExpandedRows::InsertChild() {
    TreeGrid& grid = context_.grid;
    const int32_t place = LastChild() + 1;
    const int32_t child = place >= grid.RowCount() ? grid.AddRow("") : grid.AddRow("", place);
    beforeLast_ = last_;
    last_ = grid.HandleOf(child);
    childPending_ = true;
    return child;
}

void ExpandedRows::MarkChildUnread() {
    const int32_t child = LastChild();
    MarkUnread(context_, child);
    last_ = context_.grid.HandleOf(child + 1);
}

void ExpandedRows::MarkRead() {
    context_.grid.SetCellText(Node(), colIncomplete, "");
}

void ExpandedRows::ChildFailed() {
    failed_ = true;
    if (!childPending_) return;
    childPending_ = false;
    const int32_t child = LastChild();
    last_ = beforeLast_;
    context_.grid.RemoveRow(child);
}

void ExpandedRows::RecoverFromError() {
    retry_ = last_ == node_;
    if (retry_ && placeholderRemoved_) MarkUnread(context_, Node());
}

}  // namespace foldertree

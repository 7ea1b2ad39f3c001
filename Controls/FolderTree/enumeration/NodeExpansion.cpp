// NodeExpansion: the frame around reading a node's children on demand, the same in all access modes.
#include "enumeration/NodeExpansion.h"

#include <limits>

#include "enumeration/FolderRows.h"

namespace foldertree {

int16_t ExpandedRows::ChildLevel() const {
    const int16_t level = context_.grid.RowOutlineLevel(node_);
    if (level == std::numeric_limits<int16_t>::max()) throw automation::VbError(automation::errors::overflow);
    return static_cast<int16_t>(level + 1);
}

void ExpandedRows::RemovePlaceholder() {
    const int32_t below = node_ + 1;
    if (below >= context_.grid.RowCount() || !IsRowKind(context_.grid, below, rowKind::dummy)) return;
    context_.grid.RemoveRow(below);
    placeholderRemoved_ = true;
}

int32_t ExpandedRows::InsertChild() {
    TreeGrid& grid = context_.grid;
    last_ = last_ + 1 >= grid.RowCount() ? grid.AddRow("") : grid.AddRow("", last_ + 1);
    childPending_ = true;
    return last_;
}

void ExpandedRows::MarkChildUnread() {
    MarkUnread(context_, last_);
    ++last_;
}

void ExpandedRows::MarkRead() {
    context_.grid.SetCellText(node_, colIncomplete, "");
}

void ExpandedRows::ChildFailed() {
    failed_ = true;
    if (!childPending_) return;
    childPending_ = false;
    context_.grid.RemoveRow(last_--);
}

void ExpandedRows::RecoverFromError() {
    retry_ = last_ == node_;
    if (retry_ && placeholderRemoved_) MarkUnread(context_, node_);
}

}  // namespace foldertree

// NodeExpansion: the frame around reading a node's children on demand, the same in all access modes.
#pragma once

#include <cstdint>

#include "common/ControlContext.h"
#include "common/RowWalk.h"
#include "selection/SelectionView.h"

namespace foldertree {

/// The rows of one expansion: children go directly below the node, one after the other. They are found again after each
/// yield; members throw automation::Error 9 when the host has emptied the tree.
class ExpandedRows {
  public:
    ExpandedRows(ControlContext& context, RowHandle node) : context_(context), node_(node), last_(node) {}

    int32_t Node() const { return RequireRow(context_.grid, node_); }
    int16_t ChildLevel() const;
    /// Removes the row below the node if it is its placeholder.
    void RemovePlaceholder();
    /// Inserts an empty row below the last child and returns its number. It goes again unless KeepChild follows.
    int32_t InsertChild();
    /// The row that InsertChild inserted, or its placeholder.
    int32_t LastChild() const { return RequireRow(context_.grid, last_); }
    /// The last inserted row is filled.
    void KeepChild() { childPending_ = false; }
    /// A child could not be read: a row that was inserted for it is taken out.
    void ChildFailed();
    /// Marks the last child as not read, with a placeholder below it.
    void MarkChildUnread();
    /// After an error: when no child was inserted, the placeholder stands again and the node can be opened once more;
    /// otherwise the rows stay and the node counts as read.
    void RecoverFromError();
    /// The node was read, to its end or until the user cancelled.
    void MarkRead();

    bool Failed() const { return failed_; }
    bool ReadyToRetry() const { return retry_; }

  private:
    ControlContext& context_;
    RowHandle node_;
    RowHandle last_;
    RowHandle beforeLast_;  ///< what `last_` was before a child was inserted that is not kept yet
    bool childPending_ = false;
    bool failed_ = false;
    bool placeholderRemoved_ = false;
    bool retry_ = false;
};

/// Runs one expansion: wait panel and flags, `read(rows)` under the procedure's error line, the selection is shown in
/// the new rows, and `finish()` before the panel goes.
template <class Read, class Finish>
void RunExpansion(ControlContext& context, SelectionView& view, int32_t node, const ErrorLine& line, Read&& read,
                  Finish&& finish) {
    ExpandedRows rows(context, context.grid.HandleOf(node));
    LoadScope load(context);
    const bool ended = Guarded(context, line, [&] {
        load.Ready();
        load.ResetProgress();
        read(rows);
    });
    const auto conclude = [&] {
        if (!ended) rows.ChildFailed();
        if (rows.Failed()) rows.RecoverFromError();
        if (rows.ReadyToRetry()) return;
        view.ApplySelection();
        rows.MarkRead();
    };
    // One error line is enough: when the host has emptied the tree meanwhile, the node is not there to be marked
    // either.
    if (ended)
        Guarded(context, line, conclude);
    else
        Attempt(conclude);
    finish();
}

}  // namespace foldertree

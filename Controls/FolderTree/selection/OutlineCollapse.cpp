// OutlineCollapse: folds the tree so that only the branches that matter stay open.
#include "selection/OutlineCollapse.h"

#include <string>
#include <vector>

namespace foldertree {
namespace {

/// One walk over the outline. `Keeps` tells of a row whether the branches above it stay open. The open branches are a
/// list and not calls inside calls: how deep a tree goes is for its mailbox to say.
template <class Keeps>
class CollapseWalk {
  public:
    CollapseWalk(ControlContext& context, const ErrorLine& line, Keeps keeps)
        : context_(context), line_(line), keeps_(keeps) {}

    void CollapseStores() {
        TreeGrid& grid = context_.grid;
        for (int32_t row = 1; row < grid.RowCount(); ++row)
            if (grid.RowOutlineLevel(row) == 0) CollapseStore(row);
    }

  private:
    struct Branch {
        int32_t start;
        int32_t cur;  ///< the next row to look at; at the end that at which the walk of the branch ended
        bool folded = true;
    };

    void CollapseStore(int32_t store) {
        branches_.assign(1, {store, store + 1});
        while (!branches_.empty()) {
            bool entered = false;
            const auto error = Attempt([&] {
                entered = EnterBranchBelow();
                if (!entered) FoldInnermost();
            });
            if (error) TraceError(*error);
            if (!entered) LeaveInnermost();
        }
    }

    /// Looks at the next row of the innermost branch. False when that is not below it.
    bool EnterBranchBelow() {
        const TreeGrid& grid = context_.grid;
        Branch& branch = branches_.back();
        // The last row of the grid is never looked at.
        if (branch.cur >= grid.RowCount() - 1) return false;
        // The test precedes the level test, so a row to keep right behind the branch keeps it open too.
        if (keeps_(branch.cur)) branch.folded = false;
        if (grid.RowOutlineLevel(branch.cur) <= grid.RowOutlineLevel(branch.start)) return false;
        branches_.push_back({branch.cur, branch.cur + 1});
        return true;
    }

    void FoldInnermost() {
        const Branch& branch = branches_.back();
        context_.grid.SetNodeState(branch.start, branch.folded ? nodeCollapsed : nodeExpanded);
    }

    void LeaveInnermost() {
        const Branch below = branches_.back();
        branches_.pop_back();
        if (branches_.empty()) return;
        Branch& branch = branches_.back();
        if (!below.folded) branch.folded = false;
        branch.cur = below.cur;
    }

    void TraceError(const automation::Error& error) {
        const Branch& branch = branches_.back();
        const std::string cur = std::to_string(branch.cur);
        automation::Error placed(error.Number(), error.Text() + " CUR: " + cur +
                                                     ", Start: " + std::to_string(branch.start) + ", Finish: " + cur +
                                                     ", Level: " + std::to_string(branches_.size() - 1));
        placed.SetLine(error.Line());
        context_.TraceError(line_, placed);
    }

    ControlContext& context_;
    const ErrorLine& line_;
    Keeps keeps_;
    std::vector<Branch> branches_;  ///< from the store down to the innermost that was entered and not left
};

template <class Keeps>
void Collapse(ControlContext& context, const ErrorLine& recurseLine, Keeps keeps) {
    // Both walks name themselves alike here; support engineers know the line by that name.
    Guarded(context, errorLines::collapseToSelection,
            [&] { CollapseWalk<Keeps>(context, recurseLine, keeps).CollapseStores(); });
}

}  // namespace

void CollapseToSelection(ControlContext& context) {
    Collapse(context, errorLines::collapseToSelectionRecurse,
             [&](int32_t row) { return context.grid.CellValue(row, colSel) != 0; });
}

void CollapseToType(ControlContext& context, enuFTIItemType veType) {
    Collapse(context, errorLines::collapseToTypeRecurse,
             [&](int32_t row) { return context.grid.CellValue(row, colItemType) == static_cast<double>(veType); });
}

}  // namespace foldertree

// OutlineCollapse: folds the tree so that only the branches that matter stay open.
#include "selection/OutlineCollapse.h"

namespace foldertree {
namespace {

/// One walk over the outline. `Keeps` tells of a row whether the branches above it stay open.
template <class Keeps>
class CollapseWalk {
  public:
    CollapseWalk(ControlContext& context, const ErrorLine& line, Keeps keeps)
        : context_(context), line_(line), keeps_(keeps) {}

    void CollapseStores() {
        TreeGrid& grid = context_.grid;
        for (int32_t row = 1; row < grid.RowCount(); ++row)
            if (grid.RowOutlineLevel(row) == 0) Recurse(row, 0);
    }

  private:
    struct Branch {
        int32_t finish;  ///< the row at which the walk of the branch ended
        bool folded;
    };

    Branch Recurse(int32_t start, int32_t level) {
        TreeGrid& grid = context_.grid;
        Branch branch{start + 1, true};
        int32_t& cur = branch.finish;
        const auto error = Attempt([&] {
            const int16_t base = grid.RowOutlineLevel(start);
            // The last row of the grid is never looked at.
            while (cur < grid.RowCount() - 1) {
                // The test precedes the level test, so a row to keep right behind the branch keeps it open too.
                if (keeps_(cur)) branch.folded = false;
                if (grid.RowOutlineLevel(cur) <= base) break;
                const Branch below = Recurse(cur, level + 1);
                if (!below.folded) branch.folded = false;
                cur = below.finish == cur ? cur + 1 : below.finish;
            }
            grid.SetNodeState(start, branch.folded ? nodeCollapsed : nodeExpanded);
        });
        if (error) {
            automation::Error placed(
                error->Number(), error->Text() + " CUR: " + std::to_string(cur) + ", Start: " + std::to_string(start) +
                                     ", Finish: " + std::to_string(cur) + ", Level: " + std::to_string(level));
            placed.SetLine(error->Line());
            context_.TraceError(line_, placed);
        }
        return branch;
    }

    ControlContext& context_;
    const ErrorLine& line_;
    Keeps keeps_;
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

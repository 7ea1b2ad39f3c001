// Highlighting: contact, journal and task folders stand out when the host asks for it.
#include "selection/Highlighting.h"

namespace foldertree {

bool IsHighlighted(const ControlState& state, double itemType) {
    return (itemType == double{FTIContactItem} && state.highlightContactFolders) ||
           (itemType == double{FTIjournalItem} && state.highlightJournalFolders) ||
           (itemType == double{FTITaskItem} && state.highlightTaskFolders);
}

void HighlightNewRow(ControlContext& context, int32_t row, int32_t itemType) {
    TreeGrid& grid = context.grid;
    const auto apply = [&](bool flag, enuFTIItemType type) {
        if (!flag) return;
        const int last = grid.ColCount() - 1;
        if (itemType == type)
            grid.SetCellFormat(CellSetting::Bold, row, 0, row, last, true);
        else
            grid.SetCellFormat(CellSetting::ForeColor, row, 0, row, last, colors::buttonShadow);
    };
    apply(context.state.highlightContactFolders, FTIContactItem);
    apply(context.state.highlightJournalFolders, FTIjournalItem);
    apply(context.state.highlightTaskFolders, FTITaskItem);
}

void PerformHighlighting(ControlContext& context) {
    Guarded(context, errorLines::performHighlighting, [&] {
        TreeGrid& grid = context.grid;
        const int last = grid.ColCount() - 1;
        for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) {
            const bool highlighted = IsHighlighted(context.state, grid.CellValue(row, colItemType));
            if (highlighted || grid.CellFormat(CellSetting::BackColor, row, 0) != colors::buttonFace)
                grid.SetCellFormat(CellSetting::Bold, row, 0, row, last, highlighted);
        }
    });
}

}  // namespace foldertree

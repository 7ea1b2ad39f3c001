// BulkSelection: ticks or unticks many rows at once for the host.
#include "selection/BulkSelection.h"

#include <vector>

#include "automation/Text.h"

namespace foldertree {

template <class Visit>
void BulkSelection::ForEachPickRow(Visit&& visit) {
    const TreeGrid& grid = context_.grid;
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) {
        const std::string_view kind = grid.CellView(row, colRowKind);
        const auto is = [kind](std::string_view other) { return automation::EqualNoCase(kind, other); };
        if (!is(rowKind::dummy) && !is(rowKind::store) && !is(rowKind::header)) visit(row);
    }
}

bool BulkSelection::MayBePicked(int32_t row) const {
    return context_.grid.CellFormat(CellSetting::BackColor, row, colSel) != colors::buttonFace;
}

void BulkSelection::Untick(int32_t row) {
    context_.grid.SetCellText(row, colSel, "0");
    context_.grid.SetCellText(row, colIndex, " ");
    view_.MarkSelection(row);
}

void BulkSelection::AddItemOfRow(SelectionIndex& index, int32_t row, int32_t number) {
    context_.grid.SetCellText(row, colIndex, std::to_string(number));
    const ItemRef item = selection_.CreateSelItemFromRow(row);
    // ReIndex passes over items that are not ticked.
    item->SetSelected(true);
    index.Add(SelItem(item));
}

void BulkSelection::SelectNone() {
    Guarded(context_, errorLines::selectNone, [&] {
        SelectionIndex index(selection_);
        ForEachPickRow([&](int32_t row) {
            if (!IsTicked(row)) return;
            Untick(row);
            index.Remove(context_.grid.CellText(row, colKey));
        });
        index.Flush();
        if (!context_.state.multiSelect) {
            selection_.singleItem = nullptr;
            selection_.selectedRow = -1;
        }
        selection_.dirty = true;
    });
}

void BulkSelection::SelectAll() {
    Guarded(context_, errorLines::selectAll, [&] {
        if (!context_.state.multiSelect) return;
        SelectionIndex index(selection_);
        int32_t high = selection_.GetHighIndex();
        ForEachPickRow([&](int32_t row) {
            if (!MayBePicked(row)) return;
            context_.grid.SetCellText(row, colSel, "-1");
            if (const SelItem item = index.Find(context_.grid.CellText(row, colKey)))
                item.SetSelected(true);
            else
                AddItemOfRow(index, row, high = SelectionSet::NextIndex(high));
        });
        view_.ReIndex();
        selection_.dirty = true;
    });
}

void BulkSelection::SelectByType(enuFTIItemType eType, bool bAdditional) {
    Guarded(context_, errorLines::selectByType, [&] {
        int32_t high = bAdditional ? selection_.GetHighIndex() : -1;
        bool changed = false;
        SelectionIndex index(selection_);
        const auto pickOrTakeOut = [&](int32_t row) {
            const std::string key = context_.grid.CellText(row, colKey);
            const bool matches =
                context_.grid.CellValue(row, colItemType) == static_cast<double>(eType) && MayBePicked(row);
            if (!matches) {
                if (bAdditional) return;
                index.Remove(key);
                changed = true;
            } else if (const SelItem item = index.Find(key); !item) {
                AddItemOfRow(index, row, high = SelectionSet::NextIndex(high));
                changed = true;
            } else if (!item.Selected()) {
                item.SetSelected(true);
                item.SetIndex(high = SelectionSet::NextIndex(high));
                changed = true;
            }
        };
        const auto error = Attempt([&] { ForEachPickRow(pickOrTakeOut); });
        // What was taken out before an error is out.
        index.Flush();
        if (error) throw *error;
        const SelectionView::FoundRows found = changed ? view_.ReIndex() : SelectionView::FoundRows();
        index.FollowKeys();
        if (!bAdditional) UntickRowsWithoutItem(index, found);
        view_.ApplySelection(found);
        selection_.dirty = true;
    });
}

void BulkSelection::UntickRowsWithoutItem(const SelectionIndex& index, const SelectionView::FoundRows& found) {
    std::vector<bool> hasItem(static_cast<size_t>(context_.grid.RowCount()));
    for (const auto& each : found)
        if (each.row != -1) hasItem[static_cast<size_t>(each.row)] = true;
    ForEachPickRow([&](int32_t row) {
        if (hasItem[static_cast<size_t>(row)] || !IsTicked(row) || !MayBePicked(row)) return;
        if (!index.Find(context_.grid.CellText(row, colKey))) Untick(row);
    });
}

}  // namespace foldertree

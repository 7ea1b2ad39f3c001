// BulkSelection: ticks or unticks many rows at once for the host.
#include "selection/BulkSelection.h"

#include <vector>

#include "automation/Text.h"
#include "common/RowWalk.h"

namespace foldertree {

template <class Visit>
void BulkSelection::ForEachPickRow(Visit&& visit) {
    const TreeGrid& grid = context_.grid;
    const auto isFolder = [&grid](int32_t row) {
        const std::string_view kind = grid.CellView(row, colRowKind);
        const auto is = [kind](std::string_view other) { return automation::EqualNoCase(kind, other); };
        return !is(rowKind::dummy) && !is(rowKind::store) && !is(rowKind::header);
    };
    ForEachRow(grid, isFolder, visit);
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
    Guarded(context_, errorLines::selectNone,
            [&] { RunPass(selection_, [&](CollectionPass& pass) { UntickAll(pass); }); });
}

void BulkSelection::UntickAll(CollectionPass& pass) {
    SelectionIndex index(pass);
    ForEachPickRow([&](int32_t row) {
        if (!IsTicked(row)) return;
        Untick(row);
        index.Remove(context_.grid.CellText(row, colKey));
    });
    index.Flush();
    if (!context_.state.multiSelect) {
        selection_.singleItem = nullptr;
        selection_.pickedInTree = false;
    }
    selection_.dirty = true;
}

void BulkSelection::SelectAll() {
    Guarded(context_, errorLines::selectAll, [&] {
        if (context_.state.multiSelect) RunPass(selection_, [&](CollectionPass& pass) { TickAll(pass); });
    });
}

void BulkSelection::TickAll(CollectionPass& pass) {
    SelectionIndex index(pass);
    int32_t high = selection_.GetHighIndex();
    ForEachPickRow([&](int32_t row) {
        if (!MayBePicked(row)) return;
        context_.grid.SetCellText(row, colSel, "-1");
        if (const SelItem item = index.Find(context_.grid.CellText(row, colKey)))
            item.SetSelected(true);
        else
            AddItemOfRow(index, row, high = SelectionSet::NextIndex(high));
    });
    pass.ThrowIfEnded();
    view_.ReIndex();
    selection_.dirty = true;
}

void BulkSelection::SelectByType(enuFTIItemType eType, bool bAdditional) {
    Guarded(context_, errorLines::selectByType,
            [&] { RunPass(selection_, [&](CollectionPass& pass) { TickByType(pass, eType, bAdditional); }); });
}

void BulkSelection::TickByType(CollectionPass& pass, enuFTIItemType type, bool additional) {
    int32_t high = additional ? selection_.GetHighIndex() : -1;
    bool changed = false;
    SelectionIndex index(pass);
    const auto pickOrTakeOut = [&](int32_t row) {
        const std::string key = context_.grid.CellText(row, colKey);
        const bool matches = context_.grid.CellValue(row, colItemType) == static_cast<double>(type) && MayBePicked(row);
        if (!matches) {
            if (additional) return;
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
        pass.ThrowIfEnded();
    };
    const auto error = Attempt([&] { ForEachPickRow(pickOrTakeOut); });
    // What was taken out before an error is out.
    index.Flush();
    if (error) throw *error;
    pass.ThrowIfEnded();
    const SelectionView::FoundRows found = changed ? view_.ReIndex() : SelectionView::FoundRows();
    pass.ThrowIfEnded();
    index.FollowKeys();
    if (!additional) UntickRowsWithoutItem(index, found);
    view_.ApplySelection(found);
    selection_.dirty = true;
}

void BulkSelection::UntickRowsWithoutItem(const SelectionIndex& index, const SelectionView::FoundRows& found) {
    // From here on no code of the host runs, so numbers will do.
    std::vector<bool> hasItem(static_cast<size_t>(context_.grid.RowCount()));
    for (const auto& each : found)
        if (const auto row = context_.grid.RowOf(each.row, each.number)) hasItem[static_cast<size_t>(*row)] = true;
    ForEachPickRow([&](int32_t row) {
        if (hasItem[static_cast<size_t>(row)] || !IsTicked(row) || !MayBePicked(row)) return;
        if (!index.Find(context_.grid.CellText(row, colKey))) Untick(row);
    });
}

}  // namespace foldertree

// SelectionView: shows the selection in the tree, and reads it back from there.
#include "selection/SelectionView.h"

#include "automation/Text.h"
#include "common/RowWalk.h"
#include "selection/Highlighting.h"
#include "selection/OrderedInsertion.h"

namespace foldertree {

void SelectionView::ApplySelection(const FoundRows& found) {
    Guarded(context_, errorLines::applySelection, [&] {
        const FlagSet busy(context_.state.gridBusy);
        if (!context_.state.multiSelect)
            ApplySingleItem();
        else
            RunPass(selection_, [&](CollectionPass& pass) { ApplyCollection(pass, found); });
        selection_.dirty = true;
    });
}

void SelectionView::ApplyCollection(CollectionPass& pass, const FoundRows& found) {
    if (!pass.HasCollection()) return;
    CollectionPass::Walk walk(pass);
    SelItem item;
    for (size_t position = 0; walk.Next(item); ++position) {
        const int32_t row = RowOfItem(item, position < found.size() ? &found[position] : nullptr);
        pass.ThrowIfEnded();
        if (row <= 0) continue;  // not in the tree, or the header row matched
        if (clsFolderTreeItem* const own = item.Own()) {
            if (own->Incomplete()) CompleteFromRow(*own, row);
            ShowTicked(row, own->Index());
        } else {
            ShowStranger(pass, item, row);
        }
    }
}

/// A stranger keeps what its host gave it; only our own items are completed.
void SelectionView::ShowStranger(CollectionPass& pass, const SelItem& stranger, int32_t row) {
    const RowHandle handle = context_.grid.HandleOf(row);
    const int32_t index = stranger.Index();
    pass.ThrowIfEnded();
    ShowTicked(RequireRow(context_.grid, handle, row), index);
}

void SelectionView::ShowTicked(int32_t row, int32_t index) {
    context_.grid.SetCellText(row, colIndex, std::to_string(index));
    Tick(row);
}

int32_t SelectionView::RowOfItem(const SelItem& item, const FoundRow* found) {
    const bool known = found != nullptr && item.Own() != nullptr && found->item == item.Ref();
    const std::optional<int32_t> row = known ? context_.grid.RowOf(found->row, found->number) : std::nullopt;
    return row ? *row : FindRowOf(item);
}

void SelectionView::ApplySingleItem() {
    TreeGrid& grid = context_.grid;
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) {
        if (grid.CellValue(row, colSel) == 0) continue;
        grid.SetCellText(row, colSel, "0");
        MarkSelection(row);
    }
    if (selection_.singleItem == nullptr) return;
    const ItemRef item = selection_.singleItem;
    const int32_t row = grid.FindRow(item->Key());
    if (row == -1) return;
    if (item->Incomplete()) CompleteFromRow(*item, row);
    Tick(row);
}

int32_t SelectionView::FindRowOf(const SelItem& item) {
    const TreeGrid& grid = context_.grid;
    const std::string key = item.Key();
    int32_t row = grid.FindRow(key);
    if (row == -1) row = grid.FindRow(item.KeyShortEntryID());
    if (row == -1) row = grid.FindRow(item.KeyAlternate());
    if (row == -1) row = grid.FindRow(key);
    return row;
}

void SelectionView::CompleteFromRow(clsFolderTreeItem& item, int32_t row) {
    TreeGrid& grid = context_.grid;
    item.SetItemType(static_cast<enuFTIItemType>(automation::RoundToLong(grid.CellValue(row, colItemType))));
    item.SetIsAddressList(!item.AddressListID().empty());
    item.SetName(grid.CellText(row, colName));
    item.SetPath(grid.CellText(row, colPath));
    item.SetIncomplete(false);
    item.SetEntryID(grid.CellText(row, colEntryID));
    item.SetEntryIDShort(grid.CellText(row, colEntryIDShort));
    item.SetStoreID(grid.CellText(row, colStoreID));
    item.SetAddressListID(grid.CellText(row, colAddressListID));
    // The host's record number travels the other way, from the item into the tree.
    grid.SetCellText(row, colFolderRecID, std::to_string(item.FolderRecID()));
}

void SelectionView::Tick(int32_t row) {
    context_.grid.SetCellText(row, colSel, "-1");
    MarkSelection(row);
}

void SelectionView::MarkSelection(int32_t row) {
    Guarded(context_, errorLines::markSelection, [&] {
        TreeGrid& grid = context_.grid;
        const int last = grid.ColCount() - 1;
        const bool ticked = grid.CellValue(row, colSel) != 0;
        grid.SetCellFormat(CellSetting::BackColor, row, colName, row, last, ticked ? colors::ticked : colors::window);
        // Bold is set from the first column but taken back only from the name on: the tick and number cells of a row
        // that was ticked once stay bold.
        if (ticked)
            grid.SetCellFormat(CellSetting::Bold, row, colSel, row, last, true);
        else if (!IsHighlighted(context_.state, grid.CellValue(row, colItemType)))
            grid.SetCellFormat(CellSetting::Bold, row, colName, row, last, false);
        if (!context_.state.multiSelect) return;
        grid.SetCellFormat(CellSetting::BackColor, row, colIndex, ticked ? colors::window : colors::buttonFace);
        if (!ticked) grid.SetCellText(row, colIndex, " ");
    });
}

SelectionView::FoundRows SelectionView::ReIndex() {
    FoundRows found;
    Guarded(context_, errorLines::reIndex, [&] {
        RunPass(selection_, [&](CollectionPass& pass) {
            if (!pass.HasCollection()) return;
            NumberItems(pass, found);
            pass.ThrowIfEnded();
            ApplySelection(found);
        });
    });
    return found;
}

void SelectionView::NumberItems(CollectionPass& pass, FoundRows& found) {
    CollectionPass::Walk walk(pass);
    SelItem item;
    int32_t n = 1;
    while (walk.Next(item)) {
        found.emplace_back();
        const bool selected = item.Selected();
        pass.ThrowIfEnded();
        if (!selected) continue;
        item.SetIndex(n);
        const int32_t row = context_.grid.FindRow(item.Key());
        pass.ThrowIfEnded();
        if (row != -1) {
            context_.grid.SetCellText(row, colIndex, std::to_string(n));
            found.back() = {item.Own() != nullptr ? item.Ref() : nullptr, context_.grid.HandleOf(row), row};
        }
        ++n;
    }
}

void SelectionView::RefreshSelection() {
    Guarded(context_, errorLines::refreshSelection,
            [&] { RunPass(selection_, [&](CollectionPass& pass) { ReadTicks(pass); }); });
}

void SelectionView::ReadTicks(CollectionPass& pass) {
    OrderedInsertion insertion(context_, selection_, pass);
    insertion.RemoveCompleteItems();
    const TreeGrid& grid = context_.grid;
    const auto isTicked = [&](int32_t row) { return context_.state.multiSelect && grid.CellValue(row, colSel) != 0; };
    ForEachRow(grid, isTicked, [&](int32_t row) {
        // A row whose key is taken is told and passed over; the rest of the selection must not get lost with it. Where
        // memory runs out the reading ends, and the next one starts anew from the ticks.
        auto error = Attempt([&] { insertion.InsertRow(row, grid); });
        ThrowIfOutOfMemory(error);
        if (error) context_.TraceError(errorLines::refreshSelection, *error);
    });
    pass.ThrowIfEnded();
    selection_.dirty = false;
}

}  // namespace foldertree

// TickEditing: what a tick, a typed position or a double click of the user does to the selection.
#include "selection/TickEditing.h"

#include <optional>

#include "automation/Text.h"
#include "interaction/RowActs.h"

namespace foldertree {

void TickEditing::fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) {
    Guarded(context_, errorLines::beforeEdit, [&] {
        if (context_.state.gridBusy) return;
        const bool editable = col == colSel || (col == colIndex && context_.state.Indexing());
        if (!editable || context_.grid.CellFormat(CellSetting::BackColor, row, col) == colors::buttonFace)
            cancel = true;
    });
}

void TickEditing::fgd_ValidateEdit(int32_t, int32_t col, bool& cancel) {
    Guarded(context_, errorLines::validateEdit, [&] {
        if (context_.state.gridBusy || col != colIndex) return;
        const std::optional<double> number = automation::ParseNumber(context_.grid.EditText());
        if (!context_.state.Indexing() || !number || *number <= 0) cancel = true;
    });
}

void TickEditing::fgd_AfterEdit(int32_t row, int32_t col) {
    Guarded(context_, errorLines::afterEdit, [&] {
        if (context_.state.gridBusy) return;
        view_.MarkSelection(row);
        if (col == colSel)
            AfterTick(row);
        else if (col == colIndex && context_.state.Indexing())
            AfterNumber(row);
    });
}

void TickEditing::AfterTick(int32_t number) {
    const RowHandle row = context_.grid.HandleOf(number);
    const bool ticked = context_.grid.CellValue(number, colSel) != 0;
    selection_.pickedInTree = false;
    // Also when another collection is assigned meanwhile, the user has ticked, and the host is told.
    RunPass(selection_, [&](CollectionPass& pass) {
        if (context_.state.multiSelect) {
            if (ticked)
                TickInCollection(pass, row);
            else
                UntickInCollection(Require(row));
            selection_.dirty = true;
        } else if (ticked) {
            TickAlone(Require(row));
        }
        pass.ThrowIfEnded();
        view_.ReIndex();
    });
    context_.RaiseChanged();
    TraceChange(number);
}

void TickEditing::TickInCollection(CollectionPass& pass, RowHandle row) {
    SelItem item = selection_.GetSelItemByKey(context_.grid.CellText(Require(row), colKey));
    if (item) {
        item.SetSelected(true);
    } else {
        item = SelItem(selection_.CreateSelItemFromRow(Require(row)));
        item.SetSelected(true);
        pass.Add(item, item.Key());
        item.SetIndex(SelectionSet::NextIndex(selection_.GetHighIndex()));
    }
    const int32_t index = item.Index();
    pass.ThrowIfEnded();
    context_.grid.SetCellText(Require(row), colIndex, std::to_string(index));
}

void TickEditing::UntickInCollection(int32_t row) {
    context_.grid.SetCellText(row, colIndex, " ");
    selection_.RemoveSelItemByKey(context_.grid.CellText(row, colKey));
}

void TickEditing::TickAlone(int32_t row) {
    TreeGrid& grid = context_.grid;
    selection_.pickedInTree = true;
    for (int32_t other = grid.FixedRowCount(); other < grid.RowCount(); ++other) {
        if (other == row || grid.CellValue(other, colSel) == 0) continue;
        grid.SetCellText(other, colSel, "0");
        view_.MarkSelection(other);
    }
    selection_.singleItem = selection_.CreateSelItemFromRow(row);
}

void TickEditing::AfterNumber(int32_t row) {
    RunPass(selection_, [&](CollectionPass& pass) {
        MoveItemOf(pass, row);
        pass.ThrowIfEnded();
        view_.ReIndex();
    });
    selection_.dirty = true;
    context_.RaiseChanged();
}

void TickEditing::MoveItemOf(CollectionPass& pass, int32_t row) {
    const SelItem item(selection_.CreateSelItemFromRow(row));
    const std::string key = item.Key();
    const SelItem old = selection_.RemoveSelItemByKey(key);
    auto error = Attempt([&] { AddByNumber(pass, item, key); });
    if (!error) return;
    // The new item could not be made room for; the old one must not get lost with it. Where there is no room for that
    // either, the next reading of the selection makes it anew from the row's tick.
    if (old && error->Number() == automation::errors::outOfMemory) {
        selection_.dirty = true;
        AddByNumber(pass, old, key);
    }
    throw automation::Error(std::move(*error));
}

void TickEditing::AddByNumber(CollectionPass& pass, const SelItem& item, const std::string& key) {
    const int32_t index = item.Index();
    std::optional<int32_t> before;
    CollectionPass::Walk walk(pass);
    SelItem other;
    // Only a higher number is passed, so a number equal to an existing one lands behind that item.
    while (!before && walk.Next(other))
        if (other.Index() > index) before = walk.Position();
    pass.Add(item, key, before);
}

// By number: these lines have always told of the row that stands there when the host has had its event.
void TickEditing::TraceChange(int32_t row) {
    const TreeGrid& grid = context_.grid;
    context_.Trace("Selection changed on");
    context_.Trace("  ", grid.CellText(row, colPath));
    context_.Trace(" SID = ", grid.CellText(row, colStoreID));
    context_.Trace(" EID = ", grid.CellText(row, colEntryID));
    context_.Trace(" EIDShort = ", grid.CellText(row, colEntryIDShort));
    context_.Trace(" AID = ", grid.CellText(row, colAddressListID));
}

void TickEditing::fgd_DblClick() {
    Guarded(context_, errorLines::dblClick, [&] {
        TreeGrid& grid = context_.grid;
        if (context_.state.gridBusy || grid.CurrentRow() < grid.FixedRowCount()) return;
        const RowHandle clicked = grid.HandleOf(grid.CurrentRow());
        TurnNode(grid, events_, grid.CurrentRow(), OtherNodeState(grid, grid.CurrentRow()));
        context_.ThrowIfClosed();
        const int32_t row = Require(clicked);
        // The last row of the grid is only opened and closed, never ticked.
        if (row >= grid.RowCount() - 1 || grid.RowOutlineLevel(row + 1) > grid.RowOutlineLevel(row)) return;
        // The box's before-edit check is not asked: a double click ticks a row whose box is painted as not editable.
        FlipTick(grid, row);
        fgd_AfterEdit(row, colSel);
    });
}

}  // namespace foldertree

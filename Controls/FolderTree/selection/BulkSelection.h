// BulkSelection: ticks or unticks many rows at once for the host.
#pragma once

#include <cstdint>

#include "common/ControlContext.h"
#include "common/Enumerations.h"
#include "selection/SelectionIndex.h"
#include "selection/SelectionSet.h"
#include "selection/SelectionView.h"

namespace foldertree {

/// None of these raises `Changed`: the event tells the host what the user did. Afterwards the selection is dirty.
class BulkSelection {
  public:
    BulkSelection(ControlContext& context, SelectionSet& selection, SelectionView& view)
        : context_(context), selection_(selection), view_(view) {}

    /// Items that match no row stay in the collection.
    void SelectNone();
    /// Does nothing in single-select.
    void SelectAll();
    /// Picks every folder of one type, instead of the pick or in addition to it.
    void SelectByType(enuFTIItemType eType, bool bAdditional);

  private:
    void UntickAll(CollectionPass& pass);
    void TickAll(CollectionPass& pass);
    void TickByType(CollectionPass& pass, enuFTIItemType type, bool additional);

    /// The rows that stand for something to pick: no store, heading or placeholder.
    template <class Visit>
    void ForEachPickRow(Visit&& visit);
    bool MayBePicked(int32_t row) const;
    bool IsTicked(int32_t row) const { return context_.grid.CellValue(row, colSel) != 0; }
    void Untick(int32_t row);
    /// Makes an item from the row, ticked and numbered, and adds it.
    void AddItemOfRow(SelectionIndex& index, int32_t row, int32_t number);
    /// `found` says of which rows an item is known already.
    void UntickRowsWithoutItem(const SelectionIndex& index, const SelectionView::FoundRows& found);

    ControlContext& context_;
    SelectionSet& selection_;
    SelectionView& view_;
};

}  // namespace foldertree

// SelectionView: shows the selection in the tree, and reads it back from there.
#pragma once

#include <cstdint>
#include <vector>

#include "common/ControlContext.h"
#include "selection/CollectionPass.h"
#include "selection/SelectionSet.h"

namespace foldertree {

class SelectionView {
  public:
    SelectionView(ControlContext& context, SelectionSet& selection) : context_(context), selection_(selection) {}

    /// The row that an item was found in a moment ago; saves looking for each item again when all are renumbered.
    struct FoundRow {
        automation::ObjectRef item;  ///< null for a stranger, and for an item that has no row
        RowHandle row;
        int32_t number = -1;  ///< the row's, then
    };
    using FoundRows = std::vector<FoundRow>;  ///< in the order of the collection; may be shorter

    /// Ticks, numbers and paints the rows of the selection and completes host-made items from them. Items without a row
    /// stay as they are; rows that are ticked without an item stay ticked.
    void ApplySelection(const FoundRows& found = {});
    /// Rebuilds the collection from the grid, ordered by the rows' numbers. Host-made items that the tree never matched
    /// stay.
    void RefreshSelection();
    /// Paints one row according to its tick.
    void MarkSelection(int32_t row);
    /// Numbers the ticked items 1, 2, … in collection order, writes the numbers into the grid, then applies the
    /// selection. Does nothing at all without a collection, so that single-select can untick. Returns where it found
    /// the items.
    FoundRows ReIndex();

  private:
    void ApplyCollection(CollectionPass& pass, const FoundRows& found);
    void ShowStranger(CollectionPass& pass, const SelItem& stranger, int32_t row);
    void ShowTicked(int32_t row, int32_t index);
    void NumberItems(CollectionPass& pass, FoundRows& found);
    void ReadTicks(CollectionPass& pass);
    void ApplySingleItem();
    /// The row of an item that was found before, if it is still there, else where the item is found now.
    int32_t RowOfItem(const SelItem& item, const FoundRow* found);
    int32_t FindRowOf(const SelItem& item);
    void CompleteFromRow(clsFolderTreeItem& item, int32_t row);
    void Tick(int32_t row);

    ControlContext& context_;
    SelectionSet& selection_;
};

}  // namespace foldertree

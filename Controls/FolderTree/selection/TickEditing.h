// TickEditing: what a tick, a typed position or a double click of the user does to the selection.
#pragma once

#include <cstdint>
#include <string>

#include "common/ControlContext.h"
#include "common/RowWalk.h"
#include "interaction/GridInteraction.h"
#include "selection/SelectionSet.h"
#include "selection/SelectionView.h"

namespace foldertree {

/// The handlers behind the grid's edit and double-click notifications. While the grid-busy flag is set they do nothing.
class TickEditing {
  public:
    /// `events` is asked before a double click opens or closes a node, as before any such gesture of the user.
    TickEditing(ControlContext& context, SelectionSet& selection, SelectionView& view, GridEvents& events)
        : context_(context), selection_(selection), view_(view), events_(events) {}

    void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel);
    void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel);
    void fgd_AfterEdit(int32_t row, int32_t col);
    void fgd_DblClick();

  private:
    void AfterTick(int32_t number);
    void TickInCollection(CollectionPass& pass, RowHandle row);
    void UntickInCollection(int32_t row);
    void TickAlone(int32_t row);
    void AfterNumber(int32_t row);
    /// Puts the row's item where its number says.
    void MoveItemOf(CollectionPass& pass, int32_t row);
    void AddByNumber(CollectionPass& pass, const SelItem& item, const std::string& key);
    void TraceChange(int32_t row);
    int32_t Require(RowHandle row) const { return RequireRow(context_.grid, row); }

    ControlContext& context_;
    SelectionSet& selection_;
    SelectionView& view_;
    GridEvents& events_;
};

}  // namespace foldertree

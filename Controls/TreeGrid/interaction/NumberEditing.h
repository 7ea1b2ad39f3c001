// NumberEditing: typing a row's number: when it may begin, when the text is offered, and what ends it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "interaction/GridEvents.h"
#include "interaction/GridView.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// At most one number is edited at a time. The edit stays with its row when rows come or go above it.
class NumberEditing {
  public:
    NumberEditing(TreeGrid& grid, GridEvents& events, GridView& view) : grid_(grid), events_(events), view_(view) {}

    /// Whether the box may open on the row's number (before-edit).
    bool MayOpen(int32_t row) { return AskToOpen(row).has_value(); }
    /// A text is offered: validate-edit; when accepted it is written, then after-edit. False when refused.
    bool Commit(int32_t row, std::string_view text);

    /// Opens the box on a ticked row's number; on any other row, or with the numbers hidden, nobody is even asked.
    void Open(int32_t row);
    /// The user is done: the text is offered. A refused one stays open so that it can be put right.
    void Accept();
    /// The user wants the number as it was.
    void GiveUp();
    /// Something else happens: the text is offered, and the box closes either way.
    void Finish();
    /// Closes the box where the row is gone, hidden or not to be edited any more; nothing is offered.
    void CloseWhereLost();

  private:
    std::optional<int32_t> AskToOpen(int32_t row);
    bool HasNumber(int32_t row) const;
    bool IsLost() const;
    bool Offer(NumberBox& box);
    void Close();

    TreeGrid& grid_;
    GridEvents& events_;
    GridView& view_;
    RowHandle row_;
    /// While a text is offered something may be shown that takes the focus, and a box that closes gives it back;
    /// neither ends the edit once more.
    bool ending_ = false;
};

}  // namespace foldertree

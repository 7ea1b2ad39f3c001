// NumberEditing: typing a row's number: when it may begin, when the text is offered, and what ends it.
#include "interaction/NumberEditing.h"

#include <algorithm>
#include <string>

#include "interaction/FlagSet.h"
#include "interaction/RowActs.h"

namespace foldertree {
namespace {

/// The grid shows the typed text to whoever validates it.
class OfferedText {
  public:
    OfferedText(TreeGrid& grid, std::string_view text) : grid_(grid) { grid_.SetEditText(text); }
    ~OfferedText() { grid_.SetEditText({}); }
    OfferedText(const OfferedText&) = delete;
    OfferedText& operator=(const OfferedText&) = delete;

  private:
    TreeGrid& grid_;
};

}  // namespace

bool NumberEditing::MayOpen(int32_t row) {
    return MayEdit(grid_, events_, row, colIndex);
}

bool NumberEditing::Commit(int32_t row, std::string_view text) {
    if (!TakesGesture(grid_, row)) return false;
    const std::string typed(text);
    bool cancel = false;
    {
        const OfferedText offered(grid_, typed);
        events_.fgd_ValidateEdit(row, colIndex, cancel);
    }
    if (cancel || !TakesGesture(grid_, row)) return false;
    grid_.SetCellText(row, colIndex, typed);
    events_.fgd_AfterEdit(row, colIndex);
    return true;
}

void NumberEditing::Open(int32_t row) {
    if (grid_.ColHidden(colIndex) || grid_.CellValue(row, colSel) == 0) return;
    Finish();
    if (!MayOpen(row) || !view_.Shown()) return;
    row_ = row;
    view_.OpenNumberBox(row, grid_.CellText(row, colIndex));
    if (view_.OpenedNumberBox() == nullptr) row_ = 0;
}

void NumberEditing::Accept() {
    NumberBox* box = view_.OpenedNumberBox();
    if (ending_ || box == nullptr) return;
    if (Offer(*box)) return Close();
    // It may be another one, or none, by now.
    if (NumberBox* open = view_.OpenedNumberBox()) open->SelectAll();
}

void NumberEditing::GiveUp() {
    if (!ending_) Close();
}

void NumberEditing::Finish() {
    NumberBox* box = view_.OpenedNumberBox();
    if (ending_ || box == nullptr) return;
    Offer(*box);
    Close();
}

void NumberEditing::CloseWhereLost() {
    const bool lost = row_ == 0 || !grid_.VisiblePosition(row_) || !grid_.Enabled();
    if (lost && view_.OpenedNumberBox() != nullptr) Close();
}

// A box that was opened and left as it was has changed nothing, so there is nothing to tell.
bool NumberEditing::Offer(NumberBox& box) {
    if (row_ == 0 || !box.Modified()) return true;
    const FlagSet ending(ending_);
    return Commit(row_, box.Text());
}

void NumberEditing::Close() {
    const FlagSet ending(ending_);
    row_ = 0;
    view_.CloseNumberBox();
}

void NumberEditing::RowsInserted(int32_t firstRow, int32_t count) {
    if (row_ >= firstRow) row_ += count;
}

void NumberEditing::RowsRemoved(int32_t firstRow, int32_t count) {
    if (row_ >= firstRow) row_ = row_ < firstRow + count ? 0 : row_ - count;
}

}  // namespace foldertree

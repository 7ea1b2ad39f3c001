// NumberEditing: typing a row's number: when it may begin, when the text is offered, and what ends it.
#include "interaction/NumberEditing.h"

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

std::optional<int32_t> NumberEditing::AskToOpen(int32_t row) {
    return AskToEdit(grid_, events_, row, grid_.Schema().number);
}

bool NumberEditing::Commit(int32_t row, std::string_view text) {
    const int number = grid_.Schema().number;
    if (number == GridSchema::none || !TakesGesture(grid_, row)) return false;
    const RowHandle handle = grid_.HandleOf(row);
    const std::string typed(text);
    bool cancel = false;
    {
        const OfferedText offered(grid_, typed);
        events_.fgd_ValidateEdit(row, number, cancel);
    }
    const std::optional<int32_t> now = grid_.RowOf(handle);
    if (cancel || !now || !grid_.Enabled()) return false;
    grid_.SetCellText(*now, number, typed);
    events_.fgd_AfterEdit(*now, number);
    return true;
}

void NumberEditing::Open(int32_t row) {
    if (!HasNumber(row)) return;
    // What ends before may move the row.
    const RowHandle handle = grid_.HandleOf(row);
    Finish();
    const std::optional<int32_t> still = grid_.RowOf(handle);
    const std::optional<int32_t> asked = still ? AskToOpen(*still) : std::nullopt;
    if (!asked || !view_.Shown()) return;
    row_ = handle;
    view_.OpenNumberBox(*asked, grid_.CellText(*asked, grid_.Schema().number));
    if (view_.OpenedNumberBox() == nullptr) row_ = {};
}

bool NumberEditing::HasNumber(int32_t row) const {
    const GridSchema& schema = grid_.Schema();
    if (schema.box == GridSchema::none || schema.number == GridSchema::none) return false;
    return !grid_.ColHidden(schema.number) && grid_.CellValue(row, schema.box) != 0;
}

void NumberEditing::Accept() {
    NumberBox* box = view_.OpenedNumberBox();
    if (ending_ || box == nullptr) return;
    if (Offer(*box)) return Close();
    // It may be another one, or none, by now.
    NumberBox* open = view_.OpenedNumberBox();
    if (open == nullptr) return;
    open->SelectAll();
    view_.TellRefusal();
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
    if (view_.OpenedNumberBox() != nullptr && IsLost()) Close();
}

bool NumberEditing::IsLost() const {
    const std::optional<int32_t> row = grid_.RowOf(row_);
    return !row || !grid_.VisiblePosition(*row) || !grid_.Enabled();
}

// A box that was opened and left as it was has changed nothing, so there is nothing to tell.
bool NumberEditing::Offer(NumberBox& box) {
    const std::optional<int32_t> row = grid_.RowOf(row_);
    if (!row || !box.Modified()) return true;
    const FlagSet ending(ending_);
    return Commit(*row, box.Text());
}

void NumberEditing::Close() {
    const FlagSet ending(ending_);
    row_ = {};
    view_.CloseNumberBox();
}

}  // namespace foldertree

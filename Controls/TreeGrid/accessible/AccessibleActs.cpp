// AccessibleActs: what assistive programs do to a row, by the ways that users have.
#include "accessible/AccessibleActs.h"

namespace foldertree {

ActResult AccessibleActs::DoAction(int32_t id) {
    if (tree_.RowOf(id) == 0) return ActResult::NoRow;
    if (host_.Busy()) return ActResult::Busy;
    ActResult result = ActResult::Done;
    const int32_t row = RowToActOn(id, result);
    if (row == 0) return result;
    // What was being typed may have started a load.
    if (host_.Busy()) return ActResult::Busy;
    switch (tree_.RowAction(row)) {
        case AccessibleAction::Check:
        case AccessibleAction::Uncheck:
            return Tick(row) ? ActResult::Done : ActResult::Refused;
        case AccessibleAction::Expand:
            return Turn(row, true) ? ActResult::Done : ActResult::Refused;
        case AccessibleAction::Collapse:
            return Turn(row, false) ? ActResult::Done : ActResult::Refused;
        case AccessibleAction::None:
            break;
    }
    return ActResult::NoAction;
}

ActResult AccessibleActs::Select(int32_t id) {
    ActResult result = ActResult::Done;
    const int32_t row = RowToActOn(id, result);
    if (row == 0) return result;
    grid_.SetCurrentRow(row);
    view_.BringIntoView(row);
    return ActResult::Done;
}

/// Where the row stands once the number that was being typed is done with; 0, and why, when nothing can be done to it.
int32_t AccessibleActs::RowToActOn(int32_t id, ActResult& result) {
    int32_t row = tree_.RowOf(id);
    result = row == 0 ? ActResult::NoRow : ActResult::Refused;
    if (row == 0 || !tree_.Available() || !tree_.PositionOf(row)) return 0;
    interaction_.Number().Finish();
    row = tree_.RowOf(id);
    result = row == 0 ? ActResult::NoRow : ActResult::Refused;
    return row != 0 && tree_.Available() && tree_.PositionOf(row) ? row : 0;
}

bool AccessibleActs::Tick(int32_t row) {
    grid_.SetCurrentRow(row);
    return interaction_.ToggleTick(row);
}

// Whoever is asked may take the row away or turn it by himself; only a node that stays as it was was refused.
bool AccessibleActs::Turn(int32_t row, bool open) {
    const RowHandle handle = grid_.HandleOf(row);
    interaction_.Press(row, GridPart::Glyph, false);
    const std::optional<int32_t> now = grid_.RowOf(handle);
    return !now || (grid_.NodeState(*now) == nodeExpanded) == open;
}

}  // namespace foldertree

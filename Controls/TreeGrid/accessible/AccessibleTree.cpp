// AccessibleTree: the grid as assistive programs see it, as data.
#include "accessible/AccessibleTree.h"

#include <algorithm>

#include "accessible/AccessibleTexts.h"
#include "interaction/CursorMoves.h"

namespace foldertree {
namespace {

constexpr size_t fewIds = 256;

std::string_view WithoutBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string_view TextOf(AccessibleAction action) {
    switch (action) {
        case AccessibleAction::Check:
            return accessibleTexts::check;
        case AccessibleAction::Uncheck:
            return accessibleTexts::uncheck;
        case AccessibleAction::Expand:
            return accessibleTexts::expand;
        case AccessibleAction::Collapse:
            return accessibleTexts::collapse;
        case AccessibleAction::None:
            break;
    }
    return {};
}

AccessibleTree::AccessibleTree(TreeGrid& grid, const RowHasBox& hasBox, const AccessibleView& view,
                               const AccessibleHost& host)
    : grid_(grid), hasBox_(hasBox), view_(view), host_(host), forgetAt_(fewIds) {
    grid_.AddObserver(this);
}

AccessibleTree::~AccessibleTree() {
    grid_.RemoveObserver(this);
}

void AccessibleTree::GridChanged(const GridChanges& changes) noexcept {
    if (changes.firstMoved != GridChanges::noRow) siblings_.Invalidate(changes.firstMoved);
    if (changes.levels) siblings_.Invalidate(changes.firstOutline);
    if (changes.emptied) ForgetGoneRows();
}

void AccessibleTree::ForgetGoneRows() noexcept {
    ids_.ForgetRows([this](RowHandle row) { return grid_.RowOf(row).has_value(); });
    forgetAt_ = std::max(fewIds, ids_.Count() * 2);
}

// ---- The grid

std::string AccessibleTree::Caption(int col) const {
    return col == GridSchema::none || grid_.FixedRowCount() == 0 ? std::string() : grid_.CellText(0, col);
}

std::string AccessibleTree::Name() const {
    const std::string caption = Caption(grid_.Schema().outline);
    std::string name = host_.DisplayName();
    if (name.empty()) name = caption;
    return name.empty() ? std::string(accessibleTexts::grid) : name;
}

std::string AccessibleTree::Description() const {
    const GridSchema& schema = grid_.Schema();
    std::string description;
    for (int col = 0; col < grid_.ColCount(); ++col) {
        const bool drawn = col == schema.box || col == schema.number || col == schema.outline;
        if (!drawn || grid_.ColHidden(col)) continue;
        const std::string caption = Caption(col);
        if (caption.empty()) continue;
        if (!description.empty()) description += ", ";
        description += caption;
    }
    return description;
}

AccessibleState AccessibleTree::State() const {
    AccessibleState state;
    state.focused = view_.Focused();
    state.unavailable = !Available();
    return state;
}

// ---- The children

int32_t AccessibleTree::RowAt(int32_t position) const {
    return position >= 0 && position < grid_.VisibleCount() ? grid_.VisibleRow(position) : 0;
}

int32_t AccessibleTree::IdOf(int32_t row) {
    if (ids_.Count() >= forgetAt_) ForgetGoneRows();
    return ids_.IdOf(grid_.HandleOf(row));
}

int32_t AccessibleTree::RowOf(int32_t id) {
    grid_.DeliverChanges();
    const std::optional<RowHandle> handle = ids_.RowOf(id);
    const std::optional<int32_t> row = handle ? grid_.RowOf(*handle) : std::nullopt;
    return row && *row >= grid_.FixedRowCount() ? *row : 0;
}

int32_t AccessibleTree::CursorRow() const {
    return foldertree::CursorRow(grid_);
}

// ---- One row

std::string AccessibleTree::RowName(int32_t row) const {
    const int col = grid_.Schema().outline;
    return col == GridSchema::none ? std::string() : grid_.CellText(row, col);
}

std::string AccessibleTree::RowValue(int32_t row) const {
    return std::to_string(grid_.RowOutlineLevel(row));
}

std::string AccessibleTree::RowDescription(int32_t row) const {
    const int col = grid_.Schema().number;
    const std::optional<int32_t> numbers = host_.Numbers();
    if (!numbers || col == GridSchema::none || !IsTicked(row)) return {};
    const std::string text = grid_.CellText(row, col);
    const std::string_view number = WithoutBlanks(text);
    if (number.empty()) return {};
    std::string description(accessibleTexts::number);
    description.append(number).append(accessibleTexts::ofNumbers);
    return description += std::to_string(*numbers);
}

bool AccessibleTree::IsTicked(int32_t row) const {
    const int col = grid_.Schema().box;
    return col != GridSchema::none && grid_.CellValue(row, col) != 0;
}

AccessibleState AccessibleTree::RowState(int32_t row) const {
    AccessibleState state;
    const bool node = HasSign(grid_, row);
    const bool open = grid_.NodeState(row) == nodeExpanded;
    state.selectable = true;
    state.selected = row == CursorRow();
    state.focused = state.selected && view_.Focused();
    state.checked = IsTicked(row);
    state.expanded = node && open;
    state.collapsed = node && !open;
    state.invisible = !IsShown(row);
    state.offscreen = !state.invisible && !view_.InView(row);
    state.unavailable = !Available();
    return state;
}

// A disabled row keeps its action, which is then refused.
AccessibleAction AccessibleTree::RowAction(int32_t row) const {
    if (!IsShown(row)) return AccessibleAction::None;
    if (BoxOf(grid_, hasBox_, row) == BoxKind::Plain)
        return IsTicked(row) ? AccessibleAction::Uncheck : AccessibleAction::Check;
    if (!HasSign(grid_, row)) return AccessibleAction::None;
    return grid_.NodeState(row) == nodeExpanded ? AccessibleAction::Collapse : AccessibleAction::Expand;
}

int32_t AccessibleTree::Neighbour(int32_t row, int32_t distance) const {
    return RowAt(*PositionOf(row) + distance);
}

int32_t AccessibleTree::StepFrom(int32_t row, AccessibleStep step) {
    if (!IsShown(row)) return 0;
    switch (step) {
        case AccessibleStep::Next:
            return Neighbour(row, 1);
        case AccessibleStep::Previous:
            return Neighbour(row, -1);
        case AccessibleStep::Parent:
            grid_.DeliverChanges();
            return siblings_.Parent(row);
        case AccessibleStep::FirstChild:
            return HasSign(grid_, row) && grid_.NodeState(row) == nodeExpanded ? row + 1 : 0;
    }
    return 0;
}

int32_t AccessibleTree::PositionInSet(int32_t row) {
    grid_.DeliverChanges();
    return siblings_.PositionInSet(row);
}

int32_t AccessibleTree::SizeOfSet(int32_t row) {
    grid_.DeliverChanges();
    return siblings_.SizeOfSet(row);
}

}  // namespace foldertree

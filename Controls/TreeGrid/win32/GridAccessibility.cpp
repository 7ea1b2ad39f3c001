// GridAccessibility: a grid's window as assistive programs see it: questions, acts and events.
#include "win32/GridAccessibility.h"

#include <oleacc.h>

#include <vector>

#include "win32/GridWindow.h"

namespace foldertree {
namespace {

LONG ToStateBits(const AccessibleState& state) {
    LONG bits = 0;
    const auto add = [&bits](bool is, LONG bit) { bits |= is ? bit : 0; };
    add(state.focusable, STATE_SYSTEM_FOCUSABLE);
    add(state.focused, STATE_SYSTEM_FOCUSED);
    add(state.selectable, STATE_SYSTEM_SELECTABLE);
    add(state.selected, STATE_SYSTEM_SELECTED);
    add(state.checked, STATE_SYSTEM_CHECKED);
    add(state.expanded, STATE_SYSTEM_EXPANDED);
    add(state.collapsed, STATE_SYSTEM_COLLAPSED);
    add(state.offscreen, STATE_SYSTEM_OFFSCREEN);
    add(state.invisible, STATE_SYSTEM_INVISIBLE);
    add(state.unavailable, STATE_SYSTEM_UNAVAILABLE);
    return bits;
}

DWORD ToEvent(AccessibleEvent::Kind kind) {
    switch (kind) {
        case AccessibleEvent::Kind::Reorder:
            return EVENT_OBJECT_REORDER;
        case AccessibleEvent::Kind::Selection:
            return EVENT_OBJECT_SELECTION;
        case AccessibleEvent::Kind::Focus:
            return EVENT_OBJECT_FOCUS;
        case AccessibleEvent::Kind::StateChange:
            return EVENT_OBJECT_STATECHANGE;
        case AccessibleEvent::Kind::DescriptionChange:
            break;
    }
    return EVENT_OBJECT_DESCRIPTIONCHANGE;
}

bool SomebodyListens() {
    for (const int event : {EVENT_OBJECT_REORDER, EVENT_OBJECT_SELECTION, EVENT_OBJECT_FOCUS, EVENT_OBJECT_STATECHANGE,
                            EVENT_OBJECT_DESCRIPTIONCHANGE})
        if (IsWinEventHookInstalled(static_cast<DWORD>(event))) return true;
    return false;
}

HRESULT ToResult(ActResult result) {
    switch (result) {
        case ActResult::Done:
            return S_OK;
        case ActResult::NoRow:
            return E_INVALIDARG;
        case ActResult::NoAction:
            return DISP_E_MEMBERNOTFOUND;
        case ActResult::Busy:
            return HRESULT_FROM_WIN32(ERROR_BUSY);
        case ActResult::Refused:
            break;
    }
    return E_ACCESSDENIED;
}

}  // namespace

GridAccessibility::GridAccessibility(const Parts& parts)
    : window_(parts.window),
      keeper_(parts.keeper),
      tree_(parts.grid, parts.hasBox, *this, parts.host),
      acts_(parts.grid, tree_, parts.interaction, parts.view, parts.host),
      events_(parts.grid, tree_, *this, parts.host),
      objects_(*this, parts.keeper) {}

// ---- Events

void GridAccessibility::SendEvents() noexcept {
    if (!HasEvents()) return;
    const Held held(keeper_);
    try {
        const HWND window = window_.Handle();
        if (window == nullptr || !SomebodyListens()) return events_.Drop();
        for (const AccessibleEvent& event : events_.Take()) {
            NotifyWinEvent(ToEvent(event.kind), window, OBJID_CLIENT, event.child);
            if (window_.Handle() != window) return;
        }
    } catch (...) {
        // Without memory it is told with a later frame.
    }
}

// ---- What can be seen

HWND GridAccessibility::Window() const {
    return window_.Handle();
}

bool GridAccessibility::Focused() const {
    return window_.Handle() != nullptr && GetFocus() == window_.Handle();
}

bool GridAccessibility::InView(int32_t row) const {
    const RECT place = PlaceOfRow(row);
    return !IsRectEmpty(&place);
}

void GridAccessibility::BringUpToDate() {
    window_.Refresh();
}

/// Over all columns, as far as it can be seen below the header.
RECT GridAccessibility::PlaceOfRow(int32_t row) const {
    const GridLayout& layout = window_.Layout();
    const std::optional<int32_t> position = tree_.PositionOf(row);
    RECT place{};
    // Far rows would have places beyond what a number holds.
    if (!position || *position < layout.TopPosition() || *position >= layout.TopPosition() + layout.ShownRows())
        return place;
    const RECT whole = layout.Row(*position);
    const RECT rows{0, layout.Metrics().headerHeight, layout.Client().cx, layout.Client().cy};
    IntersectRect(&place, &whole, &rows);
    return place;
}

RECT GridAccessibility::Place(LONG child) {
    if (child != CHILDID_SELF) return PlaceOfRow(tree_.RowOf(child));
    RECT client{};
    GetClientRect(window_.Handle(), &client);
    return client;
}

LONG GridAccessibility::ChildAtPoint(POINT point) {
    return IdOf(tree_.RowAt(window_.Layout().PositionAt(point.y).value_or(-1)));
}

// ---- What it is

std::string GridAccessibility::Name(LONG child) {
    return child == CHILDID_SELF ? tree_.Name() : tree_.RowName(tree_.RowOf(child));
}

std::string GridAccessibility::Value(LONG child) {
    return child == CHILDID_SELF ? std::string() : tree_.RowValue(tree_.RowOf(child));
}

std::string GridAccessibility::Description(LONG child) {
    return child == CHILDID_SELF ? tree_.Description() : tree_.RowDescription(tree_.RowOf(child));
}

LONG GridAccessibility::Role(LONG child) {
    return child == CHILDID_SELF ? ROLE_SYSTEM_OUTLINE : ROLE_SYSTEM_OUTLINEITEM;
}

LONG GridAccessibility::State(LONG child) {
    return ToStateBits(child == CHILDID_SELF ? tree_.State() : tree_.RowState(tree_.RowOf(child)));
}

LONG GridAccessibility::Step(LONG direction, LONG child) {
    const int32_t row = tree_.RowOf(child);
    switch (direction) {
        case NAVDIR_NEXT:
        case NAVDIR_DOWN:
            return IdOf(tree_.StepFrom(row, AccessibleStep::Next));
        case NAVDIR_PREVIOUS:
        case NAVDIR_UP:
            return IdOf(tree_.StepFrom(row, AccessibleStep::Previous));
        case NAVDIR_LEFT:
            return IdOf(tree_.StepFrom(row, AccessibleStep::Parent));
        case NAVDIR_RIGHT:
            return IdOf(tree_.StepFrom(row, AccessibleStep::FirstChild));
        default:
            return 0;
    }
}

// ---- Acts. They may leave no window behind.

std::string GridAccessibility::Action(LONG child) {
    return child == CHILDID_SELF ? std::string() : std::string(TextOf(tree_.RowAction(tree_.RowOf(child))));
}

HRESULT GridAccessibility::DoAction(LONG child) {
    if (child == CHILDID_SELF) return DISP_E_MEMBERNOTFOUND;
    const ActResult result = acts_.DoAction(child);
    window_.Refresh();
    return ToResult(result);
}

HRESULT GridAccessibility::Select(LONG flags, LONG child) {
    const bool focus = (flags & SELFLAG_TAKEFOCUS) != 0;
    const bool selection = (flags & SELFLAG_TAKESELECTION) != 0;
    const LONG others = flags & ~(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION);
    if (others != 0 || (!focus && !selection) || (child == CHILDID_SELF && selection)) return E_INVALIDARG;
    const bool available = tree_.Available();
    const ActResult result = child != CHILDID_SELF ? acts_.Select(child)
                             : available           ? ActResult::Done
                                                   : ActResult::Refused;
    window_.Refresh();
    if (focus && result == ActResult::Done) TakeKeyboard();
    return ToResult(result);
}

void GridAccessibility::TakeKeyboard() {
    const HWND window = window_.Handle();
    if (window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window)) SetFocus(window);
}

}  // namespace foldertree

// WaitPanelAccessibility: the wait panel as assistive programs see it: two texts, a progress bar and a button.
#include "win32/window/WaitPanelAccessibility.h"

#include <oleacc.h>

#include "accessible/AccessibleTexts.h"
#include "win32/window/WaitPanel.h"

namespace foldertree {

HWND WaitPanelAccessibility::Window() const {
    return panel_.Handle();
}

LONG WaitPanelAccessibility::ChildAtPoint(POINT point) {
    for (LONG child = label; child < end; ++child) {
        const RECT place = Place(child);
        if (PtInRect(&place, point)) return child;
    }
    return CHILDID_SELF;
}

LONG WaitPanelAccessibility::Step(LONG direction, LONG child) {
    if (direction == NAVDIR_NEXT || direction == NAVDIR_DOWN) return ChildAt(PositionOf(child) + 1);
    if (direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP) return ChildAt(PositionOf(child) - 1);
    return 0;
}

LONG WaitPanelAccessibility::Focus() {
    return panel_.CancelHasFocus() ? LONG{button} : 0;
}

// The label names the panel and what it stands above.
std::string WaitPanelAccessibility::Name(LONG child) {
    if (child == path) return panel_.Path();
    return child == button ? panel_.CancelCaption() : panel_.Label();
}

std::string WaitPanelAccessibility::Value(LONG child) {
    return child == bar ? std::to_string(panel_.Percent()) + "%" : std::string();
}

LONG WaitPanelAccessibility::Role(LONG child) {
    switch (child) {
        case label:
        case path:
            return ROLE_SYSTEM_STATICTEXT;
        case bar:
            return ROLE_SYSTEM_PROGRESSBAR;
        case button:
            return ROLE_SYSTEM_PUSHBUTTON;
        default:
            return ROLE_SYSTEM_DIALOG;
    }
}

LONG WaitPanelAccessibility::State(LONG child) {
    LONG state = panel_.Visible() ? 0 : STATE_SYSTEM_INVISIBLE;
    if (child == button) {
        state |= STATE_SYSTEM_FOCUSABLE;
        if (panel_.CancelHasFocus()) state |= STATE_SYSTEM_FOCUSED;
    } else if (child != CHILDID_SELF) {
        state |= STATE_SYSTEM_READONLY;
    }
    return state;
}

RECT WaitPanelAccessibility::Place(LONG child) {
    RECT client{};
    GetClientRect(panel_.Handle(), &client);
    const WaitPanelLayout& places = panel_.Layout();
    RECT place{};
    switch (child) {
        case label:
            place = places.label;
            break;
        case path:
            place = places.path;
            break;
        case bar:
            place = places.bar;
            break;
        case button:
            place = places.button;
            break;
        default:
            return client;
    }
    IntersectRect(&place, &place, &client);
    return place;
}

std::string WaitPanelAccessibility::Action(LONG child) {
    return child == button ? std::string(accessibleTexts::press) : std::string();
}

HRESULT WaitPanelAccessibility::DoAction(LONG child) {
    if (child != button) return DISP_E_MEMBERNOTFOUND;
    if (!panel_.Visible()) return E_ACCESSDENIED;
    panel_.Cancel();
    return S_OK;
}

}  // namespace foldertree

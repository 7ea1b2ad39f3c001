// WaitPanel: the panel with progress and Cancel that covers the middle of the control while it reads.
#include "win32/window/WaitPanel.h"

#include <algorithm>

#include "automation_win32/Module.h"
#include "win32/OffscreenBitmap.h"
#include "win32/PaintScope.h"
#include "win32/ShownText.h"

namespace foldertree {
namespace {

constexpr int cancelButton = 1;
constexpr SIZE panelSize{320, 122};  // at 96 dots per inch

void Fill(HDC dc, const RECT& area, int systemColor) {
    FillRect(dc, &area, GetSysColorBrush(systemColor));
}

void Text(HDC dc, RECT area, const std::string& text, UINT format) {
    // Windows may write the ellipsis into the buffer, hence a copy with room to spare.
    std::wstring wide = ShownText(text);
    DrawTextW(dc, wide.c_str(), static_cast<int>(wide.size()), &area,
              format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

}  // namespace

WaitPanel::WaitPanel(WindowKeeper& keeper, std::function<void()> cancel, std::function<void()> focusMoved)
    : Window(L"ctlFolderTree.WaitPanel", keeper),
      cancel_(std::move(cancel)),
      focusMoved_(std::move(focusMoved)),
      accessibility_(*this, keeper) {}

WaitPanel::~WaitPanel() {
    DestroyHandle();
    ReleaseFont();
}

HWND WaitPanel::Create(HWND parent) {
    if (CreateHandle(parent, {0, 0, 0, 0}, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT) ==
        nullptr)
        return nullptr;
    dpi_ = DpiOf(Handle());
    LoadFont();
    button_ = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY, 0, 0,
                              0, 0, Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(cancelButton)),
                              automation::ThisModule(), nullptr);
    SendMessageW(button_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    stale_ = captionsStale_ = true;
    Centre();
    Refresh();
    Show(visible_);
    return Handle();
}

void WaitPanel::OnHandleGone() {
    button_ = nullptr;
}

void WaitPanel::Centre() {
    if (Handle() == nullptr) return;
    RECT inner{};
    GetClientRect(GetParent(Handle()), &inner);
    const int width = std::min<int>(Scale(panelSize.cx, dpi_), inner.right);
    const int height = std::min<int>(Scale(panelSize.cy, dpi_), inner.bottom);
    SetWindowPos(Handle(), HWND_TOP, (inner.right - width) / 2, (inner.bottom - height) / 2, width, height,
                 SWP_NOACTIVATE);
    PlaceButton();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void WaitPanel::SetCaptions(std::string_view pleaseWait, std::string_view cancel) {
    pleaseWait_ = pleaseWait;
    cancelCaption_ = cancel;
    stale_ = captionsStale_ = true;
}

void WaitPanel::SetPath(std::string_view path) {
    path_ = path;
    stale_ = true;
}

void WaitPanel::SetProgress(double maximum, double value) {
    maximum_ = maximum;
    value_ = value;
    stale_ = true;
}

void WaitPanel::Show(bool visible) {
    const bool comes = visible && !visible_;
    if (comes) {
        // What the last load showed is over.
        SetPath({});
        SetProgress(1, 0);
    }
    visible_ = visible;
    if (Handle() == nullptr) return;
    if (visible) {
        Refresh();
        SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        if (comes) NotifyWinEvent(EVENT_SYSTEM_ALERT, Handle(), OBJID_CLIENT, CHILDID_SELF);
    } else {
        ShowWindow(Handle(), SW_HIDE);
    }
}

void WaitPanel::Refresh() {
    if (Handle() == nullptr || !stale_) return;
    if (captionsStale_) SetWindowTextW(button_, ShownText(cancelCaption_).c_str());
    stale_ = captionsStale_ = false;
    InvalidateRect(Handle(), nullptr, FALSE);
}

WaitPanel::Places WaitPanel::PlacesNow() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    return PlacesIn({client.right, client.bottom});
}

WaitPanel::Places WaitPanel::PlacesIn(SIZE client) const {
    const auto scaled = [this](int length) { return Scale(length, dpi_); };
    const int margin = scaled(14);
    const int right = client.cx - margin;
    Places places{};
    places.label = {margin, scaled(10), right, scaled(28)};
    places.path = {margin, scaled(30), right, scaled(48)};
    places.bar = {margin, scaled(55), right, scaled(69)};
    const int buttonWidth = std::min<int>(scaled(84), client.cx);
    places.button = {(client.cx - buttonWidth) / 2, scaled(82), (client.cx + buttonWidth) / 2, scaled(108)};
    return places;
}

void WaitPanel::LoadFont() {
    ReleaseFont();
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
}

void WaitPanel::ReleaseFont() {
    if (font_ != nullptr) DeleteObject(font_);
    font_ = nullptr;
}

void WaitPanel::PlaceButton() {
    const RECT place = PlacesNow().button;
    MoveWindow(button_, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

void WaitPanel::OnPaint() {
    Refresh();
    const PaintScope paint(Handle());
    RECT client{};
    GetClientRect(Handle(), &client);
    const OffscreenBitmap bitmap(paint.Dc(), {client.right, client.bottom});
    Paint(bitmap.Dc(), {client.right, client.bottom});
    bitmap.Show();
}

void WaitPanel::Paint(HDC dc, SIZE client) const {
    const RECT all{0, 0, client.cx, client.cy};
    Fill(dc, all, COLOR_BTNFACE);
    FrameRect(dc, &all, GetSysColorBrush(COLOR_BTNSHADOW));
    SetBkMode(dc, TRANSPARENT);
    const HGDIOBJ before = SelectObject(dc, font_);
    const Places places = PlacesIn(client);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    Text(dc, places.label, pleaseWait_, DT_END_ELLIPSIS);
    Text(dc, places.path, path_, DT_PATH_ELLIPSIS | DT_END_ELLIPSIS);
    SelectObject(dc, before);
    PaintBar(dc, places.bar);
}

void WaitPanel::PaintBar(HDC dc, RECT bar) const {
    Fill(dc, bar, COLOR_WINDOW);
    FrameRect(dc, &bar, GetSysColorBrush(COLOR_BTNSHADOW));
    InflateRect(&bar, -2, -2);
    bar.right = bar.left + static_cast<LONG>((bar.right - bar.left) * Fraction());
    if (bar.right > bar.left) Fill(dc, bar, COLOR_HIGHLIGHT);
}

double WaitPanel::Fraction() const {
    if (!(maximum_ > 0) || !(value_ > 0)) return 0;
    return std::min(1.0, value_ / maximum_);
}

void WaitPanel::OnButton(int notification) {
    if (notification == BN_CLICKED) cancel_();
    if (notification == BN_SETFOCUS || notification == BN_KILLFOCUS) focusMoved_();
}

LRESULT WaitPanel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_GETOBJECT:
            if (AccessibleWindow::Answers(lParam)) return accessibility_.Answer(wParam);
            break;
        case WM_COMMAND:
            if (LOWORD(wParam) == cancelButton) OnButton(HIWORD(wParam));
            return 0;
        default:
            break;
    }
    return Window::OnMessage(message, wParam, lParam);
}

}  // namespace foldertree

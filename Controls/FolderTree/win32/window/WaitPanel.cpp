// WaitPanel: the panel with progress and Cancel that covers the middle of the control while it reads.
#include "win32/window/WaitPanel.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>

#include "automation_win32/Module.h"
#include "common/ShownTexts.h"
#include "win32/GridFonts.h"
#include "win32/PaintScope.h"
#include "win32/ShownText.h"

namespace foldertree {
namespace {

constexpr int cancelButton = 1;
constexpr std::chrono::milliseconds beat{500};
constexpr int wholeBar = 100;

void MakeBarsKnown() {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
}

/// A path is shortened in its middle. Not where there is hardly room for the dots: there Wine's DrawText ends the
/// process.
UINT PathFormat(HDC dc, const RECT& area) {
    SIZE dots{};
    GetTextExtentPoint32W(dc, L"...", 3, &dots);
    return area.right - area.left < 4 * dots.cx ? DT_END_ELLIPSIS : DT_PATH_ELLIPSIS | DT_END_ELLIPSIS;
}

}  // namespace

WaitPanel::WaitPanel(WindowKeeper& keeper, std::function<void()> cancel, std::function<void()> focusMoved, Now now)
    : Window(L"ctlFolderTree.WaitPanel", keeper),
      cancel_(std::move(cancel)),
      focusMoved_(std::move(focusMoved)),
      now_(std::move(now)),
      cancellingText_(shownTexts::cancelling),
      beat_(beat),
      accessibility_(*this, keeper) {}

WaitPanel::~WaitPanel() {
    DestroyHandle();
    ReleaseFont();
}

// ---- The windows

HWND WaitPanel::Create(HWND parent, DWORD extendedStyle) {
    if (CreateHandle(parent, {0, 0, 0, 0}, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                     WS_EX_CONTROLPARENT | extendedStyle) == nullptr ||
        !MakeParts())
        return nullptr;
    captionsStale_ = pathStale_ = true;
    pathTold_ = false;
    toldPercent_ = 0;
    Place();
    Refresh();
    Show(visible_);
    return Handle();
}

bool WaitPanel::MakeParts() {
    MakeBarsKnown();
    label_ = MakePart(L"STATIC", SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS);
    pathText_ = MakePart(L"STATIC", SS_OWNERDRAW);
    bar_ = MakePart(PROGRESS_CLASSW, PBS_SMOOTH);
    button_ = MakePart(L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY);
    if (label_ == nullptr || pathText_ == nullptr || bar_ == nullptr || button_ == nullptr) return false;
    SetWindowLongPtrW(button_, GWLP_ID, cancelButton);
    SendMessageW(bar_, PBM_SETRANGE32, 0, wholeBar);
    return true;
}

HWND WaitPanel::MakePart(const wchar_t* className, DWORD style) {
    const HWND part = CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, Handle(), nullptr,
                                      automation::ThisModule(), nullptr);
    if (part != nullptr) SendMessageW(part, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    return part;
}

void WaitPanel::OnHandleGone() {
    label_ = pathText_ = bar_ = button_ = nullptr;
}

void WaitPanel::Place() {
    if (Handle() == nullptr) return;
    RECT inner{};
    GetClientRect(GetParent(Handle()), &inner);
    metrics_.buttonTextWidth = ButtonTextWidth();
    layout_ = WaitPanelLayout::For({inner.right, inner.bottom}, metrics_);
    const Rect& panel = layout_.panel;
    SetWindowPos(Handle(), HWND_TOP, panel.left, panel.top, panel.Width(), panel.Height(), SWP_NOACTIVATE);
    const std::pair<HWND, Rect> parts[] = {
        {label_, layout_.label}, {pathText_, layout_.path}, {bar_, layout_.bar}, {button_, layout_.button}};
    for (const auto& [part, place] : parts)
        if (part != nullptr) MoveWindow(part, place.left, place.top, place.Width(), place.Height(), TRUE);
    if (Handle() != nullptr) InvalidateRect(Handle(), nullptr, FALSE);
}

void WaitPanel::Follow(HFONT font, int dpi) {
    LOGFONTW description{};
    if (GetObjectW(font, sizeof description, &description) == 0) return;
    if (dpi == metrics_.dpi && std::memcmp(&description, &fontDescription_, sizeof description) == 0) return;
    const HFONT copy = CreateFontIndirectW(&description);
    if (copy == nullptr) return;
    for (const HWND part : {label_, pathText_, bar_, button_})
        if (part != nullptr) SendMessageW(part, WM_SETFONT, reinterpret_cast<WPARAM>(copy), TRUE);
    ReleaseFont();
    font_ = copy;
    fontDescription_ = description;
    metrics_.dpi = dpi;
    metrics_.lineHeight = LineHeightOf(copy);
    Place();
}

void WaitPanel::ReleaseFont() {
    if (font_ != nullptr) DeleteObject(font_);
    font_ = nullptr;
}

int WaitPanel::ButtonTextWidth() const {
    const std::wstring caption = ShownText(cancelCaption_);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, font_ != nullptr ? font_ : GetStockObject(DEFAULT_GUI_FONT));
    SIZE size{};
    GetTextExtentPoint32W(dc, caption.c_str(), static_cast<int>(caption.size()), &size);
    SelectObject(dc, before);
    DeleteDC(dc);
    return size.cx;
}

// ---- What it shows

void WaitPanel::SetCaptions(std::string_view pleaseWait, std::string_view cancel) {
    pleaseWait_ = pleaseWait;
    cancelCaption_ = cancel;
    captionsStale_ = true;
}

void WaitPanel::SetPath(std::string_view path) {
    path_ = path;
    pathStale_ = true;
    pathTold_ = false;
}

void WaitPanel::SetProgress(double maximum, double value) {
    maximum_ = maximum;
    value_ = value;
}

int WaitPanel::Percent() const {
    if (!(maximum_ > 0) || !(value_ > 0)) return 0;
    return static_cast<int>(std::min(1.0, value_ / maximum_) * wholeBar);
}

void WaitPanel::Show(bool visible) {
    const bool comes = visible && !visible_;
    if (comes) {
        // What the last load showed is over.
        SetPath({});
        SetProgress(1, 0);
        beat_.Restart();
    }
    captionsStale_ = captionsStale_ || cancelling_;
    cancelling_ = false;
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

// A provider may hold the thread for long before the load can end, so the panel does not wait for its next frame. The
// load is to end first, which needs no memory.
void WaitPanel::Cancel() {
    cancelling_ = captionsStale_ = true;
    cancel_();
    Refresh();
    if (Handle() != nullptr) UpdateWindow(label_);
}

void WaitPanel::Refresh() {
    if (Handle() == nullptr) return;
    if (captionsStale_) {
        const std::wstring label = ShownText(Label());
        const std::wstring caption = ShownText(cancelCaption_);
        captionsStale_ = false;
        SetWindowTextW(label_, label.c_str());
        SetWindowTextW(button_, caption.c_str());
        Place();
    }
    if (!pathStale_) return;
    pathStale_ = false;
    InvalidateRect(pathText_, nullptr, FALSE);
}

bool WaitPanel::HasNews() const {
    return Handle() != nullptr && visible_ && (!pathTold_ || toldPercent_ != Percent());
}

void WaitPanel::Tell() {
    if (!HasNews() || !beat_.Due(now_())) return;
    const std::wstring path = ShownText(path_);
    const int percent = Percent();
    const bool moved = toldPercent_ != percent;
    beat_.Drawn(now_());
    pathTold_ = true;
    toldPercent_ = percent;
    SetWindowTextW(pathText_, path.c_str());
    SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(percent), 0);
    if (moved && Handle() != nullptr)
        NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Handle(), OBJID_CLIENT, WaitPanelAccessibility::bar);
}

void WaitPanel::OnButton(int notification) {
    if (notification == BN_CLICKED) Cancel();
    if (notification == BN_SETFOCUS || notification == BN_KILLFOCUS) focusMoved_();
}

// ---- Painting

void WaitPanel::OnPaint() {
    const PaintScope paint(Handle());
    RECT all{};
    GetClientRect(Handle(), &all);
    FillRect(paint.Dc(), &all, GetSysColorBrush(COLOR_BTNFACE));
    for (int line = std::max(1, Scale(1, metrics_.dpi)); line > 0; --line, InflateRect(&all, -1, -1))
        FrameRect(paint.Dc(), &all, GetSysColorBrush(COLOR_BTNSHADOW));
}

// It changes with each folder, so it is drawn from here: a text of its own would be told to assistive programs each
// time.
void WaitPanel::PaintPath(const DRAWITEMSTRUCT& item) const {
    RECT area = item.rcItem;
    FillRect(item.hDC, &area, GetSysColorBrush(COLOR_BTNFACE));
    const std::wstring path = ShownText(path_);
    const HGDIOBJ before = SelectObject(item.hDC, font_ != nullptr ? font_ : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(item.hDC, path.c_str(), static_cast<int>(path.size()), &area,
              PathFormat(item.hDC, area) | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SelectObject(item.hDC, before);
}

LRESULT WaitPanel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_DRAWITEM:
            PaintPath(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
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

// ControlWindow: the control's own window, with the grid and the wait panel in it.
#include "win32/window/ControlWindow.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "common/ShownTexts.h"
#include "ctlFolderTree.h"
#include "enumeration/FolderRows.h"
#include "win32/window/MessagePump.h"
#include "win32/window/TiledPicture.h"

namespace foldertree {
namespace {

constexpr UINT_PTR frameTimer = 1;

/// The thickness of the frame around the control.
int Border(int dpi) {
    return std::max(1, dpi / usualDpi);
}

void FrameLines(HDC dc, RECT frame, int thickness) {
    for (int line = 0; line < thickness; ++line, InflateRect(&frame, -1, -1))
        FrameRect(dc, &frame, GetSysColorBrush(COLOR_BTNSHADOW));
}

/// Takes a window down again that could not be completed, for want of memory or because its parent went.
class HalfMade {
  public:
    explicit HalfMade(Window& window) : window_(window) {}
    ~HalfMade() {
        if (!complete_) window_.DestroyHandle();
    }
    HalfMade(const HalfMade&) = delete;
    HalfMade& operator=(const HalfMade&) = delete;
    void Complete() { complete_ = true; }

  private:
    Window& window_;
    bool complete_ = false;
};

/// The placeholder of a node that was not read yet is no row that can be chosen.
bool CanBeTicked(const TreeGrid& grid, int32_t row) {
    return !IsRowKind(grid, row, rowKind::dummy);
}

/// Opening such a node reads nothing.
bool IsRead(const TreeGrid& grid, int32_t row) {
    return grid.CellValue(row, colIncomplete) == 0;
}

}  // namespace

ControlWindow::ControlWindow(ctlFolderTree& control, WindowKeeper& keeper)
    : ControlWindow(
          ControlParts{control.Grid(), control, [&control] { control.cmdCancel_Click(); }, CanBeTicked, IsRead,
                       [&control] { return control.Refreshing(); }, [&control] { return control.Numbers(); }},
          keeper) {}

ControlWindow::ControlWindow(ControlParts parts, WindowKeeper& keeper)
    : Window(L"ctlFolderTree", keeper),
      parts_(std::move(parts)),
      grid_({parts_.grid, parts_.events, icons_, parts_.hasBox, L"ctlFolderTree.Grid", parts_.isRead, *this,
             parts_.highContrast, parts_.dpi, std::string(shownTexts::numberRule)},
            keeper, [this] { NoteStale(); }),
      panel_(
          keeper, parts_.cancel, [this] { OnFocusMoved(); }, parts_.now) {
    grid_.SetFocusHandler([this] { OnFocusMoved(); });
}

ControlWindow::~ControlWindow() {
    grid_.AbandonEdit();
    DestroyHandle();
}

HWND ControlWindow::Create(HWND parent, const RECT& place) {
    if (Handle() != nullptr) return Handle();
    timerRuns_ = false;
    // Tab finds what is inside: a host that is a dialog asks this window for what it has to stop at.
    if (CreateHandle(parent, place, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT) ==
        nullptr)
        return nullptr;
    HalfMade half(*this);
    RECT inner{};
    GetClientRect(Handle(), &inner);
    if (grid_.Create(Handle(), inner, direction_) == nullptr) return nullptr;
    if (frame_ != Border(grid_.Dpi())) TakeBorder();
    panel_.Follow(grid_.Font(), grid_.Dpi());
    if (panel_.Create(Handle(), direction_) == nullptr) return nullptr;
    SetUserMode(userMode_);
    half.Complete();
    return Handle();
}

// In a host that is read from right to left the system would mirror this window and what is drawn in it. The grid and
// the panel do that for themselves; here all is in the middle.
void ControlWindow::TakeDirection() {
    const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_EXSTYLE);
    direction_ = static_cast<DWORD>(style & WS_EX_LAYOUTRTL);
    if (direction_ != 0) SetWindowLongPtrW(Handle(), GWL_EXSTYLE, style & ~LONG_PTR{WS_EX_LAYOUTRTL});
}

void ControlWindow::Destroy() {
    DestroyHandle();
    OnFocusMoved();
}

void ControlWindow::Move(const RECT& place) {
    if (Handle() == nullptr) return;
    MoveWindow(Handle(), place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

void ControlWindow::OnHandleGone() {
    timerRuns_ = false;
    OnFocusMoved();
    if (goneHandler_) goneHandler_();
}

// ---- The wait panel

void ControlWindow::ShowWaitPanel(bool visible) {
    if (visible)
        input_.Answered(GetTickCount());
    else
        DropBlockedInput();
    const HWND focus = GetFocus();
    const bool focusInPanel = panel_.Handle() != nullptr && focus != nullptr && IsChild(panel_.Handle(), focus);
    panel_.Show(visible);
    // The Cancel button that the user pressed takes the focus with it into hiding.
    if (!visible && focusInPanel && Handle() != nullptr) SetFocus(grid_.Handle());
    FlushPaint();
}

void ControlWindow::SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel) {
    panel_.SetCaptions(pleaseWait, cancel);
    NoteStale();
}

void ControlWindow::SetProgressText(std::string_view path) {
    panel_.SetPath(path);
    ShowWhenDue();
}

void ControlWindow::SetProgress(double maximum, double value) {
    panel_.SetProgress(maximum, value);
    ShowWhenDue();
}

// ---- Frames

void ControlWindow::NoteStale() {
    if (Handle() == nullptr || timerRuns_) return;
    timerRuns_ = SetTimer(Handle(), frameTimer, static_cast<UINT>(FrameClock::frame.count()), nullptr) != 0;
}

void ControlWindow::ShowWhenDue() {
    if (Handle() == nullptr) return;
    if (clock_.Due())
        DrawFrame();
    else
        NoteStale();
}

void ControlWindow::DrawFrame() {
    if (timerRuns_) KillTimer(Handle(), frameTimer);
    timerRuns_ = false;
    grid_.Refresh();
    if (Handle() != nullptr && frame_ != Border(grid_.Dpi())) TakeBorder();
    panel_.Follow(grid_.Font(), grid_.Dpi());
    panel_.Refresh();
    if (Handle() == nullptr) return;
    UpdateWindow(grid_.Handle());
    RedrawWindow(panel_.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    clock_.Drawn();
    panel_.Tell();
    grid_.SendEvents();
    // While a load runs the grid's wait for its end, and progress is not told more often than can be followed.
    if (grid_.HasEvents() || panel_.HasNews()) NoteStale();
}

// The frame belongs to the window's edge, which the system asks about again.
void ControlWindow::TakeBorder() {
    SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void ControlWindow::FlushPaint() {
    if (Handle() == nullptr) return;
    UpdateWindow(Handle());
    if (Handle() != nullptr) DrawFrame();
}

void ControlWindow::FontChanged() {
    grid_.ReloadFont();
}

// ---- Input

void ControlWindow::SetUserMode(bool userMode) {
    userMode_ = userMode;
    if (Handle() != nullptr) EnableWindow(Handle(), userMode);
}

bool ControlWindow::IsMine(HWND window) const {
    return Handle() != nullptr && window != nullptr && (window == Handle() || IsChild(Handle(), window));
}

// Called once too often rather than too seldom: a window that is destroyed need not hear that it lost the focus.
void ControlWindow::OnFocusMoved() {
    const bool inside = IsMine(GetFocus());
    if (std::exchange(focusInside_, inside) != inside && focusHandler_) focusHandler_(inside);
}

bool ControlWindow::PumpMessages() {
    DropBlockedInput();
    const bool goesOn = PumpWaitingMessages([this](MSG& message) { return TranslateAccelerator(message); });
    input_.Answered(GetTickCount());
    return goesOn;
}

void ControlWindow::DropBlockedInput() {
    const DWORD now = GetTickCount();
    if (panel_.Visible() && input_.Blocked(now)) grid_.DropInput(input_.Since(), now);
}

bool ControlWindow::TranslateAccelerator(MSG& message) {
    if (Handle() == nullptr || !userMode_) return false;
    const bool escape = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    if (escape && panel_.Visible() && GetAncestor(message.hwnd, GA_ROOT) == GetAncestor(Handle(), GA_ROOT)) {
        panel_.Cancel();
        return true;
    }
    if (!IsMine(message.hwnd)) return false;
    // It was to cancel a load that ended meanwhile, not to close the host's dialog.
    if (escape && grid_.Drops(message.time)) return true;
    if (!grid_.WantsKey(message)) return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

void ControlWindow::SetBusyPointer(bool busy) {
    if (busy_ == busy) return;
    busy_ = busy;
    POINT point{};
    if (Handle() == nullptr || !GetCursorPos(&point)) return;
    const HWND under = WindowFromPoint(point);
    if (IsMine(under)) SetPointer(under);
}

// The hourglass stands everywhere but on the Cancel button, which can be pressed all the time.
bool ControlWindow::SetPointer(HWND under) {
    const bool onButton = under == panel_.CancelButton();
    SetCursor(LoadCursorW(nullptr, busy_ && !onButton ? IDC_WAIT : IDC_ARROW));
    return true;
}

// ---- Painting

void ControlWindow::PaintBorder() {
    const HDC dc = GetWindowDC(Handle());
    RECT frame{};
    GetWindowRect(Handle(), &frame);
    OffsetRect(&frame, -frame.left, -frame.top);
    FrameLines(dc, frame, frame_);
    ReleaseDC(Handle(), dc);
}

HRESULT ControlWindow::Draw(HDC dc, const RECT& bounds) {
    return Draw(dc, bounds, PictureScale::For(dc, nullptr, bounds, {0, 0}), nullptr);
}

// By way of bitmaps, so that printers and metafiles with units of their own get the picture of the screen.
HRESULT ControlWindow::Draw(HDC dc, const RECT& bounds, const PictureScale& scale,
                            const std::function<bool()>& goesOn) {
    const SIZE pixels = scale.pixels;
    if (pixels.cx <= 0 || pixels.cy <= 0) return E_INVALIDARG;
    const int border = Border(scale.dpi);
    const SIZE inner{std::max<LONG>(0, pixels.cx - 2 * border), std::max<LONG>(0, pixels.cy - 2 * border)};
    const GridWindow::Picture grid(grid_, inner, scale.dpi);
    const auto paint = [&](HDC tile, POINT origin) {
        SetViewportOrgEx(tile, origin.x + border, origin.y + border, nullptr);
        grid.Paint(tile);
        SetViewportOrgEx(tile, origin.x, origin.y, nullptr);
        FrameLines(tile, {0, 0, pixels.cx, pixels.cy}, border);
    };
    return DrawInTiles(dc, bounds, {pixels, paint, goesOn});
}

LRESULT ControlWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            TakeDirection();
            break;
        case WM_NCCALCSIZE: {
            auto* area = reinterpret_cast<RECT*>(lParam);
            frame_ = Border(grid_.Dpi());
            InflateRect(area, -frame_, -frame_);
            area->right = std::max(area->right, area->left);
            area->bottom = std::max(area->bottom, area->top);
            return 0;
        }
        case WM_NCPAINT:
            PaintBorder();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_SIZE: {
            RECT inner{};
            GetClientRect(Handle(), &inner);
            if (grid_.Handle() != nullptr) MoveWindow(grid_.Handle(), 0, 0, inner.right, inner.bottom, TRUE);
            panel_.Place();
            NoteStale();
            return 0;
        }
        case WM_TIMER:
            if (wParam == frameTimer) DrawFrame();
            return 0;
        case WM_SETFOCUS:
            if (grid_.Handle() != nullptr) SetFocus(grid_.Handle());
            return 0;
        case WM_CONTEXTMENU:
            // The container knows this window and none of those inside.
            return Window::OnMessage(message, reinterpret_cast<WPARAM>(Handle()), lParam);
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT) break;
            // An open editor keeps its own pointer.
            if (!busy_ && reinterpret_cast<HWND>(wParam) != grid_.Handle()) break;
            SetPointer(reinterpret_cast<HWND>(wParam));
            return TRUE;
        default:
            break;
    }
    return Window::OnMessage(message, wParam, lParam);
}

}  // namespace foldertree

// GridWindow: shows the tree grid's visible rows and turns mouse and keyboard into its gestures.
#include "win32/GridWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <limits>

#include "automation/Text.h"
#include "automation_win32/Bstr.h"
#include "interaction/CursorMoves.h"
#include "win32/Clipboard.h"
#include "win32/KeyMeanings.h"
#include "win32/OffscreenBitmap.h"
#include "win32/PaintScope.h"
#include "win32/ShownText.h"

namespace foldertree {
namespace {

/// The place of a context menu that was asked for with the keyboard.
constexpr LPARAM noPlace = -1;

/// WM_DPICHANGED_AFTERPARENT, which the headers for older systems do not name: the screen under the window has another
/// resolution now.
constexpr UINT dpiChanged = 0x02E3;

/// Whether the message is something that a user did to the grid.
bool IsInput(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_CONTEXTMENU:
        case WM_NCLBUTTONDOWN:  // on a scroll bar
        case WM_NCLBUTTONDBLCLK:
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
        case WM_KEYDOWN:
        case WM_CHAR:
            return true;
        default:
            return false;
    }
}

}  // namespace

GridWindow::GridWindow(GridWindowParts parts, WindowKeeper& keeper, std::function<void()> stale)
    : Window(parts.className, keeper),
      grid_(parts.grid),
      hasBox_(std::move(parts.hasBox)),
      pictures_(parts.pictures),
      interaction_(grid_, parts.events, *this, hasBox_, std::move(parts.isRead)),
      stale_(std::move(stale)),
      highContrast_(std::move(parts.highContrast)),
      askDpi_(std::move(parts.dpi)),
      numberRule_(std::move(parts.numberRule)),
      accessibility_({*this, keeper, grid_, hasBox_, interaction_, *this, parts.accessibleHost}) {
    grid_.AddObserver(this);
}

GridWindow::~GridWindow() {
    editor_.reset();
    DestroyHandle();
    grid_.RemoveObserver(this);
}

HWND GridWindow::Create(HWND parent, const RECT& place, DWORD extendedStyle) {
    pictureStale_ = countStale_ = true;
    const HWND handle = CreateHandle(
        parent, place, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL,
        extendedStyle);
    accessibility_.WindowCame();
    if (handle != nullptr) Refresh();
    return handle;
}

// A window of a host that is read from right to left comes mirrored by the system, with all that is drawn in it. The
// layout does that itself, since a picture that is drawn beforehand would come out in mirror writing.
void GridWindow::TakeDirection() {
    const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_EXSTYLE);
    mirrored_ = (style & WS_EX_LAYOUTRTL) != 0;
    if (mirrored_) SetWindowLongPtrW(Handle(), GWL_EXSTYLE, (style & ~LONG_PTR{WS_EX_LAYOUTRTL}) | WS_EX_LEFTSCROLLBAR);
}

void GridWindow::OnHandleGone() {
    hoveredRow_ = {};
    pointerInside_ = false;
    nameTip_.Hide();
    refusalTip_.Hide();
    editor_.reset();
}

// ---- What the grid tells

void GridWindow::GridChanged(const GridChanges& changes) noexcept {
    const bool rows = changes.firstMoved != GridChanges::noRow || changes.firstOutline != GridChanges::noRow;
    // A tree that is filled anew starts at its beginning.
    if (changes.emptied) {
        topRow_ = {};
        left_ = widestName_ = 0;
    }
    if (changes.appearance) fontLoaded_ = false;
    countStale_ = countStale_ || rows;
    pictureStale_ = pictureStale_ || AreInView(changes);
    accessibility_.Note(changes);
    if (Handle() != nullptr && (countStale_ || pictureStale_ || HasEvents())) stale_();
}

bool GridWindow::AreInView(const GridChanges& changes) const {
    if (changes.columns || changes.appearance || changes.cursor) return true;
    if (MayBeInView(std::min(changes.firstMoved, changes.firstOutline))) return true;
    const bool header = changes.firstChanged < grid_.FixedRowCount();
    return header || (MayBeInView(changes.firstChanged) && changes.lastChanged >= firstShownRow_);
}

// The row behind the last one counts too: it decides whether the last one has something to open.
bool GridWindow::MayBeInView(int32_t firstRow) const {
    return firstRow != GridChanges::noRow && (!viewFull_ || firstRow <= lastShownRow_ + 1);
}

// ---- Painting

void GridWindow::Refresh() {
    grid_.DeliverChanges();
    if (Handle() == nullptr || (!pictureStale_ && !countStale_)) return;
    interaction_.Number().CloseWhereLost();
    // A grid that is switched off loses the focus, and the host may end the control when it hears of that.
    EnableWindow(Handle(), grid_.Enabled());
    // A window that was moved to another screen may have another resolution there.
    if (Handle() != nullptr && dpi_ != SaneDpi(askDpi_(Handle()))) fontLoaded_ = false;
    // Nor is the font object the grid's own code.
    if (Handle() != nullptr) LoadFontOnce();
    if (Handle() == nullptr) return;
    Measure();
    UpdateScrollBars();
    if (pictureStale_) InvalidateRect(Handle(), nullptr, FALSE);
    pictureStale_ = countStale_ = false;
}

void GridWindow::ReloadFont() {
    GridChanges changes;
    changes.appearance = true;
    GridChanged(changes);
}

void GridWindow::LoadFontOnce() {
    if (fontLoaded_) return;
    dpi_ = SaneDpi(askDpi_(Handle()));
    const automation::ObjectRef font = grid_.Font();  // the host may set another one while this one is read
    fonts_.Load(font, dpi_);
    fontLoaded_ = true;
    widestName_ = 0;
}

void GridWindow::Measure() {
    RECT client{};
    GetClientRect(Handle(), &client);
    const int32_t count = grid_.VisibleCount();
    const GridLayout atTop = MeasureGrid(grid_, fonts_, dpi_, {client.right, client.bottom}, 0);
    int32_t position = 0;
    if (const auto top = grid_.RowOf(topRow_)) {
        position = grid_.VisiblePosition(grid_.VisibleAncestor(*top)).value_or(0);
    } else if (topRow_ != RowHandle()) {
        position = layout_.TopPosition();
    }
    position = std::clamp(position, 0, std::max(0, count - atTop.FullRows()));
    if (position != layout_.TopPosition()) pictureStale_ = true;
    topRow_ = count > 0 ? grid_.HandleOf(grid_.VisibleRow(position)) : RowHandle();
    layout_ = position == 0 ? atTop : MeasureGrid(grid_, fonts_, dpi_, {client.right, client.bottom}, position);
    MeasureNames();
}

void GridWindow::MeasureNames() {
    if (grid_.VisibleCount() == 0) widestName_ = 0;
    widestName_ = std::max(widestName_, WidestName(grid_, fonts_, layout_));
    layout_.ScrollSideways(widestName_, left_);
    layout_.SetMirrored(mirrored_);
    if (left_ != layout_.Left()) pictureStale_ = true;
    left_ = layout_.Left();
}

// A scroll bar that comes or goes changes the window's size, and with it the layout; hence one after the other.
void GridWindow::UpdateScrollBars() {
    UpdateScrollBar(SB_VERT, grid_.VisibleCount() - 1, layout_.FullRows(), layout_.TopPosition());
    if (Handle() == nullptr) return;
    UpdateScrollBar(SB_HORZ, layout_.ContentWidth() - 1, layout_.Client().cx, FromLeft(layout_.Left()));
}

// The scroll bar counts from its left end, the layout from where the columns begin.
int GridWindow::FromLeft(int left) const {
    return mirrored_ ? layout_.MostLeft() - left : left;
}

void GridWindow::UpdateScrollBar(int bar, int last, int page, int position) {
    SCROLLINFO wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    wanted.nMax = std::max(0, last);
    wanted.nPage = static_cast<UINT>(page);
    wanted.nPos = position;
    SCROLLINFO now = wanted;
    GetScrollInfo(Handle(), bar, &now);
    const bool same = now.nMin == 0 && now.nMax == wanted.nMax && now.nPage == wanted.nPage && now.nPos == wanted.nPos;
    if (!same) SetScrollInfo(Handle(), bar, &wanted, TRUE);
}

void GridWindow::OnPaint() {
    Refresh();
    if (Handle() == nullptr) return;
    const PaintScope paint(Handle());
    pictureStale_ = true;  // until it is painted: what fails on the way is painted with the next frame
    const OffscreenBitmap bitmap(paint.Dc(), layout_.Client());
    PaintGrid(bitmap.Dc(), PictureOf(layout_, fonts_, GetFocus() == Handle()));
    bitmap.Show();
    pictureStale_ = false;
    NoteShownRows();
}

GridPicture GridWindow::PictureOf(const GridLayout& layout, const GridFonts& fonts, bool focused) const {
    return {grid_, layout, fonts, pictures_, hasBox_, focused, highContrast_(), grid_.RowOf(hoveredRow_).value_or(0)};
}

void GridWindow::NoteShownRows() {
    const int32_t count = grid_.VisibleCount();
    const int32_t end = layout_.TopPosition() + layout_.ShownRows();
    viewFull_ = count >= end;
    firstShownRow_ = count > 0 ? grid_.VisibleRow(layout_.TopPosition()) : 0;
    lastShownRow_ = count > 0 ? grid_.VisibleRow(std::min(count, end) - 1) : 0;
}

GridWindow::Picture::Picture(GridWindow& window, SIZE area, int dpi) : window_(window) {
    window.grid_.DeliverChanges();
    const automation::ObjectRef font = window.grid_.Font();  // the host may set another one while this one is read
    fonts_.Load(font, dpi);
    layout_ = MeasureGrid(window.grid_, fonts_, dpi, area, window.layout_.TopPosition());
    layout_.SetMirrored(window.mirrored_);
}

void GridWindow::Picture::Paint(HDC dc) const {
    GridPicture picture = window_.PictureOf(layout_, fonts_, false);
    picture.hoveredRow = 0;  // a page has no pointer on it
    PaintGrid(dc, picture);
}

// ---- Scrolling

void GridWindow::ScrollTo(int64_t position) {
    const int64_t last = std::max(0, grid_.VisibleCount() - layout_.FullRows());
    const auto target = static_cast<int32_t>(std::clamp<int64_t>(position, 0, last));
    if (target == layout_.TopPosition() || grid_.VisibleCount() == 0) return;
    interaction_.Number().Finish();
    if (Handle() == nullptr || grid_.VisibleCount() == 0) return;
    topRow_ = grid_.HandleOf(grid_.VisibleRow(std::min(target, grid_.VisibleCount() - 1)));
    pictureStale_ = true;
    Refresh();
}

void GridWindow::OnScroll(int request) {
    const int64_t top = layout_.TopPosition();
    switch (request) {
        case SB_LINEUP:
            return ScrollTo(top - 1);
        case SB_LINEDOWN:
            return ScrollTo(top + 1);
        case SB_PAGEUP:
            return ScrollTo(top - layout_.FullRows());
        case SB_PAGEDOWN:
            return ScrollTo(top + layout_.FullRows());
        case SB_TOP:
            return ScrollTo(0);
        case SB_BOTTOM:
            return ScrollTo(std::numeric_limits<int32_t>::max());
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return ScrollTo(ThumbPosition(SB_VERT));
        default:
            return;
    }
}

// The message itself carries 16 bits only.
int GridWindow::ThumbPosition(int bar) const {
    SCROLLINFO thumb{};
    thumb.cbSize = sizeof thumb;
    thumb.fMask = SIF_TRACKPOS;
    GetScrollInfo(Handle(), bar, &thumb);
    return thumb.nTrackPos;
}

void GridWindow::ScrollSidewaysTo(int left) {
    left = std::clamp(left, 0, layout_.MostLeft());
    if (left == layout_.Left()) return;
    interaction_.Number().Finish();
    left_ = left;
    pictureStale_ = true;
    Refresh();
}

void GridWindow::OnSidewaysScroll(int request) {
    const int from = FromLeft(layout_.Left());
    const int line = layout_.Metrics().indent;
    const auto scrollTo = [this](int to) { ScrollSidewaysTo(FromLeft(to)); };
    switch (request) {
        case SB_LINELEFT:
            return scrollTo(from - line);
        case SB_LINERIGHT:
            return scrollTo(from + line);
        case SB_PAGELEFT:
            return scrollTo(from - layout_.Client().cx);
        case SB_PAGERIGHT:
            return scrollTo(from + layout_.Client().cx);
        case SB_LEFT:
            return scrollTo(0);
        case SB_RIGHT:
            return scrollTo(layout_.MostLeft());
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return scrollTo(ThumbPosition(SB_HORZ));
        default:
            return;
    }
}

void GridWindow::OnWheel(int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) lines = static_cast<UINT>(layout_.FullRows());
    wheelRest_ += delta * static_cast<int>(lines);
    const int rows = wheelRest_ / WHEEL_DELTA;
    wheelRest_ %= WHEEL_DELTA;
    ScrollTo(static_cast<int64_t>(layout_.TopPosition()) - rows);
}

// One notch is three steps, as it is three rows; to the right is positive.
void GridWindow::OnSidewaysWheel(int delta) {
    const int by = 3 * layout_.Metrics().indent * delta / WHEEL_DELTA;
    ScrollSidewaysTo(layout_.Left() + (mirrored_ ? -by : by));
}

// ---- What gestures ask for

void GridWindow::BringIntoView(int32_t row) {
    Refresh();
    const auto position = grid_.VisiblePosition(row);
    if (!position) return;
    if (*position < layout_.TopPosition())
        ScrollTo(*position);
    else if (*position >= layout_.TopPosition() + layout_.FullRows())
        ScrollTo(static_cast<int64_t>(*position) - layout_.FullRows() + 1);
}

void GridWindow::Scroll(GridScroll scroll) {
    switch (scroll) {
        case GridScroll::Up:
            return OnScroll(SB_LINEUP);
        case GridScroll::Down:
            return OnScroll(SB_LINEDOWN);
        case GridScroll::PageUp:
            return OnScroll(SB_PAGEUP);
        case GridScroll::PageDown:
            return OnScroll(SB_PAGEDOWN);
        case GridScroll::Top:
            return OnScroll(SB_TOP);
        case GridScroll::Bottom:
            return OnScroll(SB_BOTTOM);
        case GridScroll::Left:
            return OnSidewaysScroll(SB_LINELEFT);
        case GridScroll::Right:
            return OnSidewaysScroll(SB_LINERIGHT);
    }
}

void GridWindow::Copy(const std::string& text) {
    CopyToClipboard(Handle(), text);
}

void GridWindow::OpenNumberBox(int32_t row, const std::string& text) {
    BringIntoView(row);
    if (!layout_.Stays()) ScrollSidewaysTo(0);
    const auto position = grid_.VisiblePosition(row);
    if (Handle() == nullptr || !position) return;
    editor_ = std::make_unique<NumberEditor>(Handle(), layout_.Cell(*position, shownNumber), fonts_.Plain(), text,
                                             grid_.CellText(0, grid_.Schema().number));
    if (editor_->Handle() != nullptr)
        SetFocus(editor_->Handle());
    else
        editor_.reset();
}

void GridWindow::TellRefusal() {
    MessageBeep(MB_ICONWARNING);
    if (numberRule_.empty()) return;
    RECT place{};
    GetWindowRect(editor_->Handle(), &place);
    refusalTip_.Show(Handle(), ShownText(numberRule_), {(place.left + place.right) / 2, place.bottom},
                     Scale(400, dpi_));
}

void GridWindow::CloseNumberBox() {
    refusalTip_.Hide();
    if (!editor_) return;
    // The focus stays in the control: the host is not told that it left and came back.
    if (GetFocus() == editor_->Handle()) SetFocus(Handle());
    editor_.reset();
}

// ---- The row under the pointer

void GridWindow::OnPointerMoved(POINT point) {
    if (!pointerInside_) {
        TRACKMOUSEEVENT wanted{sizeof wanted, TME_LEAVE | TME_HOVER, Handle(), HOVER_DEFAULT};
        pointerInside_ = TrackMouseEvent(&wanted) != FALSE;
    }
    const auto position = layout_.PositionAt(point.y);
    const bool onRow = position && *position < grid_.VisibleCount();
    Hover(onRow ? grid_.HandleOf(grid_.VisibleRow(*position)) : RowHandle());
}

void GridWindow::Hover(RowHandle row) {
    if (row == hoveredRow_) return;
    hoveredRow_ = row;
    nameTip_.Hide();
    pictureStale_ = true;
    stale_();
    TRACKMOUSEEVENT again{sizeof again, TME_HOVER, Handle(), HOVER_DEFAULT};
    if (row != RowHandle()) TrackMouseEvent(&again);
}

// A name that is cut is shown in full, where it begins.
void GridWindow::OnPointerRests() {
    const auto row = grid_.RowOf(hoveredRow_);
    const auto position = row ? grid_.VisiblePosition(*row) : std::nullopt;
    if (!position || *position < layout_.TopPosition() || ShowsWholeName(grid_, fonts_, layout_, *position)) return;
    const Rect cell = layout_.Cell(*position, shownName);
    const Rect text = layout_.NameText(cell, grid_.RowOutlineLevel(*row), true);
    POINT point{std::clamp(text.left, 0, layout_.Client().cx), text.bottom};
    ClientToScreen(Handle(), &point);
    nameTip_.Show(Handle(), ShownText(grid_.CellText(*row, grid_.Schema().outline)), point, Scale(600, dpi_));
}

void GridWindow::OnPointerLeft() {
    pointerInside_ = false;
    Hover({});
}

// ---- Which gesture it was

// Whatever a gesture calls may take the window away, so it is asked for before the gesture goes on.

void GridWindow::DropInput(DWORD from, DWORD to) {
    dropFrom_ = from;
    dropTo_ = to;
}

// Message times wrap around.
bool GridWindow::Drops(DWORD time) const {
    return static_cast<int32_t>(time - dropFrom_) > 0 && static_cast<int32_t>(time - dropTo_) <= 0;
}

// The character of a dropped key gets a time of its own, so it goes the way of its key.
bool GridWindow::IsDropped(UINT message) {
    if (!IsInput(message)) return false;
    if (message == WM_CHAR) return dropCharacters_;
    const bool dropped = Drops(static_cast<DWORD>(GetMessageTime()));
    if (message == WM_KEYDOWN) dropCharacters_ = dropped;
    return dropped;
}

void GridWindow::OnMouse(UINT message, POINT point) {
    interaction_.Number().Finish();
    if (Handle() != nullptr) SetFocus(Handle());
    if (Handle() == nullptr || !grid_.Enabled()) return;
    Refresh();
    const auto position = layout_.PositionAt(point.y);
    if (Handle() == nullptr || !position || *position >= grid_.VisibleCount()) return;
    const int32_t row = grid_.VisibleRow(*position);
    const bool main = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    const GridPart part = main ? layout_.PartAt(point, grid_.RowOutlineLevel(row)) : GridPart::Row;
    interaction_.Press(row, part, message == WM_LBUTTONDBLCLK);
    Refresh();
}

void GridWindow::OnKey(WPARAM key, bool repeated) {
    const std::optional<GridKey> meaning = MeaningOf(key);
    if (!meaning || !grid_.Enabled()) return;
    Refresh();
    if (Handle() == nullptr) return;
    interaction_.Press(*meaning, repeated);
    Refresh();
}

void GridWindow::OnCharacter(wchar_t unit) {
    std::wstring units(1, unit);
    if (firstUnit_ != 0 && IS_LOW_SURROGATE(unit)) units.insert(0, 1, firstUnit_);
    firstUnit_ = IS_HIGH_SURROGATE(unit) ? unit : L'\0';
    if (firstUnit_ != 0) return;
    size_t start = 0;
    interaction_.Type(automation::NextCharacter(automation::FromWide(units), start));
    Refresh();
}

// The container hears of the menu, and where it is to stand: Windows tells the place only if it was asked for by mouse.
LRESULT GridWindow::OnContextMenu(WPARAM window, LPARAM place) {
    const bool byKey = GET_X_LPARAM(place) == -1 && GET_Y_LPARAM(place) == -1;
    return Window::OnMessage(WM_CONTEXTMENU, window, byKey ? MenuPlace() : place);
}

LPARAM GridWindow::MenuPlace() {
    const int32_t row = CursorRow(grid_);
    if (row == 0) return noPlace;
    BringIntoView(row);
    const auto position = grid_.VisiblePosition(row);
    if (Handle() == nullptr || !position) return noPlace;
    const RECT name = layout_.Cell(*position, shownName);
    const Rect text = layout_.NameText(name, grid_.RowOutlineLevel(row), true);
    POINT point{std::clamp(mirrored_ ? text.right : text.left, 0, layout_.Client().cx), (name.top + name.bottom) / 2};
    ClientToScreen(Handle(), &point);
    return MAKELPARAM(point.x, point.y);
}

void GridWindow::OnFocusCame() {
    accessibility_.FocusCame();
    stale_();
    OnFocusMoved();
}

void GridWindow::OnFocusMoved() {
    InvalidateRect(Handle(), nullptr, FALSE);
    if (focusHandler_) focusHandler_();
}

void GridWindow::OnEditor(NumberEditor::Event event) {
    NumberEditing& number = interaction_.Number();
    refusalTip_.Hide();
    switch (event) {
        case NumberEditor::Event::Enter:
            number.Accept();
            return Refresh();
        case NumberEditor::Event::Escape:
            number.GiveUp();
            return Refresh();
        case NumberEditor::Event::FocusLeft:
            number.Finish();
            return OnFocusMoved();
        case NumberEditor::Event::FocusCame:
            return OnFocusMoved();
        case NumberEditor::Event::Typed:
            return;
    }
}

// ---- Messages

bool GridWindow::WantsKey(const MSG& message) const {
    if (editor_ && message.hwnd == editor_->Handle()) return true;
    if (message.hwnd != Handle()) return false;
    // Enter, Esc and Tab are characters, too, and the container's.
    if (message.message == WM_CHAR) return message.wParam >= L' ';
    if (message.message != WM_KEYDOWN && message.message != WM_KEYUP) return false;
    return IsSignKey(message.wParam) || MeaningOf(message.wParam).has_value();
}

LRESULT GridWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsInput(message)) nameTip_.Hide();
    if (IsDropped(message)) return 0;
    switch (message) {
        case WM_NCCREATE:
            TakeDirection();
            break;
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_SIZE:
            pictureStale_ = true;
            Refresh();
            return 0;
        case WM_VSCROLL:
            OnScroll(LOWORD(wParam));
            return 0;
        case WM_HSCROLL:
            OnSidewaysScroll(LOWORD(wParam));
            return 0;
        case WM_MOUSEWHEEL:
            if ((GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) != 0)
                OnSidewaysWheel(-GET_WHEEL_DELTA_WPARAM(wParam));
            else
                OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_MOUSEHWHEEL:
            OnSidewaysWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            OnMouse(message, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_MOUSEMOVE:
            OnPointerMoved({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_MOUSEHOVER:
            OnPointerRests();
            return 0;
        case WM_MOUSELEAVE:
            OnPointerLeft();
            return 0;
        case WM_KEYDOWN:
            OnKey(wParam, (lParam & (1 << 30)) != 0);
            return 0;
        case WM_CHAR:
            OnCharacter(static_cast<wchar_t>(wParam));
            return 0;
        case WM_KEYUP:
            if (wParam != VK_APPS) break;
            SendMessageW(Handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Handle()), noPlace);
            return 0;
        case WM_CONTEXTMENU:
            return OnContextMenu(wParam, lParam);
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_GETOBJECT:
            if (AccessibleWindow::Answers(lParam)) return accessibility_.Answer(wParam);
            return Window::OnMessage(message, wParam, lParam);
        case WM_SETFOCUS:
            OnFocusCame();
            return 0;
        case WM_KILLFOCUS:
            OnFocusMoved();
            return 0;
        case NumberEditor::eventMessage:
            OnEditor(static_cast<NumberEditor::Event>(wParam));
            return 0;
        case dpiChanged:
            pictureStale_ = true;
            Refresh();
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        default:
            break;
    }
    return Window::OnMessage(message, wParam, lParam);
}

}  // namespace foldertree

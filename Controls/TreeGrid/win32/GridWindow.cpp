// GridWindow: shows the tree grid's visible rows and turns mouse and keyboard into its gestures.
#include "win32/GridWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <limits>

#include "interaction/FlagSet.h"
#include "rows/GridColumns.h"
#include "win32/GridPainter.h"

namespace foldertree {
namespace {

bool IsPlaceholder(const TreeGrid& grid, int32_t row) {
    return BoxOf(grid, row) == BoxKind::None;
}

}  // namespace

GridWindow::GridWindow(TreeGrid& grid, GridEvents& events, WindowKeeper& keeper, std::function<void()> stale)
    : Window(L"ctlFolderTree.Grid", keeper), grid_(grid), events_(events), stale_(std::move(stale)) {
    grid_.AddObserver(this);
}

GridWindow::~GridWindow() {
    editor_.reset();
    DestroyHandle();
    grid_.RemoveObserver(this);
}

HWND GridWindow::Create(HWND parent, const RECT& place) {
    pictureStale_ = countStale_ = true;
    const HWND handle = CreateHandle(
        parent, place, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL);
    if (handle != nullptr) Refresh();
    return handle;
}

void GridWindow::OnHandleGone() {
    editor_.reset();
}

// ---- What the grid tells

void GridWindow::GridChanged(const GridChanges& changes) noexcept {
    const bool rows = changes.firstMoved != GridChanges::noRow || changes.firstOutline != GridChanges::noRow;
    if (changes.emptied) {
        widestName_ = 0;
        topRow_ = {};
    }
    if (changes.appearance) fontLoaded_ = false;
    countStale_ = countStale_ || rows;
    pictureStale_ = pictureStale_ || AreInView(changes);
    if (Handle() != nullptr && (countStale_ || pictureStale_)) stale_();
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
    if (editor_ && (!IsShown(editedRow_) || !grid_.Enabled())) CloseEditor();
    // A grid that is switched off loses the focus, and the host may end the control when it hears of that.
    EnableWindow(Handle(), grid_.Enabled());
    if (Handle() == nullptr) return;
    Measure();
    UpdateScrollBars();
    if (pictureStale_) InvalidateRect(Handle(), nullptr, FALSE);
    pictureStale_ = countStale_ = false;
}

bool GridWindow::IsShown(RowHandle handle) const {
    const auto row = grid_.RowOf(handle);
    return row && grid_.VisiblePosition(*row);
}

void GridWindow::ReloadFont() {
    GridChanges changes;
    changes.appearance = true;
    GridChanged(changes);
}

void GridWindow::LoadFontOnce() {
    if (fontLoaded_) return;
    fonts_.Load(grid_.Font(), DpiOf(Handle()));
    fontLoaded_ = true;
    widestName_ = 0;
}

void GridWindow::Measure() {
    LoadFontOnce();
    RECT client{};
    GetClientRect(Handle(), &client);
    const int32_t count = grid_.VisibleCount();
    const GridLayout atTop = MeasureGrid(grid_, fonts_, DpiOf(Handle()), {client.right, client.bottom}, 0);
    int32_t position = 0;
    if (const auto top = grid_.RowOf(topRow_)) {
        position = grid_.VisiblePosition(grid_.VisibleAncestor(*top)).value_or(0);
    } else if (topRow_ != RowHandle()) {
        position = layout_.TopPosition();
    }
    position = std::clamp(position, 0, std::max(0, count - atTop.FullRows()));
    if (position != layout_.TopPosition()) pictureStale_ = true;
    topRow_ = count > 0 ? grid_.HandleOf(grid_.VisibleRow(position)) : RowHandle();
    layout_ =
        position == 0 ? atTop : MeasureGrid(grid_, fonts_, DpiOf(Handle()), {client.right, client.bottom}, position);
    MeasureNames();
}

void GridWindow::MeasureNames() {
    if (grid_.VisibleCount() == 0) widestName_ = 0;
    widestName_ = std::max(widestName_, WidestName(grid_, fonts_, layout_));
    layout_.ScrollSideways(widestName_, left_);
    if (left_ != layout_.Left()) pictureStale_ = true;
    left_ = layout_.Left();
}

// A scroll bar that comes or goes changes the window's size, and with it the layout; hence one after the other.
void GridWindow::UpdateScrollBars() {
    UpdateScrollBar(SB_VERT, grid_.VisibleCount() - 1, layout_.FullRows(), layout_.TopPosition());
    if (Handle() != nullptr) UpdateScrollBar(SB_HORZ, layout_.ContentWidth() - 1, layout_.Client().cx, layout_.Left());
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
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(Handle(), &paint);
    const SIZE client = layout_.Client();
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, std::max<int>(1, client.cx), std::max<int>(1, client.cy));
    const HGDIOBJ before = SelectObject(memory, bitmap);
    PaintGrid(memory, {grid_, layout_, fonts_, icons_, GetFocus() == Handle()});
    BitBlt(dc, 0, 0, client.cx, client.cy, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    EndPaint(Handle(), &paint);

    const int32_t count = grid_.VisibleCount();
    const int32_t end = layout_.TopPosition() + layout_.ShownRows();
    viewFull_ = count >= end;
    firstShownRow_ = count > 0 ? grid_.VisibleRow(layout_.TopPosition()) : 0;
    lastShownRow_ = count > 0 ? grid_.VisibleRow(std::min(count, end) - 1) : 0;
}

void GridWindow::Draw(HDC dc, SIZE area) {
    grid_.DeliverChanges();
    LoadFontOnce();
    const GridLayout layout = MeasureGrid(grid_, fonts_, DpiOf(Handle()), area, layout_.TopPosition());
    PaintGrid(dc, {grid_, layout, fonts_, icons_, false});
}

// ---- Scrolling

void GridWindow::ScrollTo(int64_t position) {
    const int64_t last = std::max(0, grid_.VisibleCount() - layout_.FullRows());
    const auto target = static_cast<int32_t>(std::clamp<int64_t>(position, 0, last));
    if (target == layout_.TopPosition() || grid_.VisibleCount() == 0) return;
    FinishEdit();
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
    const int last = layout_.ContentWidth() - layout_.Client().cx;
    left = std::clamp(left, 0, std::max(0, last));
    if (left == layout_.Left()) return;
    FinishEdit();
    left_ = left;
    pictureStale_ = true;
    Refresh();
}

void GridWindow::OnSidewaysScroll(int request) {
    const int left = layout_.Left();
    const int line = layout_.Metrics().indent;
    switch (request) {
        case SB_LINELEFT:
            return ScrollSidewaysTo(left - line);
        case SB_LINERIGHT:
            return ScrollSidewaysTo(left + line);
        case SB_PAGELEFT:
            return ScrollSidewaysTo(left - layout_.Client().cx);
        case SB_PAGERIGHT:
            return ScrollSidewaysTo(left + layout_.Client().cx);
        case SB_LEFT:
            return ScrollSidewaysTo(0);
        case SB_RIGHT:
            return ScrollSidewaysTo(layout_.ContentWidth());
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return ScrollSidewaysTo(ThumbPosition(SB_HORZ));
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
    ScrollSidewaysTo(layout_.Left() + 3 * layout_.Metrics().indent * delta / WHEEL_DELTA);
}

void GridWindow::BringIntoView(int32_t row) {
    Refresh();
    const auto position = grid_.VisiblePosition(row);
    if (!position) return;
    if (*position < layout_.TopPosition())
        ScrollTo(*position);
    else if (*position >= layout_.TopPosition() + layout_.FullRows())
        ScrollTo(static_cast<int64_t>(*position) - layout_.FullRows() + 1);
}

// ---- Gestures

// Whatever a gesture calls may take the window away, so it is asked for before the gesture goes on.

void GridWindow::Tick(int32_t row) {
    if (IsPlaceholder(grid_, row)) return;
    GridInteraction(grid_, events_).ToggleTick(row);
    Refresh();
}

void GridWindow::SetNode(int32_t row, bool open) {
    GridInteraction(grid_, events_).SetNode(row, open);
    if (Handle() == nullptr) return;
    if (const int32_t cursor = CursorRow(); cursor != 0 && cursor != grid_.CurrentRow()) grid_.SetCurrentRow(cursor);
    Refresh();
}

void GridWindow::OnMouse(UINT message, POINT point) {
    FinishEdit();
    if (Handle() != nullptr) SetFocus(Handle());
    if (Handle() == nullptr || !grid_.Enabled()) return;
    Refresh();
    const auto position = layout_.PositionAt(point.y);
    if (!position || *position >= grid_.VisibleCount()) return;
    const int32_t row = grid_.VisibleRow(*position);
    const GridPart part = layout_.PartAt(point, grid_.RowOutlineLevel(row));
    const bool onGlyph = part == GridPart::Glyph && grid_.IsNode(row) && grid_.HasChildren(row);
    grid_.SetCurrentRow(row);
    // The second click of a double click is on the box one more tick, and on the sign one more turn.
    if (part == GridPart::Box && !IsPlaceholder(grid_, row)) return Tick(row);
    if (onGlyph) return SetNode(row, grid_.NodeState(row) != nodeExpanded);
    if (message == WM_LBUTTONDBLCLK) {
        GridInteraction(grid_, events_).DoubleClick(row);
        Refresh();
        return;
    }
    Refresh();
    if (part == GridPart::Index) OpenEditor(row);
}

void GridWindow::OnKey(WPARAM key, bool repeated) {
    if (!grid_.Enabled()) return;
    Refresh();
    // Left and Right alone belong to the outline.
    if (GetKeyState(VK_CONTROL) < 0 && (key == VK_LEFT || key == VK_RIGHT))
        return OnSidewaysScroll(key == VK_LEFT ? SB_LINELEFT : SB_LINERIGHT);
    const int32_t row = CursorRow();
    switch (key) {
        case VK_UP:
            return MoveCursorBy(-1);
        case VK_DOWN:
            return MoveCursorBy(1);
        case VK_PRIOR:
            return MoveCursorBy(-layout_.FullRows());
        case VK_NEXT:
            return MoveCursorBy(layout_.FullRows());
        case VK_HOME:
            return MoveCursorBy(std::numeric_limits<int32_t>::min());
        case VK_END:
            return MoveCursorBy(std::numeric_limits<int32_t>::max());
        default:
            break;
    }
    if (row == 0) return;
    if (key == VK_RIGHT) return OpenOrStepIn(row);
    if (key == VK_LEFT) return CloseOrStepOut(row);
    if (key == VK_SPACE && !repeated) return Tick(row);
    if (key == VK_F2) return OpenEditor(row);
}

void GridWindow::OnCharacter(wchar_t character) {
    if (!grid_.Enabled()) return;
    const int32_t row = CursorRow();
    if (row == 0) return;
    if (character == L'+') return SetNode(row, true);
    if (character == L'-') return SetNode(row, false);
    if (character >= L'0' && character <= L'9') {
        OpenEditor(row);
        if (editor_) editor_->Type(std::string(1, static_cast<char>(character)));
    }
}

void GridWindow::OnFocusMoved() {
    InvalidateRect(Handle(), nullptr, FALSE);
    if (focusHandler_) focusHandler_();
}

int32_t GridWindow::CursorRow() const {
    const int32_t row = grid_.CurrentRow();
    if (row < grid_.FixedRowCount() || row >= grid_.RowCount()) return 0;
    return grid_.VisibleAncestor(row);
}

void GridWindow::MoveCursorBy(int64_t rows) {
    const int32_t count = grid_.VisibleCount();
    if (count == 0) return;
    const int32_t row = CursorRow();
    const int64_t from = row == 0 ? (rows > 0 ? -1 : 1) : grid_.VisiblePosition(row).value_or(0);
    const int64_t target = row == 0 && rows < count ? 0 : from + rows;
    MoveCursorTo(grid_.VisibleRow(static_cast<int32_t>(std::clamp<int64_t>(target, 0, count - 1))));
}

void GridWindow::MoveCursorTo(int32_t row) {
    grid_.SetCurrentRow(row);
    BringIntoView(row);
    Refresh();
}

void GridWindow::OpenOrStepIn(int32_t row) {
    if (!grid_.IsNode(row) || !grid_.HasChildren(row)) return;
    if (grid_.NodeState(row) != nodeExpanded) return SetNode(row, true);
    MoveCursorTo(row + 1);
}

void GridWindow::CloseOrStepOut(int32_t row) {
    if (grid_.IsNode(row) && grid_.HasChildren(row) && grid_.NodeState(row) == nodeExpanded) return SetNode(row, false);
    const int16_t level = grid_.RowOutlineLevel(row);
    int32_t parent = row - 1;
    while (parent >= grid_.FixedRowCount() && grid_.RowOutlineLevel(parent) >= level) --parent;
    if (parent >= grid_.FixedRowCount()) MoveCursorTo(parent);
}

// ---- The number editor

void GridWindow::OpenEditor(int32_t row) {
    if (grid_.ColHidden(colIndex) || grid_.CellValue(row, colSel) == 0) return;
    FinishEdit();
    const bool allowed = GridInteraction(grid_, events_).MayEditIndex(row);
    if (!allowed || Handle() == nullptr || row >= grid_.RowCount()) return;
    BringIntoView(row);
    ScrollSidewaysTo(0);
    const auto position = grid_.VisiblePosition(row);
    if (Handle() == nullptr || !position) return;
    editedRow_ = grid_.HandleOf(row);
    editor_ = std::make_unique<NumberEditor>(Handle(), layout_.Cell(*position, colIndex), fonts_.Plain(),
                                             grid_.CellText(row, colIndex));
    if (editor_->Handle() != nullptr)
        SetFocus(editor_->Handle());
    else
        editor_.reset();
}

void GridWindow::OnEditor(NumberEditor::Event event) {
    // While the control takes a number it may show something that takes the focus, and an editor that closes gives it
    // back; neither ends the edit once more.
    if (event == NumberEditor::Event::FocusLeft && !committing_) FinishEdit();
    if (event == NumberEditor::Event::FocusLeft || event == NumberEditor::Event::FocusCame) return OnFocusMoved();
    if (committing_ || !editor_) return;
    if (event == NumberEditor::Event::Enter && !OfferNumber()) {
        // A refused number stays open so that it can be put right.
        if (editor_) editor_->SelectAll();
        return;
    }
    CloseEditor();
    Refresh();
}

void GridWindow::FinishEdit() {
    if (!editor_ || committing_) return;
    OfferNumber();
    CloseEditor();
}

// An editor that was opened and left as it was has changed nothing, so there is nothing to tell.
bool GridWindow::OfferNumber() {
    const auto row = grid_.RowOf(editedRow_);
    if (!row || !editor_->Modified()) return true;
    const FlagSet committing(committing_);
    return GridInteraction(grid_, events_).CommitIndex(*row, editor_->Text());
}

void GridWindow::CloseEditor() {
    if (!editor_) return;
    const FlagSet committing(committing_);
    // The focus stays in the control: the host is not told that it left and came back.
    if (GetFocus() == editor_->Handle()) SetFocus(Handle());
    editor_.reset();
    editedRow_ = {};
}

// ---- Messages

bool GridWindow::WantsKey(const MSG& message) const {
    if (editor_ && message.hwnd == editor_->Handle()) return true;
    if (message.hwnd != Handle()) return false;
    if (message.message == WM_CHAR) return true;
    if (message.message != WM_KEYDOWN && message.message != WM_KEYUP) return false;
    constexpr WPARAM keys[] = {VK_UP,    VK_DOWN,  VK_PRIOR, VK_NEXT, VK_HOME,     VK_END,      VK_LEFT,
                               VK_RIGHT, VK_SPACE, VK_F2,    VK_ADD,  VK_SUBTRACT, VK_OEM_PLUS, VK_OEM_MINUS};
    return std::find(std::begin(keys), std::end(keys), message.wParam) != std::end(keys);
}

LRESULT GridWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
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
            OnMouse(message, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_KEYDOWN:
            OnKey(wParam, (lParam & (1 << 30)) != 0);
            return 0;
        case WM_CHAR:
            OnCharacter(static_cast<wchar_t>(wParam));
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            OnFocusMoved();
            return 0;
        case NumberEditor::eventMessage:
            OnEditor(static_cast<NumberEditor::Event>(wParam));
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        default:
            return Window::OnMessage(message, wParam, lParam);
    }
}

}  // namespace foldertree

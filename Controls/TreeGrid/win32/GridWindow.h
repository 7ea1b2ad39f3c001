// GridWindow: shows the tree grid's visible rows and turns mouse and keyboard into its gestures.
#pragma once

#include <functional>
#include <memory>

#include "accessible/AccessibleHost.h"
#include "interaction/GridInteraction.h"
#include "layout/GridLayout.h"
#include "rows/TreeGrid.h"
#include "win32/GridAccessibility.h"
#include "win32/GridFonts.h"
#include "win32/GridPainter.h"
#include "win32/GridPictures.h"
#include "win32/HighContrast.h"
#include "win32/NumberEditor.h"
#include "win32/Tip.h"
#include "win32/Window.h"

namespace foldertree {

/// What a grid's window shows and drives; all of it outlives the window.
struct GridWindowParts {
    TreeGrid& grid;
    GridEvents& events;
    const GridPictures& pictures;
    RowHasBox hasBox;
    const wchar_t* className;  ///< of the window, a literal
    NodeIsRead isRead = nullptr;
    const AccessibleHost& accessibleHost = NoAccessibleHost();
    std::function<bool()> highContrast = IsHighContrast;
    std::function<int(HWND)> dpi = DpiOf;
    std::string numberRule =
        {};  ///< UTF-8: what a number must be, told with one that is refused; empty: nothing is told
};

/// Holds no folder logic and no row: what is seen comes from the grid when it is painted, and every gesture goes
/// through GridInteraction. Changes of the grid are only noted; Refresh() brings the window up to date. Any gesture may
/// end with the HWND gone. The row at the top and the cursor stay on their rows when rows come or go above them.
class GridWindow : public Window, private TreeGridObserver, private GridView {
  public:
    /// `stale` is called when a Refresh() is wanted, which may be any number of times before one comes.
    GridWindow(GridWindowParts parts, WindowKeeper& keeper, std::function<void()> stale);
    ~GridWindow() override;

    /// With the style WS_EX_LAYOUTRTL, given or from the parent, the columns begin at the right.
    HWND Create(HWND parent, const RECT& place, DWORD extendedStyle = 0);

    /// Brings scroll bar and picture up to date with the grid; costs nothing when nothing in view changed.
    void Refresh();
    /// The font object's members changed without the grid being told.
    void ReloadFont();
    /// Tells assistive programs what happened since the last time; wants to be called once a frame. They may do
    /// anything, so the window may be gone afterwards.
    void SendEvents() noexcept { accessibility_.SendEvents(); }
    bool HasEvents() const { return accessibility_.HasEvents(); }
    /// The grid as it stands, for an area of its own resolution; works without a window. The grid's observers and its
    /// font object run while it is made, and nobody else's code while it is painted.
    class Picture {
      public:
        Picture(GridWindow& window, SIZE area, int dpi);
        /// At the origin of `dc`.
        void Paint(HDC dc) const;

      private:
        const GridWindow& window_;
        GridFonts fonts_;
        GridLayout layout_;
    };
    /// Closes an open number editor without offering its text.
    void AbandonEdit() { interaction_.Number().GiveUp(); }
    /// Input that was made after `from` until `to` (message times) was made while nobody could answer it; what of it
    /// still waits for the grid is dropped.
    void DropInput(DWORD from, DWORD to);
    /// Whether input of that message time is dropped.
    bool Drops(DWORD time) const;
    /// Whether a key message belongs to the grid rather than to the host's dialog.
    bool WantsKey(const MSG& message) const;

    /// Called after the focus came to the grid or its number editor, or left one of them.
    void SetFocusHandler(std::function<void()> handler) { focusHandler_ = std::move(handler); }

    const GridLayout& Layout() const { return layout_; }
    /// The plain font, and the resolution that it is for; null until there was a window. It lasts until the next
    /// Refresh.
    HFONT Font() const { return fonts_.Plain(); }
    int Dpi() const { return dpi_; }
    bool ShowsTip() const { return nameTip_.Shown(); }
    bool TellsRefusal() const { return refusalTip_.Shown(); }
    const NumberEditor* Editor() const { return editor_.get(); }

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnHandleGone() override;

  private:
    /// Only notes what is no longer right.
    void GridChanged(const GridChanges& changes) noexcept override;
    bool AreInView(const GridChanges& changes) const;
    bool MayBeInView(int32_t firstRow) const;

    void TakeDirection();

    // Painting
    void OnPaint();
    void LoadFontOnce();
    GridPicture PictureOf(const GridLayout& layout, const GridFonts& fonts, bool focused) const;
    void NoteShownRows();
    void Measure();
    void MeasureNames();
    void UpdateScrollBars();
    int FromLeft(int left) const;
    void UpdateScrollBar(int bar, int last, int page, int position);

    // Scrolling: down in visible rows, sideways in pixels
    void ScrollTo(int64_t position);
    void ScrollSidewaysTo(int left);
    void OnScroll(int request);
    void OnSidewaysScroll(int request);
    void OnWheel(int delta);
    void OnSidewaysWheel(int delta);
    int ThumbPosition(int bar) const;

    // What gestures ask for
    bool Shown() const override { return Handle() != nullptr; }
    int32_t PageRows() const override { return layout_.FullRows(); }
    void BringIntoView(int32_t row) override;
    void Scroll(GridScroll scroll) override;
    void Copy(const std::string& text) override;
    void OpenNumberBox(int32_t row, const std::string& text) override;
    NumberBox* OpenedNumberBox() override { return editor_.get(); }
    void CloseNumberBox() override;
    void TellRefusal() override;

    // The row under the pointer
    void OnPointerMoved(POINT point);
    void OnPointerRests();
    void OnPointerLeft();
    void Hover(RowHandle row);

    // Which gesture it was
    bool IsDropped(UINT message);
    void OnMouse(UINT message, POINT point);
    void OnKey(WPARAM key, bool repeated);
    void OnCharacter(wchar_t unit);
    LRESULT OnContextMenu(WPARAM window, LPARAM place);
    LPARAM MenuPlace();
    void OnFocusCame();
    void OnFocusMoved();
    void OnEditor(NumberEditor::Event event);

    TreeGrid& grid_;
    RowHasBox hasBox_;
    const GridPictures& pictures_;
    GridInteraction interaction_;
    std::function<void()> stale_;
    std::function<void()> focusHandler_;
    std::function<bool()> highContrast_;
    std::function<int(HWND)> askDpi_;

    GridFonts fonts_;
    int dpi_ = usualDpi;  ///< of the screen, when it was last asked
    bool fontLoaded_ = false;
    GridLayout layout_;

    RowHandle topRow_;           ///< the row that is kept at the top; none before the first row came
    int32_t firstShownRow_ = 0;  ///< the rows in view when they were last painted
    int32_t lastShownRow_ = 0;
    bool viewFull_ = false;  ///< whether rows reached the lower edge then
    bool pictureStale_ = true;
    bool countStale_ = true;
    int wheelRest_ = 0;
    bool mirrored_ = false;
    int left_ = 0;        ///< pixels out of view where the columns begin
    int widestName_ = 0;  ///< of all rows that were in view since the tree was empty, so that scrolling moves nothing

    RowHandle hoveredRow_;
    bool pointerInside_ = false;
    Tip nameTip_{Tip::Kind::Plain};

    const std::string numberRule_;
    Tip refusalTip_{Tip::Kind::Balloon};
    std::unique_ptr<NumberEditor> editor_;
    GridAccessibility accessibility_;

    DWORD dropFrom_ = 0;
    DWORD dropTo_ = 0;
    bool dropCharacters_ = false;  ///< those of a key that was dropped
    wchar_t firstUnit_ = 0;        ///< of a character that comes in two messages
};

}  // namespace foldertree

// ControlWindow: the control's own window, with the grid and the wait panel in it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "accessible/AccessibleHost.h"
#include "layout/FrameClock.h"
#include "win32/GridWindow.h"
#include "win32/Window.h"
#include "win32/window/Icons.h"
#include "win32/window/InputClock.h"
#include "win32/window/PictureScale.h"
#include "win32/window/WaitPanel.h"

namespace foldertree {

class ctlFolderTree;

/// What the window shows and drives; it outlives the window.
struct ControlParts {
    TreeGrid& grid;
    GridEvents& events;
    std::function<void()> cancel;  ///< the user wants the running load to stop
    RowHasBox hasBox;
    NodeIsRead isRead = nullptr;
    std::function<bool()> busy = [] { return false; };  ///< whether a load or an expansion runs
    std::function<std::optional<int32_t>()> numbers = [] { return std::nullopt; };  ///< AccessibleHost::Numbers
    WaitPanel::Now now = FrameClock::Clock::now;
    std::function<bool()> highContrast = IsHighContrast;
    std::function<int(HWND)> dpi = DpiOf;
};

/// Keeps captions, panel and progress whether it has a window or not, so that a control without one works in full; each
/// new HWND shows the state as it is then. Texts are UTF-8. Whoever calls a member keeps the object until it returns,
/// since the host may end the control wherever it hears of something.
/// Changes of the grid, the path and the progress reach the screen at most about 60 times a second, however many come;
/// the last ones follow by a timer, so none is lost.
class ControlWindow : public Window, private AccessibleHost {
  public:
    ControlWindow(ctlFolderTree& control, WindowKeeper& keeper);
    ControlWindow(ControlParts parts, WindowKeeper& keeper);
    ~ControlWindow() override;

    HWND Create(HWND parent, const RECT& place);
    void Destroy();
    void Move(const RECT& place);

    // The wait panel, which is up as long as a load runs
    void ShowWaitPanel(bool visible);
    void SetWaitCaptions(std::string_view pleaseWait, std::string_view cancel);
    void SetProgressText(std::string_view path);
    void SetProgress(double maximum, double value);

    void SetBusyPointer(bool busy);
    /// False in a form designer: the control is painted and takes no input.
    void SetUserMode(bool userMode);
    /// The members of the font object changed (the grid is told only of a new object).
    void FontChanged();
    /// Shows everything that is still waiting for its frame.
    void FlushPaint();

    /// Handles the messages that wait, in the middle of a load. What the user did to the tree while a read kept
    /// everybody waiting is dropped; Cancel and Esc count. False when the program is ending.
    bool PumpMessages();

    /// Takes the keys that the control wants before its container does. While the wait panel is up, Esc belongs to it
    /// wherever the focus is in the same top-level window: whoever pumps messages during a load asks here first.
    bool TranslateAccelerator(MSG& message);

    /// Draws the control into `bounds` (logical units of `dc`), with or without a window, as large as `scale` says; as
    /// on the device, when it says nothing. `goesOn` may be empty. Returns S_OK and what DrawInTiles does, and
    /// E_INVALIDARG for bounds without an area.
    HRESULT Draw(HDC dc, const RECT& bounds);
    HRESULT Draw(HDC dc, const RECT& bounds, const PictureScale& scale, const std::function<bool()>& goesOn);

    /// What the container calls the control; asked when an assistive program wants to know.
    void SetDisplayName(std::function<std::string()> name) { displayName_ = std::move(name); }
    /// Called when the focus comes into the control (true) or leaves it (false), but not when it moves inside.
    void SetFocusHandler(std::function<void(bool)> handler) { focusHandler_ = std::move(handler); }
    /// Called when the HWND went away by itself, with its parent.
    void SetGoneHandler(std::function<void()> handler) { goneHandler_ = std::move(handler); }

    const GridWindow& Grid() const { return grid_; }
    const WaitPanel& Panel() const { return panel_; }

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnHandleGone() override;

  private:
    // AccessibleHost
    std::string DisplayName() const override { return displayName_ ? displayName_() : std::string(); }
    std::optional<int32_t> Numbers() const override { return parts_.numbers(); }
    bool Busy() const override { return parts_.busy(); }
    bool Enabled() const override { return userMode_; }

    /// Notes that something is to be shown; makes sure that a frame follows.
    void NoteStale();
    /// As NoteStale, and shows it at once when a frame is due.
    void ShowWhenDue();
    void DrawFrame();
    bool IsMine(HWND window) const;
    void OnFocusMoved();
    void TakeDirection();
    void PaintBorder();
    void TakeBorder();
    bool SetPointer(HWND under);
    void DropBlockedInput();

    ControlParts parts_;
    std::function<std::string()> displayName_;
    std::function<void(bool)> focusHandler_;
    std::function<void()> goneHandler_;
    bool focusInside_ = false;  ///< as the handler was last told
    FrameClock clock_;
    bool timerRuns_ = false;
    int frame_ = 1;        ///< thickness of the frame around all, in pixels
    DWORD direction_ = 0;  ///< WS_EX_LAYOUTRTL in a host that is read from right to left
    bool busy_ = false;
    bool userMode_ = true;
    InputClock input_;
    Icons icons_;
    GridWindow grid_;
    WaitPanel panel_;
};

}  // namespace foldertree

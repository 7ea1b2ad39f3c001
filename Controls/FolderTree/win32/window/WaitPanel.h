// WaitPanel: the panel with progress and Cancel that covers the middle of the control while it reads.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "common/WaitPanelLayout.h"
#include "layout/FrameClock.h"
#include "win32/Window.h"
#include "win32/window/WaitPanelAccessibility.h"

namespace foldertree {

/// A label, a path, a progress bar and a button, all of them the system's own controls. Keeps its texts and progress
/// whether it has a window or not. Setters only note the new state and may be called once a folder; Refresh() shows it,
/// and Tell() tells those who cannot see it.
class WaitPanel : public Window {
  public:
    using Now = std::function<FrameClock::Clock::time_point()>;

    /// `cancel` is called for a press of the button, `focusMoved` after the focus came to it or left it.
    WaitPanel(WindowKeeper& keeper, std::function<void()> cancel, std::function<void()> focusMoved,
              Now now = FrameClock::Clock::now);
    ~WaitPanel() override;

    /// Makes the panel's window, hidden or shown as the state says, in the middle of the parent. The style
    /// WS_EX_LAYOUTRTL mirrors it.
    HWND Create(HWND parent, DWORD extendedStyle);
    /// Puts it back into the middle, after the parent changed its size.
    void Place();
    /// Uses a copy of that font, for a screen of that resolution, from now on.
    void Follow(HFONT font, int dpi);

    void SetCaptions(std::string_view pleaseWait, std::string_view cancel);  ///< UTF-8
    void SetPath(std::string_view path);                                     ///< UTF-8
    void SetProgress(double maximum, double value);  ///< shows full when `value` passes `maximum`
    void Show(bool visible);
    bool Visible() const { return visible_; }
    /// As a press of the button: cancels, and says so at once. The window may be gone afterwards.
    void Cancel();

    /// Brings the window up to date with the state, but for what Tell() tells.
    void Refresh();
    /// Progress bar and texts of windows tell assistive programs of each change, so these are changed twice a second at
    /// most. Hooks may do anything, so the window may be gone afterwards.
    void Tell();
    /// Whether a Tell() is wanted.
    bool HasNews() const;

    // What it shows, and where in its client area
    const std::string& Label() const { return cancelling_ ? cancellingText_ : pleaseWait_; }
    const std::string& CancelCaption() const { return cancelCaption_; }
    const std::string& Path() const { return path_; }
    int Percent() const;  ///< 0 to 100
    const WaitPanelLayout& Layout() const { return layout_; }
    HWND CancelButton() const { return button_; }
    bool CancelHasFocus() const { return button_ != nullptr && GetFocus() == button_; }

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnHandleGone() override;

  private:
    bool MakeParts();
    HWND MakePart(const wchar_t* className, DWORD style);
    void ReleaseFont();
    int ButtonTextWidth() const;
    void OnButton(int notification);
    void OnPaint();
    void PaintPath(const DRAWITEMSTRUCT& item) const;

    std::function<void()> cancel_;
    std::function<void()> focusMoved_;
    Now now_;
    std::string pleaseWait_ = "Please wait\u2026";
    std::string cancelCaption_ = "Cancel";
    std::string cancellingText_;
    std::string path_;
    double maximum_ = 1;
    double value_ = 0;
    bool visible_ = false;
    bool cancelling_ = false;
    bool captionsStale_ = true;
    bool pathStale_ = true;
    bool pathTold_ = false;
    int toldPercent_ = 0;
    FrameClock beat_;
    HWND label_ = nullptr;
    HWND pathText_ = nullptr;
    HWND bar_ = nullptr;
    HWND button_ = nullptr;
    WaitPanelLayout layout_;
    WaitPanelAccessibility accessibility_;
    HFONT font_ = nullptr;
    LOGFONTW fontDescription_{};
    WaitPanelMetrics metrics_;
};

}  // namespace foldertree

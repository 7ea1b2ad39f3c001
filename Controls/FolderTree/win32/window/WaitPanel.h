// WaitPanel: the panel with progress and Cancel that covers the middle of the control while it reads.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "win32/Window.h"
#include "win32/window/WaitPanelAccessibility.h"

namespace foldertree {

/// Keeps its texts and progress whether it has a window or not. Setters only note the new state and may be called once
/// a folder; Refresh() shows it.
class WaitPanel : public Window {
  public:
    /// `cancel` is called for a press of the button, `focusMoved` after the focus came to it or left it.
    WaitPanel(WindowKeeper& keeper, std::function<void()> cancel, std::function<void()> focusMoved);
    ~WaitPanel() override;

    /// Makes the panel's window, hidden or shown as the state says, in the middle of the parent.
    HWND Create(HWND parent);
    /// Puts it back into the middle, after the parent changed its size.
    void Centre();

    void SetCaptions(std::string_view pleaseWait, std::string_view cancel);  ///< UTF-8
    void SetPath(std::string_view path);                                     ///< UTF-8
    void SetProgress(double maximum, double value);  ///< shows full when `value` passes `maximum`
    void Show(bool visible);
    bool Visible() const { return visible_; }

    /// Brings the window up to date with the state.
    void Refresh();

    // What it shows, and where in its client area
    struct Places {
        RECT label, path, bar, button;
    };
    const std::string& PleaseWait() const { return pleaseWait_; }
    const std::string& CancelCaption() const { return cancelCaption_; }
    const std::string& Path() const { return path_; }
    double Fraction() const;  ///< 0 to 1
    Places PlacesNow() const;
    bool CancelHasFocus() const { return button_ != nullptr && GetFocus() == button_; }
    /// As a press of the button.
    void Cancel() { cancel_(); }

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnHandleGone() override;

  private:
    Places PlacesIn(SIZE client) const;
    void LoadFont();
    void ReleaseFont();
    void PlaceButton();
    void OnButton(int notification);
    void OnPaint();
    void Paint(HDC dc, SIZE client) const;
    void PaintBar(HDC dc, RECT bar) const;

    std::function<void()> cancel_;
    std::function<void()> focusMoved_;
    std::string pleaseWait_ = "Please wait\u2026";
    std::string cancelCaption_ = "Cancel";
    std::string path_;
    double maximum_ = 1;
    double value_ = 0;
    bool visible_ = false;
    bool stale_ = true;
    bool captionsStale_ = true;
    HWND button_ = nullptr;
    WaitPanelAccessibility accessibility_;
    HFONT font_ = nullptr;
    int dpi_ = 96;
};

}  // namespace foldertree

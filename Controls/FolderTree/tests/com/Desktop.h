// Desktop: an ActiveX container that is not ours, with the control in a window of it.
#pragma once

#include <windows.h>

#include "com/Server.h"

namespace foldertree::testing {

/// A top-level window of 400 x 300 with the control in it, hosted by Windows' own container for dialogs (atl100.dll).
class Desktop {
  public:
    /// With a form, a child of it instead, inside of which Tab finds its stops. With settings, the container loads the
    /// control from them.
    explicit Desktop(HWND form = nullptr, IStream* settings = nullptr);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// False where Windows lacks that container; the reason is then on the test's output.
    static bool IsAvailable();

    HWND Window() const { return window_; }
    const ComPtr<_ctlFolderTree>& Control() const { return control_; }
    HWND ControlWindow() const;
    /// The list inside the control that takes the keys; null when there is none.
    HWND List() const;
    /// Sends a key to the list.
    void Press(WPARAM key) const;
    void DestroyWindow();
    void ReleaseControl() { control_ = nullptr; }

  private:
    HWND window_ = nullptr;
    ComPtr<IUnknown> container_;
    ComPtr<_ctlFolderTree> control_;
};

/// Handles everything that waits in the message queue.
void HandleMessages();

}  // namespace foldertree::testing

// Window: a window with a C++ object behind it; the base of the control's windows.
#pragma once

#include <memory>

#include "win32/WindowsNames.h"

namespace foldertree {

/// Owns at most one HWND. Either may go first: a destroyed object takes its window along, a destroyed window leaves an
/// object without one. The object may be deleted from inside its own OnMessage; see Watch(). One thread only.
class Window {
  public:
    /// `className` must outlive the window (a literal).
    explicit Window(const wchar_t* className) : className_(className) {}
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND Handle() const { return handle_; }
    /// Makes the HWND; null when Windows refuses. An object that has a window keeps it.
    HWND CreateHandle(HWND parent, const RECT& place, DWORD style);
    void DestroyHandle();

  protected:
    /// Handles one message; the default is what Windows does by itself.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// The HWND is gone. The object may be deleted in here.
    virtual void OnHandleGone() {}

    /// Expires when this object dies. Whoever calls out of a message (to the control, to the host) asks it before
    /// touching the object again.
    std::weak_ptr<void> Watch() const { return alive_; }

  private:
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    const wchar_t* className_;
    HWND handle_ = nullptr;
    std::shared_ptr<char> alive_ = std::make_shared<char>();
};

/// The DLL or program that this code is in.
HINSTANCE ThisModule();
/// Dots per inch of the window's screen (of the primary screen when null).
int DpiOf(HWND window);
/// A length for 96 dots per inch, at `dpi`.
inline int Scale(int length, int dpi) {
    return MulDiv(length, dpi, 96);
}

}  // namespace foldertree

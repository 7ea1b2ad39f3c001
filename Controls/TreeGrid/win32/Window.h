// Window: a window with a C++ object behind it; the base of the control's windows.
#pragma once

#include "win32/WindowsNames.h"

namespace foldertree {

/// Whoever owns window objects. A message may call the host, and the host may let go of everything in there; the owner
/// then destroys the windows at once, but deletes the objects only after the last LetGo.
class WindowKeeper {
  public:
    virtual void Hold() noexcept = 0;
    virtual void LetGo() noexcept = 0;

  protected:
    ~WindowKeeper() = default;
};

/// Holds a keeper for a scope.
class Held {
  public:
    explicit Held(WindowKeeper& keeper) : keeper_(keeper) { keeper_.Hold(); }
    ~Held() { keeper_.LetGo(); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

  private:
    WindowKeeper& keeper_;
};

/// Owns at most one HWND. Either may go first: a destroyed object takes its window along, a destroyed window leaves an
/// object without one. The keeper is held while a message runs, so after a call out of OnMessage the object is still
/// there, but its HWND may be gone, and with it what the message was for. One thread only.
class Window {
  public:
    /// `className` must outlive the window (a literal).
    Window(const wchar_t* className, WindowKeeper& keeper) : className_(className), keeper_(keeper) {}
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND Handle() const { return handle_; }
    /// Makes the HWND; null when Windows refuses. An object that has a window keeps it.
    HWND CreateHandle(HWND parent, const RECT& place, DWORD style, DWORD extendedStyle = 0);
    void DestroyHandle();

  protected:
    /// Handles one message; the default is what Windows does by itself.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// The HWND is gone.
    virtual void OnHandleGone() {}

  private:
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    const wchar_t* className_;
    WindowKeeper& keeper_;
    HWND handle_ = nullptr;
};

/// Dots per inch of the window's screen (of the primary screen when null).
int DpiOf(HWND window);

}  // namespace foldertree

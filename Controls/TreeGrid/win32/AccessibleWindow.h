// AccessibleWindow: the way from an assistive program to a window that answers it.
#pragma once

#include <windows.h>

#include <memory>

#include "win32/AccessibleAnswers.h"
#include "win32/Window.h"

namespace foldertree {

/// What the objects in the hands of assistive programs know of their window. They outlive it.
struct AccessibleConnection {
    AccessibleAnswers* answers;  ///< null once the window's object has gone
    WindowKeeper* keeper;
    HWND window;
    DWORD thread;  ///< on which alone the answers may be asked
};

/// Held by a window; makes an object for each assistive program that asks, and cuts them all off when the window goes.
class AccessibleWindow {
  public:
    /// Both outlive this.
    AccessibleWindow(AccessibleAnswers& answers, WindowKeeper& keeper) : answers_(answers), keeper_(keeper) {}
    ~AccessibleWindow() { CutOff(); }
    AccessibleWindow(const AccessibleWindow&) = delete;
    AccessibleWindow& operator=(const AccessibleWindow&) = delete;

    /// Whether WM_GETOBJECT asks for what is answered here; for anything else Windows has its own objects.
    static bool Answers(LPARAM lParam) { return static_cast<DWORD>(lParam) == static_cast<DWORD>(OBJID_CLIENT); }
    /// The result of that message. Throws std::bad_alloc.
    LRESULT Answer(WPARAM wParam);

  private:
    void CutOff() noexcept;

    AccessibleAnswers& answers_;
    WindowKeeper& keeper_;
    std::shared_ptr<AccessibleConnection> connection_;  ///< of the window that was asked last
};

}  // namespace foldertree

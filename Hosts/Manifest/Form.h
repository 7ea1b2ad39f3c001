// Form: a plain window for a control to stand on, and the same on a thread of its own.
#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <thread>

namespace manifesthost {

/// A window of 400 x 300 of the thread that makes it. It may be closed meanwhile.
class Form {
  public:
    Form();
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    HWND Window() const { return window_; }
    /// Destroys the window after that time, from its thread's message loop. For any thread.
    void CloseIn(UINT milliseconds) const;

  private:
    HWND window_;
};

/// A form whose thread does nothing but handle its messages until the object goes: the multithreaded apartment has no
/// message loop of its own.
class FormOnItsThread {
  public:
    FormOnItsThread();
    ~FormOnItsThread();
    FormOnItsThread(const FormOnItsThread&) = delete;
    FormOnItsThread& operator=(const FormOnItsThread&) = delete;

    const Form& Get() const { return *form_; }

  private:
    void Run(std::promise<void>& ready);

    const Form* form_ = nullptr;
    DWORD threadId_ = 0;
    std::thread thread_;
};

/// Handles everything that waits in the thread's message queue.
void HandleMessages();

/// The window of that class below `window`; null when there is none.
HWND FindBelow(HWND window, const wchar_t* className);

/// A key goes down and up in that window. It is posted, so it has a time like a user's key: the control drops what
/// waited for a read. In a window of another thread it may come to something later.
void Press(HWND window, WPARAM key);

/// Handles messages until it is so; false when that takes longer than ten seconds.
bool WaitUntil(const std::function<bool()>& fact);

}  // namespace manifesthost

// Window: a window with a C++ object behind it; the base of the control's windows.
#include "win32/Window.h"

#include <mutex>
#include <set>
#include <string>

#include "automation_win32/Module.h"

namespace foldertree {

using automation::ThisModule;

namespace {

/// The window classes of this module. Windows keeps the classes of a DLL that is unloaded, together with a procedure
/// that is gone, so they are taken back when the module goes.
class ClassRegister {
  public:
    ~ClassRegister() {
        for (const std::wstring& name : names_) UnregisterClassW(name.c_str(), ThisModule());
    }

    bool Enter(const wchar_t* name, WNDPROC procedure) {
        const std::lock_guard lock(mutex_);
        // Noted first: a class that Windows knows and this does not could neither be used nor be taken back.
        const auto [place, isNew] = names_.insert(name);
        if (!isNew) return true;
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = procedure;
        description.hInstance = ThisModule();
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = name;
        if (RegisterClassExW(&description) != 0) return true;
        names_.erase(place);
        return false;
    }

  private:
    std::mutex mutex_;  // each apartment has its own controls, the classes are the module's
    std::set<std::wstring> names_;
};

ClassRegister classRegister;

}  // namespace

Window::~Window() {
    DestroyHandle();
}

HWND Window::CreateHandle(HWND parent, const RECT& place, DWORD style, DWORD extendedStyle) {
    if (handle_ != nullptr) return handle_;
    if (!classRegister.Enter(className_, Procedure)) return nullptr;
    CreateWindowExW(extendedStyle, className_, L"", style, place.left, place.top, place.right - place.left,
                    place.bottom - place.top, parent, nullptr, ThisModule(), this);
    return handle_;
}

void Window::DestroyHandle() {
    if (handle_ == nullptr) return;
    const HWND handle = handle_;
    handle_ = nullptr;
    // No message reaches an object that is being taken down.
    SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
    DestroyWindow(handle);
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(handle_, message, wParam, lParam);
}

// An exception must not reach Windows; what is left to do then is what Windows does by itself.
LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->handle_ = handle;
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(handle, message, wParam, lParam);
    const Held held(self->keeper_);
    try {
        if (message != WM_NCDESTROY) return self->OnMessage(message, wParam, lParam);
        SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
        self->OnHandleGone();
    } catch (...) {
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

namespace {

/// What newer systems know of windows whose program follows the resolution of each screen.
struct ScreenAwareness {
    using Context = HANDLE(WINAPI*)(HWND);
    using Awareness = int(WINAPI*)(HANDLE);
    using Dpi = UINT(WINAPI*)(HWND);

    ScreenAwareness() {
        const HMODULE user = GetModuleHandleW(L"user32.dll");
        const auto find = [user]<typename F>(F& function, const char* name) {
            function = reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(user, name)));
        };
        find(contextOf, "GetWindowDpiAwarenessContext");
        find(awarenessOf, "GetAwarenessFromDpiAwarenessContext");
        find(dpiOf, "GetDpiForWindow");
    }
    bool FollowsScreens(HWND window) const {
        constexpr int perMonitor = 2;
        return window != nullptr && contextOf != nullptr && awarenessOf != nullptr && dpiOf != nullptr &&
               awarenessOf(contextOf(window)) == perMonitor;
    }

    Context contextOf = nullptr;
    Awareness awarenessOf = nullptr;
    Dpi dpiOf = nullptr;
};

}  // namespace

int DpiOf(HWND window) {
    static const ScreenAwareness awareness;
    if (awareness.FollowsScreens(window)) return static_cast<int>(awareness.dpiOf(window));
    const HDC dc = GetDC(window);
    const int dpi = GetDeviceCaps(dc, LOGPIXELSY);
    ReleaseDC(window, dc);
    return dpi;
}

}  // namespace foldertree

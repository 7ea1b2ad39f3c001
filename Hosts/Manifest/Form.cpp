// Form: a plain window for a control to stand on, and the same on a thread of its own.
#include "Form.h"

namespace manifesthost {

namespace {

constexpr UINT closeLater = WM_APP;  // wParam: milliseconds
constexpr UINT_PTR closeTimer = 1;

LRESULT CALLBACK FormProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == closeLater) SetTimer(window, closeTimer, static_cast<UINT>(wParam), nullptr);
    if (message == WM_TIMER && wParam == closeTimer) DestroyWindow(window);
    return DefWindowProcW(window, message, wParam, lParam);
}

const wchar_t* FormClass() {
    static const wchar_t* const name = L"ManifestHost.Form";
    WNDCLASSW description = {};
    description.lpfnWndProc = FormProcedure;
    description.lpszClassName = name;
    RegisterClassW(&description);  // fails, and does no harm, when it is there already
    return name;
}

struct Search {
    const wchar_t* className;
    HWND found;
};

BOOL CALLBACK CompareClass(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (lstrcmpiW(name, search.className) != 0) return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

Form::Form()
    : window_(CreateWindowExW(WS_EX_CONTROLPARENT, FormClass(), L"Form", WS_POPUP | WS_CLIPCHILDREN, 20, 20, 400, 300,
                              nullptr, nullptr, nullptr, nullptr)) {
    ShowWindow(window_, SW_SHOWNA);
}

Form::~Form() {
    if (IsWindow(window_)) DestroyWindow(window_);
}

void Form::CloseIn(UINT milliseconds) const {
    PostMessageW(window_, closeLater, milliseconds, 0);
}

FormOnItsThread::FormOnItsThread() {
    std::promise<void> ready;
    std::future<void> isReady = ready.get_future();
    thread_ = std::thread([this, &ready] { Run(ready); });
    isReady.wait();
}

FormOnItsThread::~FormOnItsThread() {
    PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
    thread_.join();
}

void FormOnItsThread::Run(std::promise<void>& ready) {
    const Form form;
    form_ = &form;
    threadId_ = GetCurrentThreadId();
    ready.set_value();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

void HandleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

HWND FindBelow(HWND window, const wchar_t* className) {
    Search search = {className, nullptr};
    EnumChildWindows(window, CompareClass, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void Press(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    HandleMessages();
}

bool WaitUntil(const std::function<bool()>& fact) {
    for (int tries = 0; tries < 1000; ++tries) {
        if (fact()) return true;
        HandleMessages();
        Sleep(10);
    }
    return false;
}

}  // namespace manifesthost

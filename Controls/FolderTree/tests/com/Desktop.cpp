// Desktop: an ActiveX container that is not ours, with the control in a window of it.
#include "com/Desktop.h"

#include <oleidl.h>

#include <gtest/gtest.h>

namespace foldertree::testing {

namespace {

using AtlAxWinInit = BOOL WINAPI();
using AtlAxCreateControlEx = HRESULT WINAPI(LPCOLESTR name, HWND window, IStream* stream, IUnknown** container,
                                            IUnknown** control, REFIID sinkId, IUnknown* sink);

HMODULE Atl() {
    static const HMODULE module = LoadLibraryW(L"atl100.dll");
    return module;
}

template <class Function>
Function* AtlEntry(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(Atl(), name)));
}

BOOL CALLBACK FindList(HWND window, LPARAM found) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (lstrcmpiW(name, L"ctlFolderTree.Grid") != 0) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

}  // namespace

bool Desktop::IsAvailable() {
    const bool available = Atl() != nullptr && AtlEntry<AtlAxCreateControlEx>("AtlAxCreateControlEx") != nullptr;
    if (!available) GTEST_LOG_(WARNING) << "skipped: this system has no atl100.dll";
    return available;
}

Desktop::Desktop(HWND form, IStream* settings) {
    AtlEntry<AtlAxWinInit>("AtlAxWinInit")();
    // Neither a caption nor an activation: no window manager is involved, and none has to be waited for.
    const DWORD kind = form != nullptr ? WS_CHILD : WS_POPUP;
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"Desktop", kind | WS_CLIPCHILDREN, 20, 20, 400, 300,
                              form, nullptr, nullptr, nullptr);
    ShowWindow(window_, SW_SHOWNA);
    ComPtr<IUnknown> control;
    EXPECT_EQ(AtlEntry<AtlAxCreateControlEx>("AtlAxCreateControlEx")(L"{AE52A325-A957-48C9-B185-FA526DB6AB5E}", window_,
                                                                     settings, container_.GetAddressOf(),
                                                                     control.GetAddressOf(), IID_NULL, nullptr),
              S_OK);
    control_ = As<_ctlFolderTree>(control);
    HandleMessages();
}

Desktop::~Desktop() {
    control_ = nullptr;
    DestroyWindow();
}

void Desktop::DestroyWindow() {
    container_ = nullptr;
    if (window_ != nullptr) ::DestroyWindow(window_);
    window_ = nullptr;
    HandleMessages();
}

HWND Desktop::ControlWindow() const {
    HWND window = nullptr;
    As<IOleWindow>(control_)->GetWindow(&window);
    return window;
}

HWND Desktop::List() const {
    HWND list = nullptr;
    EnumChildWindows(ControlWindow(), FindList, reinterpret_cast<LPARAM>(&list));
    return list;
}

void Desktop::Press(WPARAM key) const {
    // Posted, it has a time like a user's key: the control drops what waited for a read.
    PostMessageW(List(), WM_KEYDOWN, key, 1);
    PostMessageW(List(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    HandleMessages();
}

void HandleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace foldertree::testing

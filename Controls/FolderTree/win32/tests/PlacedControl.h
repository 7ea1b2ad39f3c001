// PlacedControl: the control with a small tree in a container that the test has in its hands.
#pragma once

#include <gtest/gtest.h>

#include "FakeContainer.h"
#include "FolderTree.idl.h"
#include "WindowFixture.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"
#include "win32/com/WindowsPlatform.h"

namespace foldertree {

using Log = std::vector<std::string_view>;

/// A control with a small tree in its container. The host holds the only reference, and makes each call without
/// another one.
class Placed {
  public:
    Placed() {
        control_ = ControlObject::Create();
        TreeGrid& grid = Object().Core().Grid();
        SetUpGrid(grid);
        AddFolder(grid, 0, "Mailbox", rowKind::store);
        AddFolder(grid, 1, "Inbox");
        AddFolder(grid, 2, "Customers");
        Raw<_ctlFolderTree>()->put_MultiSelect(VARIANT_TRUE);
        Raw<_ctlFolderTree>()->put_AllowIndexing(VARIANT_TRUE);
        TickRow(grid, 2, "1");
        container_ = automation::MakeCom<FakeContainer>(host_.Handle());
        container_->onCall = [this](std::string_view call) {
            if (onCall) onCall(call);
        };
        Raw<IOleObject>()->SetClientSite(container_.Get());
        container_->log.clear();
    }
    ~Placed() {
        onCall = nullptr;
        Release();
    }
    Placed(const Placed&) = delete;
    Placed& operator=(const Placed&) = delete;

    /// Called inside each call of the container.
    std::function<void(std::string_view)> onCall;

    /// The container's call that is running fails.
    void Refuse() { container_->answer = E_FAIL; }
    /// The same, and from here on nothing that fails leaves a null pointer.
    void RefuseWithRubbish() {
        container_->leavesRubbish = true;
        Refuse();
    }
    /// The place that the container gives to a control that is activated.
    void SetPlace(const RECT& place) { container_->place = place; }

    Log& Calls() { return container_->log; }
    ControlObject& Object() { return *static_cast<ControlObject*>(control_.Get()); }
    bool Held() const { return static_cast<bool>(control_); }
    void Release() { control_ = nullptr; }

    /// A pointer that counts for nothing.
    template <class Interface>
    Interface* Raw() const {
        automation::ComPtr<Interface> part;
        EXPECT_EQ(control_.As(&part), S_OK);
        return part.Get();
    }

    // What hosts and users do. Without the control, or without its window, nothing happens.
    HRESULT Verb(LONG verb) {
        return Held() ? Raw<IOleObject>()->DoVerb(verb, nullptr, nullptr, 0, host_.Handle(), nullptr) : E_FAIL;
    }
    void Close() {
        if (Held()) Raw<IOleObject>()->Close(OLECLOSE_NOSAVE);
    }
    void Enable(bool enabled) {
        if (!Held()) return;
        Raw<_ctlFolderTree>()->put_Enabled(enabled ? VARIANT_TRUE : VARIANT_FALSE);
        SendMessageW(Window(), WM_TIMER, 1, 0);  // the next frame
    }
    void ShowWaitPanel(bool visible) {
        if (Held()) Object().Platform().ShowWaitPanel(visible);
    }
    HRESULT Translate(UINT message, WPARAM key) {
        MSG pressed{Grid(), message, key, 1, 0, {0, 0}};
        return Held() ? Raw<IOleInPlaceActiveObject>()->TranslateAccelerator(&pressed) : E_FAIL;
    }
    void PressTab() { Translate(WM_KEYDOWN, VK_TAB); }
    void Click(int32_t row, int col) {
        if (Grid() == nullptr) return;
        const POINT point = Middle(Object().Window().Grid().Layout().Cell(row - 1, col));
        SendMessageW(Grid(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
    static void Press(HWND window, WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 1); }
    static void Type(HWND window, wchar_t character) { SendMessageW(window, WM_CHAR, character, 1); }
    static void Focus(HWND window) {
        if (window != nullptr) SetFocus(window);
    }
    void LeaveFocus() { Focus(host_.Handle()); }
    void CloseHost() { host_.Close(); }
    automation::ComPtr<IOleClientSite> Site() const { return container_.Get(); }

    HWND Window() const { return Child(host_.Handle(), L"ctlFolderTree"); }
    HWND Grid() const { return Child(Window(), L"ctlFolderTree.Grid"); }
    HWND Editor() const { return Child(Grid(), L"EDIT"); }
    HWND CancelButton() const { return Child(Child(Window(), L"ctlFolderTree.WaitPanel"), L"BUTTON"); }

  private:
    static HWND Child(HWND parent, const wchar_t* className) {
        return parent != nullptr ? FindWindowExW(parent, nullptr, className, nullptr) : nullptr;
    }

    HostWindow host_;
    automation::ComPtr<FakeContainer> container_;
    automation::ComPtr<IUnknown> control_;
};

}  // namespace foldertree

// ControlInPlaceObject: IOleInPlaceObject of the control, and how it becomes active in its container's window.
#include "win32/com/ControlInPlaceObject.h"

#include <ole2.h>

#include <utility>

#include "automation_win32/ComError.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

using automation::ComPtr;

namespace {

/// A place without an area hides the control; one of negative size, or beyond all screens, is a mistake.
bool IsPlace(const RECT& place) {
    constexpr long long largest = 0x7FFF;  // as far as windows can be placed
    const auto is = [](long long from, long long to) {
        return from >= -largest && to <= largest && to >= from && to - from <= largest;
    };
    return is(place.left, place.right) && is(place.top, place.bottom);
}

}  // namespace

ControlInPlaceObject::ControlInPlaceObject(ControlObject& object) : ComPart(object), object_(object) {}

void ControlInPlaceObject::WatchWindow() {
    object_.Window().SetFocusHandler([this](bool gotFocus) { OnFocus(gotFocus); });
    object_.Window().SetGoneHandler([this] { OnWindowGone(); });
}

HRESULT ControlInPlaceObject::Activate() {
    if (site_ != nullptr) return S_OK;
    const auto site = object_.Site().As<IOleInPlaceSite>();
    if (site == nullptr || site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;
    if (object_.Ended() || leaving_) return OLE_E_NOT_INPLACEACTIVE;
    // From here on the container's calls may deactivate or end the control; there is no site any more then.
    site_ = site;
    object_.running = true;
    HRESULT result = site->OnInPlaceActivate();
    if (FAILED(result)) {
        site_ = nullptr;
        return result;
    }
    result = automation::ComBoundary([&] { return ShowIn(*site.Get()); });
    if (FAILED(result)) InPlaceDeactivate();
    return result;
}

HRESULT ControlInPlaceObject::ShowIn(IOleInPlaceSite& site) {
    HWND parent = nullptr;
    RECT place = {};
    RECT clip = {};
    OLEINPLACEFRAMEINFO frameInfo = {};
    frameInfo.cb = sizeof(frameInfo);
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    HRESULT result = site.GetWindow(&parent);
    if (SUCCEEDED(result))
        result = site.GetWindowContext(frame.GetAddressOf(), document.GetAddressOf(), &place, &clip, &frameInfo);
    if (FAILED(result)) {
        // A container that refuses may have left anything there.
        frame.Detach();
        document.Detach();
        return result;
    }
    if (site_ == nullptr) return OLE_E_NOT_INPLACEACTIVE;
    if (!IsPlace(place)) return E_INVALIDARG;
    frame_ = frame;
    document_ = document;
    if (object_.Window().Create(parent, place) == nullptr) return E_FAIL;
    SetObjectRects(&place, &clip);
    const ComPtr<IOleClientSite> client = object_.Site().Get();
    if (client != nullptr) client->ShowObject();
    return S_OK;
}

HRESULT ControlInPlaceObject::ActivateUI() {
    const HRESULT result = Activate();
    if (FAILED(result) || uiActive_ || site_ == nullptr) return result;
    uiActive_ = true;
    const ComPtr<IOleInPlaceSite> site = site_;
    site->OnUIActivate();
    if (!uiActive_) return OLE_E_NOT_INPLACEACTIVE;
    SetActiveObject(&object_.Interfaces().activeObject);
    const HWND window = object_.Window().Handle();
    if (window != nullptr && !IsChild(window, GetFocus())) SetFocus(window);
    return S_OK;
}

void ControlInPlaceObject::SetActiveObject(IOleInPlaceActiveObject* activeObject) {
    const auto frame = frame_;
    const auto document = document_;
    if (frame != nullptr) frame->SetActiveObject(activeObject, nullptr);
    if (document != nullptr) document->SetActiveObject(activeObject, nullptr);
    // The control has no tools around the container's border.
    if (activeObject != nullptr && frame != nullptr) frame->SetBorderSpace(nullptr);
    if (activeObject != nullptr && document != nullptr) document->SetBorderSpace(nullptr);
}

void ControlInPlaceObject::OnFocus(bool gotFocus) {
    const ControlObject::Use use(object_);
    object_.Site().OnFocus(gotFocus);
    // Told of the focus, the container may have hidden the control or ended it.
    if (gotFocus && site_ != nullptr) ActivateUI();
}

void ControlInPlaceObject::OnWindowGone() {
    const ControlObject::Use use(object_);
    // Deactivation lets go of the site before it destroys the window; here the container's window went by itself.
    if (site_ == nullptr) return;
    object_.Core().CancelLoad();
    InPlaceDeactivate();
}

HRESULT ControlInPlaceObject::GetWindow(HWND* window) {
    if (window == nullptr) return E_POINTER;
    *window = object_.Window().Handle();
    return *window != nullptr ? S_OK : E_FAIL;
}

HRESULT ControlInPlaceObject::ContextSensitiveHelp(BOOL) {
    return S_OK;
}

HRESULT ControlInPlaceObject::InPlaceDeactivate() {
    const ControlObject::Use use(object_);
    UIDeactivate();
    const ComPtr<IOleInPlaceSite> site = std::exchange(site_, nullptr);
    frame_ = nullptr;
    document_ = nullptr;
    if (site == nullptr) return S_OK;
    leaving_ = true;
    object_.Window().Destroy();
    leaving_ = false;
    site->OnInPlaceDeactivate();
    return S_OK;
}

HRESULT ControlInPlaceObject::UIDeactivate() {
    if (!std::exchange(uiActive_, false)) return S_OK;
    const ControlObject::Use use(object_);
    SetActiveObject(nullptr);
    const ComPtr<IOleInPlaceSite> site = site_;
    if (site != nullptr) site->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT ControlInPlaceObject::SetObjectRects(const RECT* place, const RECT* clip) {
    if (place == nullptr || clip == nullptr) return E_POINTER;
    if (!IsPlace(*place)) return E_INVALIDARG;
    const ControlObject::Use use(object_);
    object_.Window().Move(*place);
    const HWND window = object_.Window().Handle();
    if (window == nullptr) return S_OK;
    RECT visible = {};
    HRGN region = nullptr;
    if (IntersectRect(&visible, place, clip) != FALSE && !EqualRect(&visible, place)) {
        OffsetRect(&visible, -place->left, -place->top);
        region = CreateRectRgnIndirect(&visible);
    }
    SetWindowRgn(window, region, TRUE);
    return S_OK;
}

HRESULT ControlInPlaceObject::ReactivateAndUndo() {
    return E_NOTIMPL;
}

}  // namespace foldertree

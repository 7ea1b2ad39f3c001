// ControlInPlaceActiveObject: IOleInPlaceActiveObject of the control: the keys that it takes before its container does.
#include "win32/com/ControlInPlaceActiveObject.h"

#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

ControlInPlaceActiveObject::ControlInPlaceActiveObject(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlInPlaceActiveObject::GetWindow(HWND* window) {
    return object_.Interfaces().inPlace.GetWindow(window);
}

HRESULT ControlInPlaceActiveObject::ContextSensitiveHelp(BOOL) {
    return S_OK;
}

HRESULT ControlInPlaceActiveObject::TranslateAccelerator(MSG* message) {
    if (message == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    if (object_.Window().TranslateAccelerator(*message)) return S_OK;
    // What the control does not want may be a key of its container: Tab, a mnemonic, a default button.
    const auto site = object_.Site().As<IOleControlSite>();
    const DWORD modifiers = (GetKeyState(VK_SHIFT) < 0 ? 1u : 0u) | (GetKeyState(VK_CONTROL) < 0 ? 2u : 0u) |
                            (GetKeyState(VK_MENU) < 0 ? 4u : 0u);
    return site != nullptr ? site->TranslateAccelerator(message, modifiers) : S_FALSE;
}

HRESULT ControlInPlaceActiveObject::OnFrameWindowActivate(BOOL) {
    return S_OK;
}

HRESULT ControlInPlaceActiveObject::OnDocWindowActivate(BOOL) {
    return S_OK;
}

HRESULT ControlInPlaceActiveObject::ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) {
    return S_OK;
}

HRESULT ControlInPlaceActiveObject::EnableModeless(BOOL) {
    return S_OK;
}

}  // namespace foldertree

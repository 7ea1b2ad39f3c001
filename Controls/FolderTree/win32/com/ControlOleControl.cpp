// ControlOleControl: IOleControl of the control.
#include "win32/com/ControlOleControl.h"

#include <olectl.h>

#include "automation_win32/ComError.h"
#include "win32/com/ControlObject.h"
#include "win32/com/WindowsPlatform.h"

namespace foldertree {

ControlOleControl::ControlOleControl(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlOleControl::GetControlInfo(CONTROLINFO* info) {
    if (info == nullptr) return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

HRESULT ControlOleControl::OnMnemonic(MSG*) {
    return S_OK;
}

HRESULT ControlOleControl::OnAmbientPropertyChange(DISPID property) {
    const ControlObject::Use use(object_);
    if (property == DISPID_AMBIENT_USERMODE || property == DISPID_UNKNOWN)
        object_.Window().SetUserMode(object_.Site().UserMode());
    return S_OK;
}

HRESULT ControlOleControl::FreezeEvents(BOOL freeze) {
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        object_.Platform().FreezeEvents(freeze != FALSE);
        return S_OK;
    });
}

}  // namespace foldertree

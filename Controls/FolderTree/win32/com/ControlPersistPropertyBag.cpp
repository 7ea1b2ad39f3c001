// ControlPersistPropertyBag: IPersistPropertyBag of the control.
#include "win32/com/ControlPersistPropertyBag.h"

#include "automation_win32/ComError.h"
#include "win32/com/ComPropertyBag.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

ControlPersistPropertyBag::ControlPersistPropertyBag(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlPersistPropertyBag::GetClassID(CLSID* clsid) {
    return object_.Interfaces().stream.GetClassID(clsid);
}

HRESULT ControlPersistPropertyBag::InitNew() {
    return object_.Interfaces().stream.InitNew();
}

HRESULT ControlPersistPropertyBag::Load(IPropertyBag* bag, IErrorLog* log) {
    if (bag == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        ComPropertyBag settings(*bag, log);
        object_.Core().UserControl_ReadProperties(settings);
        object_.dirty = false;
        return S_OK;
    });
}

HRESULT ControlPersistPropertyBag::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
    if (bag == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        ComPropertyBag settings(*bag, nullptr);
        object_.Core().UserControl_WriteProperties(settings);
        if (FAILED(settings.WriteFailure())) return settings.WriteFailure();
        if (clearDirty) object_.dirty = false;
        return S_OK;
    });
}

}  // namespace foldertree

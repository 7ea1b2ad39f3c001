// ControlPersistStreamInit: IPersistStreamInit of the control.
#include "win32/com/ControlPersistStreamInit.h"

#include <ole2.h>

#include "FolderTree.idl.h"
#include "automation_win32/ComError.h"
#include "win32/com/ControlObject.h"
#include "win32/com/StreamPropertyBag.h"

namespace foldertree {

ControlPersistStreamInit::ControlPersistStreamInit(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlPersistStreamInit::GetClassID(CLSID* clsid) {
    if (clsid == nullptr) return E_POINTER;
    *clsid = __uuidof(::ctlFolderTree);
    return S_OK;
}

HRESULT ControlPersistStreamInit::IsDirty() {
    return object_.dirty ? S_OK : S_FALSE;
}

HRESULT ControlPersistStreamInit::Load(IStream* stream) {
    if (stream == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        StreamPropertyBag settings;
        settings.Load(*stream);
        object_.Core().UserControl_ReadProperties(settings);
        object_.dirty = false;
        return S_OK;
    });
}

HRESULT ControlPersistStreamInit::Save(IStream* stream, BOOL clearDirty) {
    if (stream == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        StreamPropertyBag settings;
        object_.Core().UserControl_WriteProperties(settings);
        settings.Save(*stream);
        if (clearDirty) object_.dirty = false;
        return S_OK;
    });
}

HRESULT ControlPersistStreamInit::GetSizeMax(ULARGE_INTEGER* size) {
    if (size == nullptr) return E_POINTER;
    size->QuadPart = 0;
    automation::ComPtr<IStream> stream;
    HRESULT result = CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf());
    if (SUCCEEDED(result)) result = Save(stream.Get(), FALSE);
    if (FAILED(result)) return result;
    return stream->Seek({}, STREAM_SEEK_CUR, size);
}

HRESULT ControlPersistStreamInit::InitNew() {
    const ControlObject::Use use(object_);
    object_.Core().UserControl_InitProperties();
    return S_OK;
}

}  // namespace foldertree

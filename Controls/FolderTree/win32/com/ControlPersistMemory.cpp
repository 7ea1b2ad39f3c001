// ControlPersistMemory: IPersistMemory of the control: the stream's bytes in a block of the container's.
#include "win32/com/ControlPersistMemory.h"

#include <ole2.h>

#include "automation_win32/ComError.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

using automation::Check;
using automation::ComPtr;

namespace {

ComPtr<IStream> EmptyStream() {
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()));
    return stream;
}

}  // namespace

ControlPersistMemory::ControlPersistMemory(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlPersistMemory::GetClassID(CLSID* clsid) {
    return object_.Interfaces().stream.GetClassID(clsid);
}

HRESULT ControlPersistMemory::IsDirty() {
    return object_.Interfaces().stream.IsDirty();
}

HRESULT ControlPersistMemory::Load(LPVOID memory, ULONG size) {
    if (memory == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        const ComPtr<IStream> stream = EmptyStream();
        Check(stream->Write(memory, size, nullptr));
        Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
        return object_.Interfaces().stream.Load(stream.Get());
    });
}

HRESULT ControlPersistMemory::Save(LPVOID memory, BOOL clearDirty, ULONG size) {
    if (memory == nullptr) return E_POINTER;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        const ComPtr<IStream> stream = EmptyStream();
        Check(object_.Interfaces().stream.Save(stream.Get(), FALSE));
        ULARGE_INTEGER written = {};
        Check(stream->Seek({}, STREAM_SEEK_CUR, &written));
        if (written.QuadPart > size) return STG_E_MEDIUMFULL;
        Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
        Check(stream->Read(memory, written.LowPart, nullptr));
        if (clearDirty) object_.dirty = false;
        return S_OK;
    });
}

HRESULT ControlPersistMemory::GetSizeMax(ULONG* size) {
    if (size == nullptr) return E_POINTER;
    ULARGE_INTEGER bytes = {};
    const HRESULT result = object_.Interfaces().stream.GetSizeMax(&bytes);
    *size = bytes.LowPart;
    return result;
}

HRESULT ControlPersistMemory::InitNew() {
    return object_.Interfaces().stream.InitNew();
}

}  // namespace foldertree

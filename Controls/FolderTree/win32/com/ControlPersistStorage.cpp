// ControlPersistStorage: IPersistStorage of the control: the settings' stream in a storage of the container's.
#include "win32/com/ControlPersistStorage.h"

#include <ole2.h>

#include <utility>

#include "automation_win32/ComPtr.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

using automation::ComPtr;

namespace {

constexpr wchar_t contents[] = L"Contents";

}  // namespace

ControlPersistStorage::ControlPersistStorage(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlPersistStorage::GetClassID(CLSID* clsid) {
    return object_.Interfaces().stream.GetClassID(clsid);
}

HRESULT ControlPersistStorage::IsDirty() {
    return object_.Interfaces().stream.IsDirty();
}

HRESULT ControlPersistStorage::InitNew(IStorage* storage) {
    if (storage == nullptr) return E_POINTER;
    if (state_ != State::normal) return E_UNEXPECTED;
    return object_.Interfaces().stream.InitNew();
}

HRESULT ControlPersistStorage::Load(IStorage* storage) {
    if (storage == nullptr) return E_POINTER;
    if (state_ != State::normal) return E_UNEXPECTED;
    const ControlObject::Use use(object_);
    ComPtr<IStream> stream;
    const HRESULT result =
        storage->OpenStream(contents, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.GetAddressOf());
    if (FAILED(result)) return result;
    return stream != nullptr ? object_.Interfaces().stream.Load(stream.Get()) : E_UNEXPECTED;
}

HRESULT ControlPersistStorage::Save(IStorage* storage, BOOL sameAsLoad) {
    if (storage == nullptr) return E_POINTER;
    if (state_ != State::normal) return E_UNEXPECTED;
    const ControlObject::Use use(object_);
    ComPtr<IStream> stream;
    HRESULT result = storage->CreateStream(contents, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                           stream.GetAddressOf());
    if (FAILED(result)) return result;
    result = stream != nullptr ? object_.Interfaces().stream.Save(stream.Get(), FALSE) : E_UNEXPECTED;
    if (FAILED(result)) return result;
    state_ = State::saved;
    savedHere_ = true;
    sameAsLoad_ = sameAsLoad != FALSE;
    return S_OK;
}

HRESULT ControlPersistStorage::SaveCompleted(IStorage* storage) {
    if (state_ == State::normal) return E_UNEXPECTED;
    // Hands off, the control has no storage to go on with unless it is given one.
    if (state_ == State::handsOff && storage == nullptr) return E_INVALIDARG;
    const ControlObject::Use use(object_);
    state_ = State::normal;
    if (!std::exchange(savedHere_, false)) return S_OK;
    // A copy that was saved elsewhere leaves the control as unsaved as it was.
    if (!sameAsLoad_ && storage == nullptr) return S_OK;
    object_.dirty = false;
    object_.Interfaces().oleObject.SendSaved();
    return S_OK;
}

HRESULT ControlPersistStorage::HandsOffStorage() {
    if (state_ == State::handsOff) return E_UNEXPECTED;
    state_ = State::handsOff;
    return S_OK;
}

}  // namespace foldertree

// ChangedSink: finding the event interface and connecting to it.
#include "ChangedSink.h"

namespace demo {
namespace {

/// The number of the event `Changed`, from the type library; its first number when the library cannot be asked.
DISPID ChangedId(IProvideClassInfo* classInfo, REFIID eventInterface) {
    constexpr DISPID usual = 1;
    ComPtr<ITypeInfo> coclass, events;
    ComPtr<ITypeLib> library;
    UINT index = 0;
    if (FAILED(classInfo->GetClassInfo(&coclass)) || FAILED(coclass->GetContainingTypeLib(&library, &index)) ||
        FAILED(library->GetTypeInfoOfGuid(eventInterface, &events))) {
        return usual;
    }
    wchar_t name[] = L"Changed";
    LPOLESTR names = name;
    MEMBERID id = usual;
    return SUCCEEDED(events->GetIDsOfNames(&names, 1, &id)) ? id : usual;
}

}  // namespace

ComPtr<ChangedSink> ChangedSink::Connect(IUnknown* control, std::function<void()> onChanged) {
    ComPtr<IProvideClassInfo2> classInfo;
    ComPtr<IConnectionPointContainer> container;
    ComPtr<ChangedSink> sink;
    GUID eventInterface = {};
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&classInfo))) ||
        FAILED(control->QueryInterface(IID_PPV_ARGS(&container))) ||
        FAILED(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &eventInterface))) {
        return nullptr;
    }
    sink = Adopt(new ChangedSink(eventInterface, ChangedId(classInfo.Get(), eventInterface), std::move(onChanged)));
    if (FAILED(container->FindConnectionPoint(eventInterface, &sink->point_)) ||
        FAILED(sink->point_->Advise(sink.Get(), &sink->cookie_))) {
        return nullptr;
    }
    return sink;
}

void ChangedSink::Disconnect() {
    onChanged_ = nullptr;
    if (point_) point_->Unadvise(cookie_);
    point_.Reset();
}

HRESULT ChangedSink::QueryInterface(REFIID iid, void** object) {
    return ComObject::QueryInterface(iid == eventInterface_ ? IID_IDispatch : iid, object);
}

HRESULT ChangedSink::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT ChangedSink::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

HRESULT ChangedSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

HRESULT ChangedSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
    if (id != changedId_) return DISP_E_MEMBERNOTFOUND;
    if (onChanged_) onChanged_();
    return S_OK;
}

}  // namespace demo

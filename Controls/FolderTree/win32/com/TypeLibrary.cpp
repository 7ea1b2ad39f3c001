// TypeLibrary: the component's own type library, as it lies in the module that this code is in.
#include "win32/com/TypeLibrary.h"

#include "automation_win32/ComError.h"
#include "automation_win32/Module.h"

namespace foldertree {

using automation::Check;
using automation::ComBoundary;
using automation::ComPtr;

namespace {

ComPtr<ITypeLib> Load() {
    ComPtr<ITypeLib> library;
    Check(
        LoadTypeLibEx(automation::ModulePath(automation::ThisModule()).c_str(), REGKIND_NONE, library.GetAddressOf()));
    return library;
}

}  // namespace

ITypeLib& TypeLibrary() {
    // Never released: when the process ends, the system's automation library may be gone before this module.
    static ITypeLib* const library = Load().Detach();
    return *library;
}

ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid) {
    ComPtr<ITypeInfo> info;
    Check(TypeLibrary().GetTypeInfoOfGuid(guid, info.GetAddressOf()));
    return info;
}

HRESULT GiveTypeInfo(REFGUID guid, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return ComBoundary([&] {
        *info = TypeInfoOf(guid).Detach();
        return S_OK;
    });
}

HRESULT TypeInfoDispatch::GetTypeInfoCount(UINT* count) const noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT TypeInfoDispatch::GetTypeInfo(UINT index, ITypeInfo** info) const noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return index == 0 ? GiveTypeInfo(interfaceId_, info) : DISP_E_BADINDEX;
}

HRESULT TypeInfoDispatch::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept {
    return ComBoundary([&] { return TypeInfoOf(interfaceId_)->GetIDsOfNames(names, count, ids); });
}

HRESULT TypeInfoDispatch::Invoke(void* object, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                 EXCEPINFO* exception, UINT* badArgument) const noexcept {
    return ComBoundary([&] {
        return TypeInfoOf(interfaceId_)->Invoke(object, member, flags, parameters, result, exception, badArgument);
    });
}

}  // namespace foldertree

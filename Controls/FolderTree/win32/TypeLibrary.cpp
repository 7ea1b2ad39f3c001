// TypeLibrary: the component's own type library, as it lies in the module that this code is in.
#include "win32/TypeLibrary.h"

#include "automation_win32/ComError.h"

namespace foldertree {

using automation::Check;
using automation::ComBoundary;
using automation::ComPtr;

namespace {

HMODULE ModuleOf(const void* address) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(address), &module);
    return module;
}

ComPtr<ITypeLib> Load() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.GetAddressOf()));
    return library;
}

}  // namespace

std::wstring ModulePath() {
    static const char anchor = 0;
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ModuleOf(&anchor), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

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

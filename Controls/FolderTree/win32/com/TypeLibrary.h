// TypeLibrary: the component's own type library, as it lies in the module that this code is in.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include "automation_win32/ComPtr.h"

namespace foldertree {

/// Loaded once a process. Throws automation::Error when the module carries no type library.
ITypeLib& TypeLibrary();
/// The description of an interface or class of the type library. Throws automation::Error for a foreign one.
automation::ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid);
/// As TypeInfoOf, for a method of COM that answers with it.
HRESULT GiveTypeInfo(REFGUID guid, ITypeInfo** info) noexcept;

/// The four methods of IDispatch, told by an interface's description. It holds no object: Invoke is handed the one
/// whose slots are called, which must be of exactly that interface.
class TypeInfoDispatch {
  public:
    explicit constexpr TypeInfoDispatch(const IID& interfaceId) : interfaceId_(interfaceId) {}

    HRESULT GetTypeInfoCount(UINT* count) const noexcept;
    HRESULT GetTypeInfo(UINT index, ITypeInfo** info) const noexcept;
    HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept;
    HRESULT Invoke(void* object, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception, UINT* badArgument) const noexcept;

  private:
    IID interfaceId_;
};

}  // namespace foldertree

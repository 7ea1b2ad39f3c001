// ObjectDispatch: an Object as IDispatch, for late-bound hosts.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "automation/Object.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/Crossing.h"

namespace automation {

/// Made by ToCom. A member has the same number in every object of this module. It has no type library.
class ObjectDispatch final : public ComBase<IDispatch, IObjectHolder> {
  public:
    explicit ObjectDispatch(ObjectRef object);

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* info, UINT* badArgument) override;

    HRESULT STDMETHODCALLTYPE GetHeldObject(const void* module, ObjectRef* object) noexcept override;

  private:
    ObjectRef object_;
    WrapperEntry entry_;
};

/// The number of a member or parameter name in this module. Throws std::bad_alloc.
DISPID NumberOfName(std::string_view name);

/// GetIDsOfNames for any object.
HRESULT NumbersOfNames(const Object& object, LPOLESTR* names, UINT count, DISPID* numbers) noexcept;

/// Invoke for any object, as a late-bound host calls it; for COM classes of a project's own, too.
HRESULT InvokeObject(const ObjectRef& object, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                     EXCEPINFO* info) noexcept;

/// An IEnumVARIANT over the object's items; null when it offers no enumeration. Throws Error.
ComPtr<IEnumVARIANT> MakeEnumVariant(const ObjectRef& object);

}  // namespace automation

// Crossing: the border between Object and COM. A pointer that crosses it twice is the same pointer again.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>

#include "automation/Object.h"
#include "automation_win32/ComPtr.h"

namespace automation {

/// The object behind a COM pointer: the Object itself where the pointer is one of this module's own, else a ComObject,
/// the same one for the same COM object as long as it lives. Null is Nothing. A pointer without IDispatch has no
/// members, but crosses back unchanged.
ObjectRef FromCom(IUnknown* pointer);

/// The COM pointer for an object: a ComObject's own original pointer; the wrapper that the object has already; one from
/// the registered makers; else a new ObjectDispatch. Null for Nothing.
ComPtr<IUnknown> ToCom(const ObjectRef& object);

/// As ToCom; null where the object is a foreign pointer without IDispatch.
ComPtr<IDispatch> ToDispatch(const ObjectRef& object);

/// Gives objects of a project's own type their own COM class instead of ObjectDispatch: returns null for objects of
/// other types. Such a class holds its Object, implements IObjectHolder, and names itself by a WrapperEntry.
using WrapperMaker = std::function<ComPtr<IDispatch>(const ObjectRef&)>;
/// Makers are asked in the order of their registration. They stay registered as long as the module is loaded.
void RegisterWrapperMaker(WrapperMaker maker);

/// A member of a COM class that wraps an Object: while it lives, ToCom gives that wrapper for that object.
class WrapperEntry {
  public:
    /// `wrapper` is the COM object that has this member. It must keep `object` alive.
    WrapperEntry(const Object* object, IDispatch* wrapper);
    ~WrapperEntry();
    WrapperEntry(const WrapperEntry&) = delete;
    WrapperEntry& operator=(const WrapperEntry&) = delete;

  private:
    const Object* object_;
    IDispatch* wrapper_;
};

/// The private interface by which a COM object of ours is recognised when it comes back.
struct IObjectHolder : public IUnknown {
    /// Stores the object as an ObjectRef in `*object` and returns S_OK, or returns E_NOINTERFACE when the caller is
    /// another module (`module` is not ThisModule()): an Object must not leave the module whose code made it.
    virtual HRESULT STDMETHODCALLTYPE GetHeldObject(const void* module, ObjectRef* object) noexcept = 0;

  protected:
    ~IObjectHolder() = default;
};

}  // namespace automation

__CRT_UUID_DECL(automation::IObjectHolder, 0xad82041b, 0x1229, 0x4aaf, 0x9d, 0x33, 0x53, 0x1a, 0xb7, 0x46, 0xe8, 0x56)

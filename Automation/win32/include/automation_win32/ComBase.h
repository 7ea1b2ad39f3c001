// ComBase: reference counting and QueryInterface for our own COM classes.
#pragma once

#include <windows.h>

#include <utility>

#include "automation_win32/ComPtr.h"
#include "automation_win32/ModuleLock.h"

namespace automation {

/// Derive as `class Thing final : public ComBase<IDispatch, IOther>`; the first interface is the identity. An object
/// starts with one reference, so MakeCom is the way to make one, and it keeps its module loaded.
template <class First, class... Others>
class ComBase : public First, public Others... {
  public:
    ComBase() = default;
    ComBase(const ComBase&) = delete;
    ComBase& operator=(const ComBase&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        if (iid == __uuidof(IUnknown) || iid == __uuidof(First))
            *out = static_cast<First*>(this);
        else
            (void)((iid == __uuidof(Others) && (*out = static_cast<Others*>(this))) || ...);
        if (*out == nullptr) *out = FindInterface(iid);
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) {
            references_ = 1;  // what the destructor hands out and takes back does not delete the object again
            delete this;
        }
        return static_cast<ULONG>(left);
    }

  protected:
    virtual ~ComBase() = default;

    /// For the bases of the interfaces in the list (IPersist of IPersistPropertyBag …); no reference is added here.
    virtual void* FindInterface(REFIID) { return nullptr; }

  private:
    LONG references_ = 1;
    ModuleLock lock_;
};

/// A new object of a class derived from ComBase.
template <class Class, class... Arguments>
ComPtr<Class> MakeCom(Arguments&&... arguments) {
    ComPtr<Class> object;
    object.Attach(new Class(std::forward<Arguments>(arguments)...));
    return object;
}

}  // namespace automation

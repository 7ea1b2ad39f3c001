// ComObject: a reference-counted object that offers a list of COM interfaces.
#pragma once

#include <windows.h>
#include <wrl/client.h>

namespace demo {

using Microsoft::WRL::ComPtr;

/// Takes over the reference that a new object starts with. (MinGW's ComPtr::Attach counts one more.)
template <class T>
ComPtr<T> Adopt(T* object) {
    ComPtr<T> pointer(object);
    object->Release();
    return pointer;
}

// COM interfaces have no virtual destructor; Release() alone ends an object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Derive from ComObject<Interfaces...>. An object starts with one reference, which belongs to its maker:
/// `ComPtr<X> x = Adopt(new X(...));`. One thread only.
template <class First, class... Others>
class ComObject : public First, public Others... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = iid == IID_IUnknown ? static_cast<First*>(this) : nullptr;
        Offer<First>(iid, object);
        (Offer<Others>(iid, object), ...);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~ComObject() = default;

  private:
    template <class Interface>
    void Offer(REFIID iid, void** object) {
        if (iid == __uuidof(Interface)) *object = static_cast<Interface*>(this);
    }

    ULONG references_ = 1;
};

#pragma GCC diagnostic pop

}  // namespace demo

// ComPtr: the counted reference to a COM object.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <concepts>
#include <cstddef>
#include <utility>

namespace automation {

/// Names and meaning are those of Microsoft's class of this name. MinGW's version of it counts a reference too many in
/// Attach, so nothing would ever be released.
template <class T>
class ComPtr {
  public:
    using InterfaceType = T;

    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    ComPtr(T* pointer) : pointer_(pointer) { AddReference(); }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(other.Detach()) {}
    template <class U>
    requires std::convertible_to<U*, T*> ComPtr(const ComPtr<U>& other) : ComPtr(static_cast<T*>(other.Get())) {}
    template <class U>
    requires std::convertible_to<U*, T*> ComPtr(ComPtr<U>&& other)
    noexcept : pointer_(other.Detach()) {}
    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    T* Get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    friend bool operator==(const ComPtr& a, const ComPtr& b) { return a.pointer_ == b.pointer_; }

    /// For a call that stores a counted reference; the pointer must be null before.
    T** GetAddressOf() { return &pointer_; }
    T** ReleaseAndGetAddressOf() {
        Reset();
        return &pointer_;
    }

    void Reset() {
        if (T* const pointer = Detach()) pointer->Release();
    }
    /// Takes over a reference that is counted already.
    void Attach(T* pointer) {
        Reset();
        pointer_ = pointer;
    }
    /// Hands the reference over to the caller.
    T* Detach() { return std::exchange(pointer_, nullptr); }

    /// Asks for another interface. Where there is none, `other` is null, whatever the object has left there.
    template <class U>
    HRESULT As(ComPtr<U>* other) const {
        const HRESULT result =
            pointer_->QueryInterface(__uuidof(U), reinterpret_cast<void**>(other->ReleaseAndGetAddressOf()));
        if (FAILED(result)) other->Detach();
        return result;
    }

  private:
    void AddReference() {
        if (pointer_ != nullptr) pointer_->AddRef();
    }

    T* pointer_ = nullptr;
};

}  // namespace automation

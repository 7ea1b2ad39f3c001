// RegistryKey: the few things that registration does with the registry.
#pragma once

#include <windows.h>

#include <string>

namespace automation {

/// An open key with the right to write. All members throw Error with the HRESULT of the failure.
class RegistryKey {
  public:
    /// `Software\Classes` of the machine or of the user.
    static RegistryKey Classes(bool ofUser);
    ~RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept : key_(other.key_) { other.key_ = nullptr; }
    RegistryKey& operator=(RegistryKey&&) = delete;

    /// Writes a text value of a subkey, which is made when it is missing; an empty name is the default value.
    void Write(const std::wstring& subkey, const std::wstring& name, const std::wstring& text) const;
    /// A text value; empty when it is missing.
    std::wstring Read(const std::wstring& subkey, const std::wstring& name) const;
    /// Removes a subkey with all below it. A missing one is no failure.
    void RemoveTree(const std::wstring& subkey) const;
    /// Removes a subkey that holds neither keys nor values; leaves any other.
    void RemoveIfBare(const std::wstring& subkey) const;

  private:
    explicit RegistryKey(HKEY key) : key_(key) {}
    HKEY key_;
};

}  // namespace automation

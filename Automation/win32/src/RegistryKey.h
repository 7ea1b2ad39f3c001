// RegistryKey: the few things that registration does with the registry.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace automation {

/// A value of any type, as it stands in the registry.
struct RegistryValue {
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

/// An open key with the right to write. All members that may fail throw Error with the HRESULT of the failure.
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
    bool Has(const std::wstring& subkey) const;
    /// A value of any type; nothing when it is missing.
    std::optional<RegistryValue> ReadRaw(const std::wstring& subkey, const std::wstring& name) const;
    /// Puts a value back, or removes it where there was none; makes no key. Does what it can.
    void RestoreRaw(const std::wstring& subkey, const std::wstring& name,
                    const std::optional<RegistryValue>& value) const noexcept;
    /// Removes a subkey with all below it. A missing one is no failure.
    void RemoveTree(const std::wstring& subkey) const;
    /// Removes a subkey that holds neither keys nor values; leaves any other.
    void RemoveIfBare(const std::wstring& subkey) const;
    /// The same where a failure must not matter.
    void TryRemoveIfBare(const std::wstring& subkey) const noexcept { BareRemoval(subkey); }

  private:
    explicit RegistryKey(HKEY key) : key_(key) {}
    LSTATUS BareRemoval(const std::wstring& subkey) const noexcept;

    HKEY key_;
};

}  // namespace automation

// RegistryKey: thin over the Reg… functions.
#include "RegistryKey.h"

#include "automation_win32/ComError.h"

namespace automation {

namespace {

void CheckWin32(LSTATUS status) {
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

}  // namespace

RegistryKey RegistryKey::Classes(bool ofUser) {
    HKEY key = nullptr;
    CheckWin32(RegCreateKeyExW(ofUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, L"Software\\Classes", 0, nullptr, 0,
                               KEY_READ | KEY_WRITE, nullptr, &key, nullptr));
    return RegistryKey(key);
}

RegistryKey::~RegistryKey() {
    if (key_ != nullptr) RegCloseKey(key_);
}

void RegistryKey::Write(const std::wstring& subkey, const std::wstring& name, const std::wstring& text) const {
    HKEY key = nullptr;
    CheckWin32(RegCreateKeyExW(key_, subkey.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr));
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const LSTATUS status =
        RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size);
    RegCloseKey(key);
    CheckWin32(status);
}

std::wstring RegistryKey::Read(const std::wstring& subkey, const std::wstring& name) const {
    wchar_t buffer[512];
    DWORD size = sizeof(buffer);
    const LSTATUS status = RegGetValueW(key_, subkey.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, buffer, &size);
    return status == ERROR_SUCCESS ? std::wstring(buffer) : std::wstring();
}

void RegistryKey::RemoveTree(const std::wstring& subkey) const {
    const LSTATUS status = RegDeleteTreeW(key_, subkey.c_str());
    if (status != ERROR_FILE_NOT_FOUND) CheckWin32(status);
}

void RegistryKey::RemoveIfBare(const std::wstring& subkey) const {
    CheckWin32(BareRemoval(subkey));
}

LSTATUS RegistryKey::BareRemoval(const std::wstring& subkey) const noexcept {
    HKEY key = nullptr;
    if (RegOpenKeyExW(key_, subkey.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return ERROR_SUCCESS;
    DWORD subkeys = 0;
    DWORD values = 0;
    const LSTATUS status = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values,
                                            nullptr, nullptr, nullptr, nullptr);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS || subkeys != 0 || values != 0) return status;
    const LSTATUS removed = RegDeleteTreeW(key_, subkey.c_str());
    return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
}

bool RegistryKey::Has(const std::wstring& subkey) const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(key_, subkey.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

std::optional<RegistryValue> RegistryKey::ReadRaw(const std::wstring& subkey, const std::wstring& name) const {
    RegistryValue value;
    constexpr DWORD anyType = RRF_RT_ANY | RRF_NOEXPAND;
    while (true) {
        auto size = static_cast<DWORD>(value.bytes.size());
        const LSTATUS status = RegGetValueW(key_, subkey.c_str(), name.c_str(), anyType, &value.type,
                                            value.bytes.empty() ? nullptr : value.bytes.data(), &size);
        if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return std::nullopt;
        if (status != ERROR_MORE_DATA) CheckWin32(status);
        const bool whole = status == ERROR_SUCCESS && (size == 0 || !value.bytes.empty());
        value.bytes.resize(size);
        if (whole) return value;
    }
}

void RegistryKey::RestoreRaw(const std::wstring& subkey, const std::wstring& name,
                             const std::optional<RegistryValue>& value) const noexcept {
    HKEY key = nullptr;
    if (RegOpenKeyExW(key_, subkey.c_str(), 0, KEY_WRITE, &key) != ERROR_SUCCESS) return;
    if (value)
        RegSetValueExW(key, name.c_str(), 0, value->type, value->bytes.data(), static_cast<DWORD>(value->bytes.size()));
    else
        RegDeleteValueW(key, name.c_str());
    RegCloseKey(key);
}

}  // namespace automation

// TraceReceivers: whether anybody can receive what is written to the debugger's output.
#include "win32/com/TraceReceivers.h"

#include <windows.h>

#include <cwchar>

namespace foldertree {

namespace {

enum class Setting { None, Always, Ask };

/// Read anew each time: a host may set the variable while the control runs.
Setting ReadSetting() {
    wchar_t text[8];
    const DWORD length = GetEnvironmentVariableW(L"FOLDERTREE_TRACE", text, ARRAYSIZE(text));
    if (length == 0 || length >= ARRAYSIZE(text)) return Setting::None;
    if (_wcsicmp(text, L"always") == 0) return Setting::Always;
    return _wcsicmp(text, L"ask") == 0 ? Setting::Ask : Setting::None;
}

bool IsWine() {
    static const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isWine;
}

/// One that may not be opened is there all the same.
bool SectionExists(const wchar_t* name) {
    const HANDLE section = OpenFileMappingW(FILE_MAP_WRITE, FALSE, name);
    if (section == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;
    CloseHandle(section);
    return true;
}

}  // namespace

bool TraceHasReceiver() noexcept {
    const Setting setting = ReadSetting();
    if (setting == Setting::Always) return true;
    if (setting == Setting::None && IsWine()) return true;
    return IsDebuggerPresent() || SectionExists(L"DBWIN_BUFFER") || SectionExists(L"Global\\DBWIN_BUFFER");
}

}  // namespace foldertree

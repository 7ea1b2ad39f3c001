// OtherReader: another process that reads a window of this one while this one handles its messages.
#pragma once

#include <windows.h>

#include <string>

#include "WindowFixture.h"

namespace foldertree::testing {

/// What AccessibleDump, which stands beside the test program, prints with the arguments behind the window's; the text
/// "exit code N" when it fails, or what it was when it does not end.
inline std::string ReadByOtherProcess(HWND window, const std::wstring& arguments = L"") {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE output = nullptr;
    HANDLE its = nullptr;
    if (!CreatePipe(&output, &its, &inherited, 1 << 20)) return "no pipe";
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring command(program);
    command = L"\"" + command.substr(0, command.find_last_of(L"\\/") + 1) + L"AccessibleDump.exe\" " +
              std::to_wstring(reinterpret_cast<ULONG_PTR>(window)) + arguments;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = its;
    PROCESS_INFORMATION process{};
    const BOOL made =
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    CloseHandle(its);
    std::string text;
    if (made) {
        // It calls into this thread, which must listen meanwhile.
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (MsgWaitForMultipleObjects(1, &process.hProcess, FALSE, 1000, QS_ALLINPUT) != WAIT_OBJECT_0 &&
               std::chrono::steady_clock::now() < end)
            HostWindow::Pump();
        DWORD code = STILL_ACTIVE;
        GetExitCodeProcess(process.hProcess, &code);
        char part[4096];
        for (DWORD read = 0; code == 0 && ReadFile(output, part, sizeof part, &read, nullptr) && read != 0;)
            text.append(part, read);
        if (code != 0) text = "exit code " + std::to_string(code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    } else {
        text = "no process";
    }
    CloseHandle(output);
    std::erase(text, '\r');
    return text;
}

}  // namespace foldertree::testing

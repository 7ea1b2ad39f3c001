// FolderTreeDemo: a host application for the folder tree control.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "DemoForm.h"
#include "LateBound.h"
#include "Options.h"
#include "Text.h"
#include "TraceLog.h"

namespace {

std::vector<std::wstring> Arguments() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments(words + 1, words + count);
    LocalFree(words);
    return arguments;
}

void Print(DWORD stream, const std::string& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(stream), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

int RunForm(const demo::Options& options) {
    demo::DemoForm form(options);
    try {
        form.Open();
    } catch (const demo::AutomationFailure& failure) {
        Print(STD_ERROR_HANDLE, "FolderTreeDemo: " + demo::ToUtf8(failure.Message()) + "\n");
        if (!options.Unattended()) MessageBoxW(nullptr, failure.Message().c_str(), L"FolderTree demo", MB_ICONERROR);
        return 2;
    }
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (form.TranslateMessage(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return form.ExitCode();
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const demo::Options options = demo::ParseOptions(Arguments());
    if (options.help) {
        Print(STD_OUTPUT_HANDLE, demo::usageText);
        return 0;
    }
    if (!options.error.empty()) {
        Print(STD_ERROR_HANDLE, "FolderTreeDemo: " + demo::ToUtf8(options.error) + "\n" + demo::usageText);
        return 2;
    }
    if (!demo::TraceLog::Instance().Start(options.traceFile)) {
        Print(STD_ERROR_HANDLE, "FolderTreeDemo: cannot write " + demo::ToUtf8(options.traceFile) + "\n");
        return 2;
    }
    OleInitialize(nullptr);
    const INITCOMMONCONTROLSEX controls = {
        sizeof controls, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    const int exitCode = RunForm(options);
    OleUninitialize();
    demo::TraceLog::Instance().Stop();
    return exitCode;
}

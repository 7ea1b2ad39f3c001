// Options: reading the command line.
#include "Options.h"

#include <windows.h>

#include <shlobj.h>
#include <climits>
#include <cwchar>

namespace demo {
namespace {

std::optional<int> WholeNumber(const std::wstring& text) {
    wchar_t* end = nullptr;
    const long value = wcstol(text.c_str(), &end, 10);
    if (text.empty() || *end != L'\0' || value < 0 || value == LONG_MAX) return std::nullopt;
    return static_cast<int>(value);
}

std::wstring DefaultStateFile() {
    wchar_t folder[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, folder)))
        return L"FolderTreeDemo.txt";
    return std::wstring(folder) + L"\\FolderTreeDemo.txt";
}

/// Stores one option with a value; false when there is no such option.
bool Store(Options& options, const std::wstring& name, const std::wstring& value) {
    const auto storeNumber = [&](auto& target) {
        const auto number = WholeNumber(value);
        if (number)
            target = *number;
        else
            options.error = name + L" wants a whole number, not \"" + value + L"\"";
    };
    if (name == L"--pst" || name == L"--maildir")
        options.mailStores.push_back(value);
    else if (name == L"--level")
        storeNumber(options.level);
    else if (name == L"--mode")
        storeNumber(options.mode);
    else if (name == L"--slow")
        storeNumber(options.slowMilliseconds);
    else if (name == L"--ready")
        options.readyFile = value;
    else if (name == L"--watch")
        options.watchFile = value;
    else if (name == L"--trace")
        options.traceFile = value;
    else if (name == L"--state")
        options.stateFile = value;
    else
        return false;
    return true;
}

}  // namespace

const char* const usageText =
    "FolderTreeDemo [option]...\n"
    "  --pst FILE      open a PST file (repeatable)\n"
    "  --maildir DIR   open a Maildir tree (repeatable); with neither, the sample mailbox\n"
    "  --level N       read N levels (0 = all)\n"
    "  --mode N        access mode: 0 MAPI tables, 1 RDO objects, 2 Outlook, 3 CDO\n"
    "  --slow MS       delay every table read of the sample mailbox by MS milliseconds\n"
    "  --ready FILE    write the shown tree to FILE as indented text once it stands\n"
    "  --watch FILE    keep FILE up to date with rows, selection and buttons, and where they are on the screen\n"
    "  --trace FILE    write the debugger output to FILE\n"
    "  --state FILE    keep properties and selection in FILE instead of the user's application data\n";

Options ParseOptions(const std::vector<std::wstring>& arguments) {
    Options options;
    for (size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        const std::wstring& name = arguments[i];
        if (name == L"--help") {
            options.help = true;
        } else if (i + 1 == arguments.size()) {
            options.error = L"unknown option, or one without its value: " + name;
        } else if (!Store(options, name, arguments[++i])) {
            options.error = L"unknown option: " + name;
        }
    }
    if (options.stateFile.empty()) options.stateFile = DefaultStateFile();
    return options;
}

}  // namespace demo

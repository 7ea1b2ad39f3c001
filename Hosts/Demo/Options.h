// Options: what the command line asks of the demo.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

struct Options {
    std::vector<std::wstring> mailStores;  ///< files and folders to open; empty: the sample mailbox
    std::optional<int> level;              ///< overrides the saved ExtendToLevel
    std::optional<int> mode;               ///< overrides the saved InfoStoreAccessMode
    int slowMilliseconds = 0;              ///< delay of each table read of the sample mailbox
    std::wstring readyFile;                ///< gets the tree as text once it stands
    std::wstring watchFile;                ///< is kept up to date with what the window shows
    std::wstring traceFile;                ///< gets every line of debugger output
    std::wstring stateFile;                ///< properties and selection between two runs
    bool help = false;
    std::wstring error;  ///< why the command line cannot be obeyed; empty when it can

    /// Started by a script: report a failure by exit code instead of a message box.
    bool Unattended() const { return !readyFile.empty() || !watchFile.empty(); }
};

Options ParseOptions(const std::vector<std::wstring>& arguments);

extern const char* const usageText;

}  // namespace demo

// RegistryRows: all that a COM server registers, as data.
#pragma once

#include <string>
#include <vector>

#include "automation_win32/ComServer.h"

namespace automation {

/// One text value below `Software\Classes`; an empty name is the key's default value.
struct RegistryRow {
    std::wstring key;
    std::wstring name;
    std::wstring text;
};

/// Said once: registration writes these rows, installers and side-by-side manifests are made from them. `path` is where
/// the module will stand; of the classes with an option only those in `options` are there. Throws Error.
std::vector<RegistryRow> RegistryRows(const ComServer& server, const std::vector<std::wstring>& options,
                                      const std::wstring& path);

}  // namespace automation

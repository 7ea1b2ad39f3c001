// Registration: the registry keys of a COM server.
#pragma once

#include "RegistryKey.h"
#include "automation_win32/ComServer.h"

namespace automation {

/// Both throw Error with the HRESULT of the failure; ERROR_ALREADY_EXISTS when the ProgID of an optional class is
/// taken. A WriteServerKeys that fails has changed nothing: an earlier registration stays as it was.
void WriteServerKeys(const ComServer& server, const std::vector<std::wstring>& options, const RegistryKey& classes);
void RemoveServerKeys(const ComServer& server, const RegistryKey& classes);

}  // namespace automation

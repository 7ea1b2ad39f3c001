// Module: the DLL or program that this code is in.
#pragma once

#include <windows.h>

#include <string>

namespace automation {

/// The same in all code of one DLL or program, and no other's.
HINSTANCE ThisModule();

/// The full path of a loaded module. Throws Error when there is none.
std::wstring ModulePath(HMODULE module);

}  // namespace automation

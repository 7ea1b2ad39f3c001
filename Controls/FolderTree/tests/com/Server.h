// Server: the component under test, FolderTree.ocx beside the test program, without any registration.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "FolderTree.idl.h"
#include "automation/Object.h"
#include "automation_win32/ComPtr.h"

namespace foldertree::testing {

using automation::ComPtr;

/// The loaded DLL. Its classes can be created by CLSID as long as the program runs.
HMODULE ServerModule();
std::wstring ServerPath();

/// One of the DLL's entry points.
template <class Function>
Function* EntryPoint(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(ServerModule(), name)));
}

/// A new control, through its class factory.
ComPtr<_ctlFolderTree> NewControl();
ComPtr<_clsFolderTreeItem> NewItem();

template <class Interface, class From>
ComPtr<Interface> As(const ComPtr<From>& from) {
    ComPtr<Interface> result;
    if (from != nullptr) from.As(&result);
    return result;
}

/// How many references the object has.
ULONG References(IUnknown* object);

std::string Text(BSTR owned);

/// The control as a late-bound host sees it.
automation::ObjectRef LateBound(IUnknown* object);

}  // namespace foldertree::testing

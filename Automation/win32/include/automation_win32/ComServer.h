// ComServer: what the entry points of an in-process COM server do: class objects, registration and its removal.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "automation_win32/ComPtr.h"

namespace automation {

/// What a container's menu offers for a control.
struct ServerVerb {
    LONG number;
    std::wstring name;  ///< without a comma
};

/// One class that hosts may create.
struct ServerClass {
    CLSID clsid;
    std::wstring progId;
    std::wstring title;                      ///< what object browsers show
    std::function<ComPtr<IUnknown>()> make;  ///< a new object; may throw Error
    DWORD miscStatus = 0;                    ///< OLEMISC flags of a control; 0: the class is no control
    WORD toolbarBitmap = 0;                  ///< resource number of a control's 16x15 bitmap; 0: none
    /// A class with an option is registered only by an Install that names it: its ProgID is another maker's, whom we
    /// stand in for. What that maker registered is never overwritten and never removed.
    std::wstring option = {};
    std::vector<ServerVerb> verbs = {};
};

/// Whose registry keys: those of all users (needs the rights to write there) or of the current one.
enum class RegistryScope { Machine, User };

/// A server is a constant of its DLL; ServerEntryPoints.cpp, a source of every such DLL, hands the exports over to it:
///   DllGetClassObject -> GetClassObject, DllCanUnloadNow -> CanUnloadNow, DllRegisterServer -> Register(Machine),
///   DllUnregisterServer -> Unregister(Machine), DllInstall -> Install.
/// The type library is the resource 1 TYPELIB of the DLL. All members are noexcept and return HRESULTs.
struct ComServer {
    HMODULE module = nullptr;
    bool hasTypeLibrary = false;
    std::vector<ServerClass> classes;

    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** out) const noexcept;
    HRESULT CanUnloadNow() const noexcept;
    /// Writes ProgID, CLSID, InprocServer32 (apartment threading), Programmable, TypeLib and Interface keys. What
    /// failed half way is taken back, and what was registered before stays. Of the classes with an option only those in
    /// `options` are written.
    HRESULT Register(RegistryScope scope, const std::vector<std::wstring>& options = {}) const noexcept;
    /// Removes everything that Register wrote; keys that are not there are no failure.
    HRESULT Unregister(RegistryScope scope) const noexcept;
    /// `commandLine` is a list of words in any letter case, separated by blanks: "user" is per user, otherwise it is
    /// per machine; each other word is an option.
    HRESULT Install(BOOL install, const wchar_t* commandLine) const noexcept;
};

/// Each DLL defines this; it is asked once, when the first entry point is called.
ComServer DescribeServer(HMODULE module);

}  // namespace automation

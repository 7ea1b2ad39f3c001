// DllMain: the entry points of LocalStores.dll.
#include <windows.h>

#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "localstores/RdoSession.h"

namespace {

// {081D4C38-B346-4303-BB78-F95EEA5CCF3E}
constexpr CLSID sessionClass = {0x081d4c38, 0xb346, 0x4303, {0xbb, 0x78, 0xf9, 0x5e, 0xea, 0x5c, 0xcf, 0x3e}};

automation::ComServer server = {.classes = {{.clsid = sessionClass,
                                             .progId = L"LocalStores.Session",
                                             .title = L"Local mail stores (PST files, Maildir trees, a sample mailbox)",
                                             .make = [] { return automation::ToCom(localstores::MakeRdoSession()); }}}};

}  // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) server.module = module;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    return server.GetClassObject(clsid, iid, out);
}

STDAPI DllCanUnloadNow() {
    return server.CanUnloadNow();
}

STDAPI DllRegisterServer() {
    return server.Register(automation::RegistryScope::Machine);
}

STDAPI DllUnregisterServer() {
    return server.Unregister(automation::RegistryScope::Machine);
}

STDAPI DllInstall(BOOL install, const wchar_t* commandLine) {
    return server.Install(install, commandLine);
}

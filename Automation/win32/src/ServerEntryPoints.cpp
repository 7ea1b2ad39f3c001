// ServerEntryPoints: the exports of every in-process COM server of ours; compiled into each DLL.
#include "automation_win32/ComServer.h"

namespace {

HMODULE thisModule = nullptr;

const automation::ComServer& Server() {
    static const automation::ComServer server = automation::DescribeServer(thisModule);
    return server;
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        thisModule = module;
        DisableThreadLibraryCalls(module);
    }
    return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return Server().GetClassObject(clsid, iid, object);
}

HRESULT WINAPI DllCanUnloadNow() {
    return Server().CanUnloadNow();
}

HRESULT WINAPI DllRegisterServer() {
    return Server().Register(automation::RegistryScope::Machine);
}

HRESULT WINAPI DllUnregisterServer() {
    return Server().Unregister(automation::RegistryScope::Machine);
}

HRESULT WINAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return Server().Install(install, commandLine);
}

}  // extern "C"

// ServerEntryPoints: the exports of every in-process COM server of ours; compiled into each DLL.
#include "automation_win32/ComError.h"
#include "automation_win32/ComServer.h"

namespace {

using automation::ComServer;
using automation::RegistryScope;

HMODULE thisModule = nullptr;

/// Made by the first call; one that fails is made anew by the next.
const ComServer& Server() {
    static const ComServer server = automation::DescribeServer(thisModule);
    return server;
}

template <class Action>
HRESULT AtServer(Action&& action) noexcept {
    return automation::ComBoundary([&] { return action(Server()); });
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
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return AtServer([&](const ComServer& server) { return server.GetClassObject(clsid, iid, object); });
}

HRESULT WINAPI DllCanUnloadNow() {
    return AtServer([&](const ComServer& server) { return server.CanUnloadNow(); });
}

HRESULT WINAPI DllRegisterServer() {
    return AtServer([&](const ComServer& server) { return server.Register(RegistryScope::Machine); });
}

HRESULT WINAPI DllUnregisterServer() {
    return AtServer([&](const ComServer& server) { return server.Unregister(RegistryScope::Machine); });
}

HRESULT WINAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return AtServer([&](const ComServer& server) { return server.Install(install, commandLine); });
}

}  // extern "C"

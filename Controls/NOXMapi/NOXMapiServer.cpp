// NOXMapiServer: the entry points of NOXMapi.dll.
#include <windows.h>

#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "noxmapi/NOXMAPIUtils.h"

namespace {

HMODULE thisModule = nullptr;

constexpr CLSID utilsClass = {0x79bbc2e4, 0x9cb4, 0x4ec3, {0xa2, 0xbd, 0xa4, 0xda, 0xbd, 0xd4, 0x9a, 0xc6}};

const automation::ComServer& Server() {
    static const automation::ComServer server{
        thisModule,
        false,
        {{utilsClass, L"NOXMAPI.NOXMAPIUtils", L"MAPI property reader",
          [] { return automation::ToCom(std::make_shared<noxmapi::NOXMAPIUtils>()); }}},
    };
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

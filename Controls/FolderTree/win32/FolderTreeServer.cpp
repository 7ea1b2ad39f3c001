// FolderTreeServer: the entry points of FolderTree.ocx.
#include <windows.h>

#include "FolderTree.idl.h"
#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "win32/ControlObject.h"
#include "win32/ControlOleObject.h"
#include "win32/FolderTreeItem.h"

namespace {

HMODULE thisModule = nullptr;

constexpr WORD toolbarBitmap = 1;

const automation::ComServer& Server() {
    static const automation::ComServer server{
        thisModule,
        true,
        {{__uuidof(ctlFolderTree), L"FolderTree.ctlFolderTree", L"FolderTree control",
          [] { return foldertree::ControlObject::Create(); }, foldertree::controlMiscStatus, toolbarBitmap},
         {__uuidof(clsFolderTreeItem), L"FolderTree.clsFolderTreeItem", L"FolderTree item",
          [] { return automation::ToCom(std::make_shared<foldertree::clsFolderTreeItem>()); }}},
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
    foldertree::RegisterItemClass();
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

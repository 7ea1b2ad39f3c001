// ComServer: class objects, and the edges of registration.
#include "automation_win32/ComServer.h"

#include <unknwn.h>

#include "Registration.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"

namespace automation {

namespace {

class ClassFactory final : public ComBase<IClassFactory> {
  public:
    explicit ClassFactory(std::function<ComPtr<IUnknown>()> make) : make_(std::move(make)) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        return ComBoundary([&] { return make_()->QueryInterface(iid, out); });
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock)
            LockModule();
        else
            UnlockModule();
        return S_OK;
    }

  private:
    std::function<ComPtr<IUnknown>()> make_;
};

}  // namespace

HRESULT ComServer::GetClassObject(REFCLSID clsid, REFIID iid, void** out) const noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    return ComBoundary([&] {
        for (const ServerClass& entry : classes)
            if (entry.clsid == clsid) return MakeCom<ClassFactory>(entry.make)->QueryInterface(iid, out);
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

HRESULT ComServer::CanUnloadNow() const noexcept {
    return ModuleIsUnused() ? S_OK : S_FALSE;
}

HRESULT ComServer::Register(RegistryScope scope) const noexcept {
    const HRESULT result = ComBoundary([&] {
        WriteServerKeys(*this, RegistryKey::Classes(scope == RegistryScope::User));
        return S_OK;
    });
    if (FAILED(result)) Unregister(scope);
    return result;
}

HRESULT ComServer::Unregister(RegistryScope scope) const noexcept {
    return ComBoundary([&] {
        RemoveServerKeys(*this, RegistryKey::Classes(scope == RegistryScope::User));
        return S_OK;
    });
}

HRESULT ComServer::Install(BOOL install, const wchar_t* commandLine) const noexcept {
    const bool user = commandLine != nullptr && _wcsicmp(commandLine, L"user") == 0;
    const RegistryScope scope = user ? RegistryScope::User : RegistryScope::Machine;
    return install ? Register(scope) : Unregister(scope);
}

}  // namespace automation

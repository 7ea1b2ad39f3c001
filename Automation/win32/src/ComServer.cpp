// ComServer: class objects, and the edges of registration.
#include "automation_win32/ComServer.h"

#include <unknwn.h>

#include <algorithm>
#include <string_view>

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

std::vector<std::wstring> Words(const wchar_t* text) {
    const std::wstring_view rest = text != nullptr ? text : L"";
    std::vector<std::wstring> words;
    for (size_t begin = 0; begin < rest.size();) {
        const size_t end = std::min(rest.find(L' ', begin), rest.size());
        if (end > begin) words.emplace_back(rest.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

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

HRESULT ComServer::Register(RegistryScope scope, const std::vector<std::wstring>& options) const noexcept {
    return ComBoundary([&] {
        WriteServerKeys(*this, options, RegistryKey::Classes(scope == RegistryScope::User));
        return S_OK;
    });
}

HRESULT ComServer::Unregister(RegistryScope scope) const noexcept {
    return ComBoundary([&] {
        RemoveServerKeys(*this, RegistryKey::Classes(scope == RegistryScope::User));
        return S_OK;
    });
}

HRESULT ComServer::Install(BOOL install, const wchar_t* commandLine) const noexcept {
    return ComBoundary([&] {
        std::vector<std::wstring> words = Words(commandLine);
        const auto isUser = [](const std::wstring& word) { return _wcsicmp(word.c_str(), L"user") == 0; };
        const RegistryScope scope = std::erase_if(words, isUser) > 0 ? RegistryScope::User : RegistryScope::Machine;
        return install ? Register(scope, words) : Unregister(scope);
    });
}

}  // namespace automation

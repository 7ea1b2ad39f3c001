// ScriptHost: the least that a script engine wants of its host.
#include "ScriptHost.h"

#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"

namespace automation::testing {

namespace {

class Site final : public ComBase<IActiveScriptSite> {
  public:
    HRESULT STDMETHODCALLTYPE GetLCID(LCID* locale) override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
};

}  // namespace

ScriptHost::ScriptHost() : site_(MakeCom<Site>()) {
    CLSID clsid{};
    Check(CLSIDFromProgID(L"VBScript", &clsid));
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(engine_.GetAddressOf())));
    ComPtr<IActiveScriptParse> parser;
    Check(engine_.As(&parser));
    Check(parser->InitNew());
    Check(engine_->SetScriptSite(site_.Get()));
    Check(engine_->SetScriptState(SCRIPTSTATE_CONNECTED));
}

ScriptHost::~ScriptHost() {
    engine_->Close();
}

void ScriptHost::Run(std::string_view code) {
    ComPtr<IActiveScriptParse> parser;
    Check(engine_.As(&parser));
    EXCEPINFO info{};
    const HRESULT result = parser->ParseScriptText(ToWide(code).c_str(), nullptr, nullptr, nullptr, 0, 0,
                                                   SCRIPTTEXT_ISVISIBLE, nullptr, &info);
    if (FAILED(result)) throw FromExcepInfo(result, info);
}

ObjectRef ScriptHost::Functions() {
    ComPtr<IDispatch> functions;
    Check(engine_->GetScriptDispatch(nullptr, functions.GetAddressOf()));
    return FromCom(functions.Get());
}

}  // namespace automation::testing

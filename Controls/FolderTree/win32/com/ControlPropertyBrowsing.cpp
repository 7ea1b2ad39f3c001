// ControlPropertyBrowsing: IPerPropertyBrowsing of the control: names in place of the access modes' numbers.
#include "win32/com/ControlPropertyBrowsing.h"

#include <olectl.h>

#include "common/Members.h"
#include "win32/com/AccessModeNames.h"
#include "win32/com/ControlObject.h"
#include "win32/com/GivenText.h"
#include "win32/com/SettingsPage.h"

namespace foldertree {

namespace {

bool IsAccessMode(DISPID property) {
    return property == Info(Member::infoStoreAccessMode).number;
}

/// Frees all texts of a list that could not be completed.
void Discard(CALPOLESTR& texts, CADWORD& cookies) {
    for (ULONG i = 0; i < texts.cElems; ++i) CoTaskMemFree(texts.pElems[i]);
    CoTaskMemFree(texts.pElems);
    CoTaskMemFree(cookies.pElems);
    texts = {};
    cookies = {};
}

}  // namespace

ControlPropertyBrowsing::ControlPropertyBrowsing(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlPropertyBrowsing::GetDisplayString(DISPID property, BSTR* text) {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    if (!IsAccessMode(property)) return S_FALSE;
    const ControlObject::Use use(object_);
    const int mode = object_.Core().InfoStoreAccessMode();
    if (mode < 0 || mode >= accessModeCount) return S_FALSE;
    const std::wstring_view name = accessModeNames[mode];
    *text = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
    return *text != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT ControlPropertyBrowsing::MapPropertyToPage(DISPID property, CLSID* page) {
    if (page == nullptr) return E_POINTER;
    const MemberInfo* const member = FindMember(property);
    const bool onPage = member != nullptr && member->saving.type != SavedAs::nothing;
    *page = onPage ? settingsPageClass : CLSID_NULL;
    return onPage ? S_OK : PERPROP_E_NOPAGEAVAILABLE;
}

HRESULT ControlPropertyBrowsing::GetPredefinedStrings(DISPID property, CALPOLESTR* texts, CADWORD* cookies) {
    if (texts == nullptr || cookies == nullptr) return E_POINTER;
    *texts = {};
    *cookies = {};
    if (!IsAccessMode(property)) return S_FALSE;
    texts->pElems = static_cast<LPOLESTR*>(CoTaskMemAlloc(sizeof(LPOLESTR) * accessModeCount));
    cookies->pElems = static_cast<DWORD*>(CoTaskMemAlloc(sizeof(DWORD) * accessModeCount));
    bool complete = texts->pElems != nullptr && cookies->pElems != nullptr;
    for (ULONG mode = 0; complete && mode < accessModeCount; ++mode) {
        complete = SUCCEEDED(GiveText(accessModeNames[mode], &texts->pElems[mode]));
        if (!complete) break;
        cookies->pElems[mode] = mode;
        texts->cElems = cookies->cElems = mode + 1;
    }
    if (complete) return S_OK;
    Discard(*texts, *cookies);
    return E_OUTOFMEMORY;
}

HRESULT ControlPropertyBrowsing::GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) {
    if (value == nullptr) return E_POINTER;
    VariantInit(value);
    if (!IsAccessMode(property) || cookie >= static_cast<DWORD>(accessModeCount)) return E_INVALIDARG;
    V_VT(value) = VT_I4;
    V_I4(value) = static_cast<LONG>(cookie);
    return S_OK;
}

}  // namespace foldertree

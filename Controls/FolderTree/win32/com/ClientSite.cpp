// ClientSite: the container as the control sees it.
#include "win32/com/ClientSite.h"

#include <olectl.h>

#include "automation_win32/Bstr.h"
#include "automation_win32/Variant.h"

namespace foldertree {

using automation::ComPtr;

VARIANT ClientSite::Ambient(DISPID property) const {
    VARIANT value;
    VariantInit(&value);
    const auto ambient = As<IDispatch>();
    DISPPARAMS none = {};
    if (ambient == nullptr || FAILED(ambient->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                                     &none, &value, nullptr, nullptr)))
        VariantInit(&value);
    return value;
}

bool ClientSite::UserMode() const {
    VARIANT value = Ambient(DISPID_AMBIENT_USERMODE);
    const bool designing = V_VT(&value) == VT_BOOL && V_BOOL(&value) == VARIANT_FALSE;
    VariantClear(&value);
    return !designing;
}

ComPtr<IDispatch> ClientSite::Font() const {
    VARIANT value = Ambient(DISPID_AMBIENT_FONT);
    ComPtr<IDispatch> font;
    if ((V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN) && V_UNKNOWN(&value) != nullptr)
        ComPtr<IUnknown>(V_UNKNOWN(&value)).As(&font);
    VariantClear(&value);
    return font;
}

std::string ClientSite::DisplayName() const {
    automation::Variant value;
    value.Raw() = Ambient(DISPID_AMBIENT_DISPLAYNAME);
    return V_VT(&value.Raw()) == VT_BSTR ? automation::FromBstr(V_BSTR(&value.Raw())) : std::string();
}

void ClientSite::OnFocus(bool gotFocus) const {
    if (const auto site = As<IOleControlSite>()) site->OnFocus(gotFocus);
}

}  // namespace foldertree

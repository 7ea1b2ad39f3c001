// ControlOleObject: IOleObject of the control.
#include "win32/com/ControlOleObject.h"

#include <olectl.h>

#include <iterator>
#include <utility>

#include "FolderTree.idl.h"
#include "automation_win32/ComError.h"
#include "win32/com/ControlDescription.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"
#include "win32/com/GivenText.h"
#include "win32/com/ListEnumerator.h"

namespace foldertree {

namespace {

/// The caller frees the name; without memory for it the verb has none.
OLEVERB GiveVerb(const ControlVerb& verb) {
    OLEVERB given = {verb.number, nullptr, MF_STRING, OLEVERBATTRIB_ONCONTAINERMENU};
    GiveText(verb.name, &given.lpszVerbName);
    return given;
}

using VerbEnumerator = ListEnumerator<IEnumOLEVERB, IID_IEnumOLEVERB, ControlVerb, OLEVERB, GiveVerb>;

}  // namespace

ControlOleObject::ControlOleObject(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlOleObject::SetClientSite(IOleClientSite* site) {
    const ControlObject::Use use(object_);
    if (site == nullptr) object_.Interfaces().inPlace.InPlaceDeactivate();
    object_.Site().Set(site);
    object_.Window().SetUserMode(object_.Site().UserMode());
    return S_OK;
}

HRESULT ControlOleObject::GetClientSite(IOleClientSite** site) {
    if (site == nullptr) return E_POINTER;
    *site = object_.Site().Get();
    if (*site != nullptr) (*site)->AddRef();
    return S_OK;
}

HRESULT ControlOleObject::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

void ControlOleObject::SaveIfAsked(DWORD saveOption) {
    if (saveOption == OLECLOSE_NOSAVE || !object_.dirty || object_.Site().Get() == nullptr) return;
    const automation::ComPtr<IOleClientSite> site = object_.Site().Get();
    site->SaveObject();
}

void ControlOleObject::SendSaved() {
    const automation::ComPtr<IOleAdviseHolder> advises = advises_;
    if (advises != nullptr) advises->SendOnSave();
}

HRESULT ControlOleObject::Close(DWORD saveOption) {
    const ControlObject::Use use(object_);
    // Asked to save, or told that the control closes, a container may ask again.
    if (std::exchange(closing_, true)) return S_OK;
    CloseOnce(saveOption);
    closing_ = false;
    return S_OK;
}

void ControlOleObject::CloseOnce(DWORD saveOption) {
    SaveIfAsked(saveOption);
    object_.StopRunning();
    object_.Interfaces().data.SendDataChange(ADVF_DATAONSTOP);
    const automation::ComPtr<IOleAdviseHolder> advises = advises_;
    if (advises != nullptr) advises->SendOnClose();
}

HRESULT ControlOleObject::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

HRESULT ControlOleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker == nullptr) return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlOleObject::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}

HRESULT ControlOleObject::GetClipboardData(DWORD, IDataObject** data) {
    if (data == nullptr) return E_POINTER;
    *data = nullptr;
    return E_NOTIMPL;
}

HRESULT ControlOleObject::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent, LPCRECT) {
    const ControlObject::Use use(object_);
    ControlInPlaceObject& inPlace = object_.Interfaces().inPlace;
    switch (verb) {
        case OLEIVERB_INPLACEACTIVATE:
        case OLEIVERB_SHOW:
            return inPlace.Activate();
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
            return inPlace.ActivateUI();
        case OLEIVERB_HIDE:
            return inPlace.InPlaceDeactivate();
        case OLEIVERB_PROPERTIES:
        case propertiesVerb:
            return object_.Interfaces().propertyPages.Show(parent);
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        default:
            // A positive number is a verb that the container invented; negative ones are optional verbs of OLE.
            return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
}

HRESULT ControlOleObject::EnumVerbs(IEnumOLEVERB** verbs) {
    if (verbs == nullptr) return E_POINTER;
    *verbs = nullptr;
    return automation::ComBoundary([&] {
        *verbs = new VerbEnumerator({std::begin(controlVerbs), std::end(controlVerbs)});
        return S_OK;
    });
}

HRESULT ControlOleObject::Update() {
    return S_OK;
}

HRESULT ControlOleObject::IsUpToDate() {
    return S_OK;
}

HRESULT ControlOleObject::GetUserClassID(CLSID* clsid) {
    if (clsid == nullptr) return E_POINTER;
    *clsid = __uuidof(::ctlFolderTree);
    return S_OK;
}

HRESULT ControlOleObject::GetUserType(DWORD form, LPOLESTR* name) {
    if (name == nullptr) return E_POINTER;
    *name = nullptr;
    if (form < USERCLASSTYPE_FULL || form > USERCLASSTYPE_APPNAME) return E_INVALIDARG;
    const std::wstring_view text = form == USERCLASSTYPE_FULL ? controlTitle : controlShortTitle;
    return GiveText(text, name);
}

HRESULT ControlOleObject::SetExtent(DWORD aspect, SIZEL* extent) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (extent == nullptr) return E_POINTER;
    if (extent->cx < 0 || extent->cy < 0) return E_INVALIDARG;
    extent_ = *extent;
    extentSet_ = true;
    return S_OK;
}

HRESULT ControlOleObject::GetExtent(DWORD aspect, SIZEL* extent) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (extent == nullptr) return E_POINTER;
    *extent = extent_;
    return S_OK;
}

HRESULT ControlOleObject::Advise(IAdviseSink* sink, DWORD* connection) {
    if (advises_ == nullptr) {
        const HRESULT result = CreateOleAdviseHolder(advises_.GetAddressOf());
        if (FAILED(result)) return result;
    }
    return advises_->Advise(sink, connection);
}

HRESULT ControlOleObject::Unadvise(DWORD connection) {
    return advises_ != nullptr ? advises_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT ControlOleObject::EnumAdvise(IEnumSTATDATA** connections) {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    return advises_ != nullptr ? advises_->EnumAdvise(connections) : S_OK;
}

HRESULT ControlOleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (status == nullptr) return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? controlMiscStatus : 0;
    return S_OK;
}

HRESULT ControlOleObject::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

}  // namespace foldertree

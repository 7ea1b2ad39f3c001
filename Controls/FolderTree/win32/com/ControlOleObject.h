// ControlOleObject: IOleObject of the control.
#pragma once

#include <ole2.h>
#include <oleidl.h>

#include "automation_win32/ComPtr.h"
#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlOleObject final : public ComPart<IOleObject> {
  public:
    explicit ControlOleObject(ControlObject& object);

    /// The size that the container has set, in hundredths of a millimetre; none (0) before.
    SIZEL ExtentOfContainer() const { return extentSet_ ? extent_ : SIZEL{0, 0}; }
    /// Tells the container's sinks that the control was saved.
    void SendSaved();

    STDMETHOD(SetClientSite)(IOleClientSite* site) override;
    STDMETHOD(GetClientSite)(IOleClientSite** site) override;
    STDMETHOD(SetHostNames)(LPCOLESTR application, LPCOLESTR document) override;
    STDMETHOD(Close)(DWORD saveOption) override;
    STDMETHOD(SetMoniker)(DWORD which, IMoniker* moniker) override;
    STDMETHOD(GetMoniker)(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHOD(InitFromData)(IDataObject* data, BOOL creation, DWORD reserved) override;
    STDMETHOD(GetClipboardData)(DWORD reserved, IDataObject** data) override;
    STDMETHOD(DoVerb)(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent, LPCRECT place) override;
    STDMETHOD(EnumVerbs)(IEnumOLEVERB** verbs) override;
    STDMETHOD(Update)() override;
    STDMETHOD(IsUpToDate)() override;
    STDMETHOD(GetUserClassID)(CLSID* clsid) override;
    STDMETHOD(GetUserType)(DWORD form, LPOLESTR* name) override;
    STDMETHOD(SetExtent)(DWORD aspect, SIZEL* extent) override;
    STDMETHOD(GetExtent)(DWORD aspect, SIZEL* extent) override;
    STDMETHOD(Advise)(IAdviseSink* sink, DWORD* connection) override;
    STDMETHOD(Unadvise)(DWORD connection) override;
    STDMETHOD(EnumAdvise)(IEnumSTATDATA** connections) override;
    STDMETHOD(GetMiscStatus)(DWORD aspect, DWORD* status) override;
    STDMETHOD(SetColorScheme)(LOGPALETTE* palette) override;

  private:
    void SaveIfAsked(DWORD saveOption);
    void CloseOnce(DWORD saveOption);

    ControlObject& object_;
    automation::ComPtr<IOleAdviseHolder> advises_;
    bool closing_ = false;
    SIZEL extent_ = {6615, 7938};  // 250 x 300 pixels at 96 dots per inch
    bool extentSet_ = false;
};

}  // namespace foldertree

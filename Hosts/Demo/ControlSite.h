// ControlSite: the place on the form where the control lives; what an ActiveX control expects of its container.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include <map>
#include <string>

#include "ComObject.h"

namespace demo {

/// Life: Create(), then any of the others, then Close(); the site may be released after that only. The frame window
/// must outlive the site.
class ControlSite : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, IDispatch> {
  public:
    explicit ControlSite(HWND frame) : frame_(frame) {}

    /// Creates the control, loads it from `properties` (a new control when they are empty) and shows it at `place`, in
    /// pixels of the frame. Throws AutomationFailure when the class is missing or is no control.
    void Create(const wchar_t* progId, std::map<std::string, std::string>& properties, const RECT& place);
    /// Saves the control's properties.
    void Save(std::map<std::string, std::string>& properties) const;
    /// Takes the control off the form and lets go of it.
    void Close();

    IDispatch* Control() const { return control_.Get(); }
    /// The control's window; null while it has none.
    HWND Window() const;
    void Move(const RECT& place);
    void Focus();
    /// True when the control took the key.
    bool TranslateKey(MSG& message);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
    HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* place,
                                               RECT* clip, OLEINPLACEFRAMEINFO* info) override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT place) override;

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  private:
    void Load(std::map<std::string, std::string>& properties);

    HWND frame_;
    RECT place_ = {};
    ComPtr<IDispatch> control_;
    ComPtr<IOleObject> object_;
    ComPtr<IOleInPlaceObject> inPlaceObject_;
};

}  // namespace demo

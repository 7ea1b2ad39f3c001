// FakeContainer: a container for the control that logs each call of it and may do anything in it.
#pragma once

#include "win32/WindowsNames.h"

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "automation_win32/ComBase.h"

namespace foldertree {

/// The sites of a container, all that the control asks for, in a window of the test's.
class FakeContainer final : public automation::ComBase<IOleClientSite, IOleInPlaceSite, IOleControlSite> {
  public:
    explicit FakeContainer(HWND window) : window_(window) { log.reserve(1000); }

    std::vector<std::string_view> log;  ///< needs no memory of its own
    /// Called inside each call, after it was logged.
    std::function<void(std::string_view)> onCall;
    /// What the call that is running answers; it may be set in `onCall`.
    HRESULT answer = S_OK;
    /// What fails leaves an invalid pointer where an object belongs.
    bool leavesRubbish = false;
    RECT place = {0, 0, 400, 300};

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;

    // IOleClientSite
    STDMETHOD(SaveObject)() override { return Note("SaveObject"); }
    STDMETHOD(GetMoniker)(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHOD(GetContainer)(IOleContainer** container) override;
    STDMETHOD(ShowObject)() override { return Note("ShowObject"); }
    STDMETHOD(OnShowWindow)(BOOL) override { return Note("OnShowWindow"); }
    STDMETHOD(RequestNewObjectLayout)() override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHOD(GetWindow)(HWND* window) override;
    STDMETHOD(ContextSensitiveHelp)(BOOL) override { return E_NOTIMPL; }
    STDMETHOD(CanInPlaceActivate)() override { return Note("CanInPlaceActivate"); }
    STDMETHOD(OnInPlaceActivate)() override { return Note("OnInPlaceActivate"); }
    STDMETHOD(OnUIActivate)() override { return Note("OnUIActivate"); }
    STDMETHOD(GetWindowContext)
    (IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT given, LPRECT clip,
     LPOLEINPLACEFRAMEINFO info) override;
    STDMETHOD(Scroll)(SIZE) override { return E_NOTIMPL; }
    STDMETHOD(OnUIDeactivate)(BOOL) override { return Note("OnUIDeactivate"); }
    STDMETHOD(OnInPlaceDeactivate)() override { return Note("OnInPlaceDeactivate"); }
    STDMETHOD(DiscardUndoState)() override { return E_NOTIMPL; }
    STDMETHOD(DeactivateAndUndo)() override { return E_NOTIMPL; }
    STDMETHOD(OnPosRectChange)(LPCRECT) override { return E_NOTIMPL; }

    // IOleControlSite
    STDMETHOD(OnControlInfoChanged)() override { return E_NOTIMPL; }
    STDMETHOD(LockInPlaceActive)(BOOL) override { return E_NOTIMPL; }
    STDMETHOD(GetExtendedControl)(IDispatch** control) override;
    STDMETHOD(TransformCoords)(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHOD(TranslateAccelerator)(MSG*, DWORD) override;
    STDMETHOD(OnFocus)(BOOL gotFocus) override { return Note(gotFocus ? "OnFocus TRUE" : "OnFocus FALSE"); }
    STDMETHOD(ShowPropertyFrame)() override { return E_NOTIMPL; }

  private:
    void* FindInterface(REFIID iid) override;
    HRESULT Note(const char* call);
    HRESULT Give(HRESULT result, std::initializer_list<void**> objects) const;

    const HWND window_;
};

}  // namespace foldertree

// ControlInPlaceObject: IOleInPlaceObject of the control, and how it becomes active in its container's window.
#pragma once

#include <oleidl.h>

#include "automation_win32/ComPtr.h"
#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlInPlaceObject final : public ComPart<IOleInPlaceObject> {
  public:
    explicit ControlInPlaceObject(ControlObject& object);

    /// Listens to the control's window: the focus that comes into it, and its end with its parent.
    void WatchWindow();
    /// Makes the window in the container's, if it is not there yet.
    HRESULT Activate();
    /// Activates, and takes the container's frame and the focus.
    HRESULT ActivateUI();

    STDMETHOD(GetWindow)(HWND* window) override;
    STDMETHOD(ContextSensitiveHelp)(BOOL enter) override;
    STDMETHOD(InPlaceDeactivate)() override;
    STDMETHOD(UIDeactivate)() override;
    STDMETHOD(SetObjectRects)(const RECT* place, const RECT* clip) override;
    STDMETHOD(ReactivateAndUndo)() override;

  private:
    HRESULT ShowIn(IOleInPlaceSite& site);
    void OnFocus(bool gotFocus);
    void OnWindowGone();
    void SetActiveObject(IOleInPlaceActiveObject* activeObject);

    ControlObject& object_;
    automation::ComPtr<IOleInPlaceSite> site_;  // while active
    automation::ComPtr<IOleInPlaceFrame> frame_;
    automation::ComPtr<IOleInPlaceUIWindow> document_;
    bool uiActive_ = false;
    bool leaving_ = false;  // the window is being destroyed, and the container hears of its focus
};

}  // namespace foldertree

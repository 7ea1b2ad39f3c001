// ControlInPlaceActiveObject: IOleInPlaceActiveObject of the control: the keys that it takes before its container does.
#pragma once

#include <oleidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlInPlaceActiveObject final : public ComPart<IOleInPlaceActiveObject> {
  public:
    explicit ControlInPlaceActiveObject(ControlObject& object);

    STDMETHOD(GetWindow)(HWND* window) override;
    STDMETHOD(ContextSensitiveHelp)(BOOL enter) override;
    STDMETHOD(TranslateAccelerator)(MSG* message) override;
    STDMETHOD(OnFrameWindowActivate)(BOOL activate) override;
    STDMETHOD(OnDocWindowActivate)(BOOL activate) override;
    STDMETHOD(ResizeBorder)(const RECT* border, IOleInPlaceUIWindow* window, BOOL frame) override;
    STDMETHOD(EnableModeless)(BOOL enable) override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

// ControlOleControl: IOleControl of the control.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlOleControl final : public ComPart<IOleControl> {
  public:
    explicit ControlOleControl(ControlObject& object);

    STDMETHOD(GetControlInfo)(CONTROLINFO* info) override;
    STDMETHOD(OnMnemonic)(MSG* message) override;
    STDMETHOD(OnAmbientPropertyChange)(DISPID property) override;
    STDMETHOD(FreezeEvents)(BOOL freeze) override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

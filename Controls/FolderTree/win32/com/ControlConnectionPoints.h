// ControlConnectionPoints: IConnectionPointContainer of the control.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"
#include "win32/com/ConnectionPoint.h"

namespace foldertree {

class ControlObject;

class ControlConnectionPoints final : public ComPart<IConnectionPointContainer> {
  public:
    explicit ControlConnectionPoints(ControlObject& object);

    /// The sinks of the event `Changed`.
    ConnectionPoint events;
    ConnectionPoint propertyNotifications;

    STDMETHOD(EnumConnectionPoints)(IEnumConnectionPoints** points) override;
    STDMETHOD(FindConnectionPoint)(REFIID iid, IConnectionPoint** point) override;
};

}  // namespace foldertree

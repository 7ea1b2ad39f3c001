// ControlInterfaces: the COM interfaces of the control, one part each.
#pragma once

#include "win32/com/ControlClassInfo.h"
#include "win32/com/ControlConnectionPoints.h"
#include "win32/com/ControlDispatch.h"
#include "win32/com/ControlInPlaceActiveObject.h"
#include "win32/com/ControlInPlaceObject.h"
#include "win32/com/ControlOleControl.h"
#include "win32/com/ControlOleObject.h"
#include "win32/com/ControlPersistPropertyBag.h"
#include "win32/com/ControlPersistStreamInit.h"
#include "win32/com/ControlViewObject.h"

namespace foldertree {

class ControlInterfaces {
  public:
    explicit ControlInterfaces(ControlObject& object);

    /// The part that answers to the identifier, as a pointer of that interface; null when there is none. Adds no
    /// reference.
    void* Find(REFIID iid);

    ControlDispatch dispatch;
    ControlOleObject oleObject;
    ControlOleControl oleControl;
    ControlInPlaceObject inPlace;
    ControlInPlaceActiveObject activeObject;
    ControlViewObject view;
    ControlPersistPropertyBag propertyBag;
    ControlPersistStreamInit stream;
    ControlConnectionPoints connectionPoints;
    ControlClassInfo classInfo;
};

}  // namespace foldertree

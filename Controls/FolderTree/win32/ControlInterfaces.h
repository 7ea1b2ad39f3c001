// ControlInterfaces: the COM interfaces of the control, one part each.
#pragma once

#include "win32/ControlClassInfo.h"
#include "win32/ControlConnectionPoints.h"
#include "win32/ControlDispatch.h"
#include "win32/ControlInPlaceActiveObject.h"
#include "win32/ControlInPlaceObject.h"
#include "win32/ControlOleControl.h"
#include "win32/ControlOleObject.h"
#include "win32/ControlPersistPropertyBag.h"
#include "win32/ControlPersistStreamInit.h"
#include "win32/ControlViewObject.h"

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

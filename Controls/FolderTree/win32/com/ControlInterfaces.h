// ControlInterfaces: the COM interfaces of the control, one part each.
#pragma once

#include "win32/com/ControlClassInfo.h"
#include "win32/com/ControlConnectionPoints.h"
#include "win32/com/ControlDataObject.h"
#include "win32/com/ControlDispatch.h"
#include "win32/com/ControlInPlaceActiveObject.h"
#include "win32/com/ControlInPlaceObject.h"
#include "win32/com/ControlOleControl.h"
#include "win32/com/ControlOleObject.h"
#include "win32/com/ControlPersistMemory.h"
#include "win32/com/ControlPersistPropertyBag.h"
#include "win32/com/ControlPersistStorage.h"
#include "win32/com/ControlPersistStreamInit.h"
#include "win32/com/ControlPropertyBrowsing.h"
#include "win32/com/ControlPropertyCategories.h"
#include "win32/com/ControlPropertyPages.h"
#include "win32/com/ControlQuickActivate.h"
#include "win32/com/ControlRunnableObject.h"
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
    ControlPersistStorage storage;
    ControlPersistMemory memory;
    ControlRunnableObject runnable;
    ControlQuickActivate quickActivate;
    ControlDataObject data;
    ControlPropertyPages propertyPages;
    ControlPropertyBrowsing propertyBrowsing;
    ControlPropertyCategories propertyCategories;
    ControlConnectionPoints connectionPoints;
    ControlClassInfo classInfo;
};

}  // namespace foldertree

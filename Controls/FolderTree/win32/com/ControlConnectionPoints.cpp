// ControlConnectionPoints: IConnectionPointContainer of the control.
#include "win32/com/ControlConnectionPoints.h"

#include <olectl.h>

#include "FolderTree.idl.h"
#include "automation_win32/ComError.h"
#include "win32/com/ControlObject.h"
#include "win32/com/ListEnumerator.h"

namespace foldertree {

namespace {

using PointRef = automation::ComPtr<IConnectionPoint>;

IConnectionPoint* Give(const PointRef& point) {
    point->AddRef();
    return point.Get();
}

using PointEnumerator =
    ListEnumerator<IEnumConnectionPoints, IID_IEnumConnectionPoints, PointRef, IConnectionPoint*, Give>;

}  // namespace

ControlConnectionPoints::ControlConnectionPoints(ControlObject& object)
    : ComPart(object),
      events(*this, __uuidof(__ctlFolderTree)),
      propertyNotifications(*this, IID_IPropertyNotifySink) {}

HRESULT ControlConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (points == nullptr) return E_POINTER;
    *points = nullptr;
    return automation::ComBoundary([&] {
        *points = new PointEnumerator({PointRef(&events), PointRef(&propertyNotifications)});
        return S_OK;
    });
}

HRESULT ControlConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* candidate : {&events, &propertyNotifications})
        if (candidate->Interface() == iid) *point = candidate;
    if (*point == nullptr) return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

}  // namespace foldertree

// ControlQuickActivate: IQuickActivate of the control: one call in place of many when a form is opened.
#include "win32/com/ControlQuickActivate.h"

#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

namespace {

DWORD Connect(ConnectionPoint& point, IUnknown* sink) {
    DWORD cookie = 0;
    if (sink != nullptr && FAILED(point.Advise(sink, &cookie))) cookie = 0;
    return cookie;
}

}  // namespace

ControlQuickActivate::ControlQuickActivate(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlQuickActivate::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (container == nullptr || control == nullptr) return E_POINTER;
    if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL)) return E_INVALIDARG;
    const ControlObject::Use use(object_);
    ControlInterfaces& interfaces = object_.Interfaces();
    QACONTROL answer = {};
    answer.cbSize = sizeof(answer);
    HRESULT result = interfaces.oleObject.SetClientSite(container->pClientSite);
    if (FAILED(result)) return result;
    if (container->pAdviseSink != nullptr) interfaces.view.SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    answer.dwPropNotifyCookie =
        Connect(interfaces.connectionPoints.propertyNotifications, container->pPropertyNotifySink);
    answer.dwEventCookie = Connect(interfaces.connectionPoints.events, container->pUnkEventSink);
    result = interfaces.oleObject.GetMiscStatus(DVASPECT_CONTENT, &answer.dwMiscStatus);
    if (SUCCEEDED(result)) result = interfaces.view.GetViewStatus(&answer.dwViewStatus);
    *control = answer;
    return result;
}

HRESULT ControlQuickActivate::SetContentExtent(LPSIZEL extent) {
    return object_.Interfaces().oleObject.SetExtent(DVASPECT_CONTENT, extent);
}

HRESULT ControlQuickActivate::GetContentExtent(LPSIZEL extent) {
    return object_.Interfaces().oleObject.GetExtent(DVASPECT_CONTENT, extent);
}

}  // namespace foldertree

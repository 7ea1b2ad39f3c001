// ControlInterfaces: the COM interfaces of the control, one part each.
#include "win32/com/ControlInterfaces.h"

#include "win32/com/ControlObject.h"

namespace foldertree {

ControlInterfaces::ControlInterfaces(ControlObject& object)
    : dispatch(object),
      oleObject(object),
      oleControl(object),
      inPlace(object),
      activeObject(object),
      view(object),
      propertyBag(object),
      stream(object),
      storage(object),
      memory(object),
      runnable(object),
      quickActivate(object),
      data(object),
      propertyPages(object),
      propertyBrowsing(object),
      propertyCategories(object),
      connectionPoints(object),
      classInfo(object) {}

void* ControlInterfaces::Find(REFIID iid) {
    const struct {
        const IID& iid;
        void* part;
    } parts[] = {
        {IID_IDispatch, static_cast<IDispatch*>(&dispatch)},
        {__uuidof(_ctlFolderTree), static_cast<_ctlFolderTree*>(&dispatch)},
        {IID_IOleObject, static_cast<IOleObject*>(&oleObject)},
        {IID_IOleControl, static_cast<IOleControl*>(&oleControl)},
        {IID_IOleWindow, static_cast<IOleWindow*>(&inPlace)},
        {IID_IOleInPlaceObject, static_cast<IOleInPlaceObject*>(&inPlace)},
        {IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(&activeObject)},
        {IID_IViewObject, static_cast<IViewObject*>(&view)},
        {IID_IViewObject2, static_cast<IViewObject2*>(&view)},
        {IID_IViewObjectEx, static_cast<IViewObjectEx*>(&view)},
        {IID_IPersistPropertyBag, static_cast<IPersistPropertyBag*>(&propertyBag)},
        {IID_IPersist, static_cast<IPersist*>(&stream)},
        {IID_IPersistStreamInit, static_cast<IPersistStreamInit*>(&stream)},
        {IID_IPersistStorage, static_cast<IPersistStorage*>(&storage)},
        {IID_IPersistMemory, static_cast<IPersistMemory*>(&memory)},
        {IID_IRunnableObject, static_cast<IRunnableObject*>(&runnable)},
        {IID_IQuickActivate, static_cast<IQuickActivate*>(&quickActivate)},
        {IID_IDataObject, static_cast<IDataObject*>(&data)},
        {IID_ISpecifyPropertyPages, static_cast<ISpecifyPropertyPages*>(&propertyPages)},
        {IID_IPerPropertyBrowsing, static_cast<IPerPropertyBrowsing*>(&propertyBrowsing)},
        {__uuidof(CategorizeProperties), static_cast<CategorizeProperties*>(&propertyCategories)},
        {IID_IConnectionPointContainer, static_cast<IConnectionPointContainer*>(&connectionPoints)},
        {IID_IProvideClassInfo, static_cast<IProvideClassInfo*>(&classInfo)},
        {IID_IProvideClassInfo2, static_cast<IProvideClassInfo2*>(&classInfo)},
    };
    for (const auto& entry : parts)
        if (entry.iid == iid) return entry.part;
    return nullptr;
}

}  // namespace foldertree

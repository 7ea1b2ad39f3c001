// ControlPropertyPages: ISpecifyPropertyPages of the control.
#include "win32/com/ControlPropertyPages.h"

#include <olectl.h>

#include "win32/com/ControlDescription.h"
#include "win32/com/ControlObject.h"
#include "win32/com/SettingsPage.h"

namespace foldertree {

ControlPropertyPages::ControlPropertyPages(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlPropertyPages::Show(HWND parent) {
    const ControlObject::Use use(object_);
    const auto site = object_.Site().As<IOleControlSite>();
    if (site != nullptr && SUCCEEDED(site->ShowPropertyFrame())) return S_OK;
    IUnknown* control = &object_;
    CLSID page = settingsPageClass;
    return OleCreatePropertyFrame(parent, 0, 0, controlShortTitle, 1, &control, 1, &page, GetUserDefaultLCID(), 0,
                                  nullptr);
}

HRESULT ControlPropertyPages::GetPages(CAUUID* pages) {
    if (pages == nullptr) return E_POINTER;
    *pages = {};
    pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof(GUID)));
    if (pages->pElems == nullptr) return E_OUTOFMEMORY;
    pages->pElems[0] = settingsPageClass;
    pages->cElems = 1;
    return S_OK;
}

}  // namespace foldertree

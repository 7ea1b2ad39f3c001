// FakeContainer: a container for the control that logs each call of it and may do anything in it.
#include "FakeContainer.h"

namespace foldertree {

void* FakeContainer::FindInterface(REFIID iid) {
    return iid == __uuidof(IOleWindow) ? static_cast<IOleWindow*>(this) : nullptr;
}

HRESULT FakeContainer::Note(const char* call) {
    const automation::ComPtr<IOleClientSite> keep(this);
    log.emplace_back(call);
    const auto act = onCall;
    answer = S_OK;
    if (act) act(call);
    return answer;
}

HRESULT FakeContainer::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeContainer::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT FakeContainer::GetWindow(HWND* window) {
    *window = window_;
    return Note("GetWindow");
}

HRESULT FakeContainer::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                        LPRECT clip, LPOLEINPLACEFRAMEINFO) {
    *frame = nullptr;
    *document = nullptr;
    *place = *clip = {0, 0, 400, 300};
    return Note("GetWindowContext");
}

HRESULT FakeContainer::GetExtendedControl(IDispatch** control) {
    *control = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeContainer::TranslateAccelerator(MSG*, DWORD) {
    Note("TranslateAccelerator");
    return S_FALSE;
}

}  // namespace foldertree

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

/// For a call that has no object to give.
HRESULT FakeContainer::Give(HRESULT result, std::initializer_list<void**> objects) const {
    const auto rubbish = static_cast<uintptr_t>(0xBAD0BAD1u);
    for (void** object : objects)
        *object = FAILED(result) && leavesRubbish ? reinterpret_cast<void*>(rubbish) : nullptr;
    return result;
}

HRESULT FakeContainer::QueryInterface(REFIID iid, void** object) {
    const HRESULT result = ComBase::QueryInterface(iid, object);
    return FAILED(result) ? Give(result, {object}) : result;
}

HRESULT FakeContainer::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    return Give(E_NOTIMPL, {reinterpret_cast<void**>(moniker)});
}

HRESULT FakeContainer::GetContainer(IOleContainer** container) {
    return Give(E_NOINTERFACE, {reinterpret_cast<void**>(container)});
}

HRESULT FakeContainer::GetWindow(HWND* window) {
    *window = window_;
    return Note("GetWindow");
}

HRESULT FakeContainer::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT given,
                                        LPRECT clip, LPOLEINPLACEFRAMEINFO) {
    *given = *clip = place;
    return Give(Note("GetWindowContext"), {reinterpret_cast<void**>(frame), reinterpret_cast<void**>(document)});
}

HRESULT FakeContainer::GetExtendedControl(IDispatch** control) {
    return Give(E_NOTIMPL, {reinterpret_cast<void**>(control)});
}

HRESULT FakeContainer::TranslateAccelerator(MSG*, DWORD) {
    Note("TranslateAccelerator");
    return S_FALSE;
}

}  // namespace foldertree

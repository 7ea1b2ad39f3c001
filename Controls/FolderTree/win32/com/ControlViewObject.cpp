// ControlViewObject: IViewObjectEx of the control: its picture for containers that draw it themselves.
#include "win32/com/ControlViewObject.h"

#include <utility>

#include "automation_win32/ComError.h"
#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

ControlViewObject::ControlViewObject(ControlObject& object) : ComPart(object), object_(object) {}

void ControlViewObject::SendViewChange() {
    const automation::ComPtr<IAdviseSink> sink = sink_;
    if (sink == nullptr) return;
    if ((flags_ & ADVF_ONLYONCE) != 0) sink_ = nullptr;
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

HRESULT ControlViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC target, HDC dc, LPCRECTL bounds,
                                LPCRECTL, BOOL(STDMETHODCALLTYPE* goesOn)(ULONG_PTR), ULONG_PTR argument) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (bounds == nullptr || dc == nullptr) return E_INVALIDARG;
    const ControlObject::Use use(object_);
    return automation::ComBoundary([&] {
        const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
        const PictureScale scale = PictureScale::For(dc, target, place, NaturalSize());
        return object_.Window().Draw(dc, place, scale, [&] { return goesOn == nullptr || goesOn(argument) != FALSE; });
    });
}

HRESULT ControlViewObject::DrawScreenPicture(HDC dc, const RECT& area) {
    return automation::ComBoundary([&] { return object_.Window().Draw(dc, area); });
}

// What the container shows on the screen, else what it has set; none where it has said nothing.
SIZE ControlViewObject::NaturalSize() const {
    RECT place = {};
    const HWND window = object_.Window().Handle();
    if (window == nullptr || !GetWindowRect(window, &place)) return object_.Interfaces().oleObject.ExtentOfContainer();
    constexpr int hundredthsPerInch = 2540;
    const int dpi = DpiOf(window);
    return {MulDiv(place.right - place.left, hundredthsPerInch, dpi),
            MulDiv(place.bottom - place.top, hundredthsPerInch, dpi)};
}

SIZE ControlViewObject::PixelsOf(SIZEL size) {
    constexpr int hundredthsPerInch = 2540;
    const HDC screen = GetDC(nullptr);
    const SIZE pixels = {MulDiv(size.cx, GetDeviceCaps(screen, LOGPIXELSX), hundredthsPerInch),
                         MulDiv(size.cy, GetDeviceCaps(screen, LOGPIXELSY), hundredthsPerInch)};
    ReleaseDC(nullptr, screen);
    return pixels;
}

HRESULT ControlViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) {
    if (colors == nullptr) return E_POINTER;
    *colors = nullptr;
    return S_FALSE;
}

HRESULT ControlViewObject::Freeze(DWORD, LONG, void*, DWORD*) {
    return E_NOTIMPL;
}

HRESULT ControlViewObject::Unfreeze(DWORD) {
    return E_NOTIMPL;
}

HRESULT ControlViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const ControlObject::Use use(object_);
    sink_ = sink;
    aspects_ = aspects;
    flags_ = flags;
    if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) SendViewChange();
    return S_OK;
}

HRESULT ControlViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    if (aspects != nullptr) *aspects = aspects_;
    if (flags != nullptr) *flags = flags_;
    if (sink != nullptr) *sink = automation::ComPtr<IAdviseSink>(sink_).Detach();
    return S_OK;
}

HRESULT ControlViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL extent) {
    return object_.Interfaces().oleObject.GetExtent(aspect, extent);
}

HRESULT ControlViewObject::GetRect(DWORD aspect, LPRECTL rect) {
    if (rect == nullptr) return E_POINTER;
    *rect = {};
    // The control covers all of its rectangle, so that its opaque part is the whole.
    SIZEL extent = {};
    const DWORD whole = aspect == DVASPECT_OPAQUE ? static_cast<DWORD>(DVASPECT_CONTENT) : aspect;
    const HRESULT result = GetExtent(whole, -1, nullptr, &extent);
    if (SUCCEEDED(result)) *rect = {0, 0, extent.cx, extent.cy};
    return result;
}

HRESULT ControlViewObject::GetViewStatus(DWORD* status) {
    if (status == nullptr) return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

HRESULT ControlViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* result) {
    if (bounds == nullptr || result == nullptr) return E_POINTER;
    *result = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (PtInRect(bounds, point)) *result = HITRESULT_HIT;
    return S_OK;
}

HRESULT ControlViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG, DWORD* result) {
    if (bounds == nullptr || area == nullptr || result == nullptr) return E_POINTER;
    *result = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    RECT common = {};
    if (IntersectRect(&common, bounds, area)) *result = HITRESULT_HIT;
    return S_OK;
}

HRESULT ControlViewObject::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*, LPSIZEL extent) {
    if (extent == nullptr) return E_POINTER;
    *extent = {};
    // A list is as large as there is room for it.
    return aspect == DVASPECT_CONTENT ? E_NOTIMPL : DV_E_DVASPECT;
}

}  // namespace foldertree

// ControlViewObject: IViewObjectEx of the control: its picture for containers that draw it themselves.
#pragma once

#include <ocidl.h>

#include "automation_win32/ComPtr.h"
#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlViewObject final : public ComPart<IViewObjectEx> {
  public:
    explicit ControlViewObject(ControlObject& object);

    /// Tells the container that an earlier picture is out of date.
    void SendViewChange();

    /// The pixels that a size in hundredths of a millimetre has on the screen.
    static SIZE PixelsOf(SIZEL size);
    /// Draws the control as the screen shows it, in pixels of `dc`.
    HRESULT DrawScreenPicture(HDC dc, const RECT& area);

    STDMETHOD(Draw)
    (DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target, HDC dc, LPCRECTL bounds,
     LPCRECTL windowBounds, BOOL(STDMETHODCALLTYPE* goesOn)(ULONG_PTR), ULONG_PTR argument) override;
    STDMETHOD(GetColorSet)
    (DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target, LOGPALETTE** colors) override;
    STDMETHOD(Freeze)(DWORD aspect, LONG index, void* aspectInfo, DWORD* freeze) override;
    STDMETHOD(Unfreeze)(DWORD freeze) override;
    STDMETHOD(SetAdvise)(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHOD(GetAdvise)(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHOD(GetExtent)(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL extent) override;

    STDMETHOD(GetRect)(DWORD aspect, LPRECTL rect) override;
    STDMETHOD(GetViewStatus)(DWORD* status) override;
    STDMETHOD(QueryHitPoint)(DWORD aspect, LPCRECT bounds, POINT point, LONG close, DWORD* result) override;
    STDMETHOD(QueryHitRect)(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG close, DWORD* result) override;
    STDMETHOD(GetNaturalExtent)
    (DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target, DVEXTENTINFO* info, LPSIZEL extent) override;

  private:
    SIZE NaturalSize() const;

    ControlObject& object_;
    automation::ComPtr<IAdviseSink> sink_;
    DWORD aspects_ = 0;
    DWORD flags_ = 0;
};

}  // namespace foldertree

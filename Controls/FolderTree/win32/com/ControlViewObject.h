// ControlViewObject: IViewObject2 of the control: its picture for containers that draw it themselves.
#pragma once

#include <oleidl.h>

#include "automation_win32/ComPtr.h"
#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlViewObject final : public ComPart<IViewObject2> {
  public:
    explicit ControlViewObject(ControlObject& object);

    /// Tells the container that an earlier picture is out of date.
    void SendViewChange();

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

  private:
    ControlObject& object_;
    automation::ComPtr<IAdviseSink> sink_;
    DWORD aspects_ = 0;
    DWORD flags_ = 0;
};

}  // namespace foldertree

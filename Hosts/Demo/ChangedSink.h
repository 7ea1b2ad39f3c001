// ChangedSink: hears the control's event `Changed`.
#pragma once

#include <ocidl.h>

#include <functional>

#include "ComObject.h"

namespace demo {

/// Connects to the default event interface that the control names through IProvideClassInfo2.
class ChangedSink : public ComObject<IDispatch> {
  public:
    /// Null when the control offers no events. The sink calls `onChanged` until Disconnect().
    static ComPtr<ChangedSink> Connect(IUnknown* control, std::function<void()> onChanged);
    void Disconnect();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  private:
    ChangedSink(REFIID eventInterface, DISPID changedId, std::function<void()> onChanged)
        : eventInterface_(eventInterface), changedId_(changedId), onChanged_(std::move(onChanged)) {}

    IID eventInterface_;
    DISPID changedId_;
    std::function<void()> onChanged_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

}  // namespace demo

// ForeignObject: a COM object as somebody else would write it, for tests.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

#include "automation_win32/ComBase.h"

namespace automation::testing {

/// One call of Invoke, as it came.
struct ForeignCall {
    DISPID member;
    WORD flags;
    DISPPARAMS* parameters;
    VARIANT* result;
    EXCEPINFO* info;
};

/// Knows the names it is given, numbered from 1 in their order, and hands every call to the test.
class ForeignObject final : public ComBase<IDispatch> {
  public:
    using Handler = std::function<HRESULT(const ForeignCall&)>;
    ForeignObject(std::vector<std::wstring> names, Handler handler)
        : names_(std::move(names)), handler_(std::move(handler)) {
        ++live;
    }
    ~ForeignObject() override { --live; }

    inline static int live = 0;
    int lookups = 0;  ///< how often names were asked for

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override {
        ++lookups;
        HRESULT result = S_OK;
        for (UINT i = 0; i < count; ++i) {
            numbers[i] = DISPID_UNKNOWN;
            for (size_t known = 0; known < names_.size(); ++known)
                if (_wcsicmp(names_[known].c_str(), names[i]) == 0) numbers[i] = static_cast<DISPID>(known + 1);
            if (numbers[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
        }
        return result;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* info, UINT*) override {
        return handler_({member, flags, parameters, result, info});
    }

  private:
    std::vector<std::wstring> names_;
    Handler handler_;
};

inline ULONG References(IUnknown* pointer) {
    pointer->AddRef();
    return pointer->Release();
}

}  // namespace automation::testing

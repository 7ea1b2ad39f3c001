// ComObject: a foreign IDispatch as an Object.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <string_view>

#include "automation/Object.h"
#include "automation_win32/ComPtr.h"

namespace automation {

class MemberNumbers;

/// Made by FromCom only, so that there is one for one COM object. Calls are made on the thread that made it.
/// Members are used with DISPATCH_METHOD|DISPATCH_PROPERTYGET, since libraries disagree on what is a method. An object
/// that is put where the property wants it by reference, or the other way round, is put again the other way.
class ComObject : public Object {
  public:
    explicit ComObject(IUnknown* pointer);
    ~ComObject() override;

    Value Invoke(const Invocation& call) override;
    std::unique_ptr<Enumerator> NewEnum() override;
    bool HasMember(std::string_view member) const override;

    /// The pointer as it came.
    IUnknown* Pointer() const { return pointer_.Get(); }
    /// Null when the COM object has no IDispatch.
    IDispatch* Dispatch() const { return dispatch_.Get(); }

  private:
    MemberNumbers& Numbers() const;

    ComPtr<IUnknown> pointer_;
    ComPtr<IDispatch> dispatch_;
    mutable std::shared_ptr<MemberNumbers> numbers_;
};

}  // namespace automation

// ComPropertyBag: a container's IPropertyBag as the PropertyBag of the core.
#pragma once

#include <ocidl.h>

#include "automation_win32/ComPtr.h"
#include "common/PropertyBag.h"

namespace foldertree {

class ComPropertyBag final : public PropertyBag {
  public:
    /// `log` may be null.
    ComPropertyBag(IPropertyBag& bag, IErrorLog* log) : bag_(&bag), log_(log) {}

    automation::Value Read(std::string_view name) override;
    void Write(std::string_view name, const automation::Value& value) override;
    /// Why a value could not be written; S_OK when all could. The core leaves it at a trace line.
    HRESULT WriteFailure() const { return writeFailure_; }

  private:
    automation::ComPtr<IPropertyBag> bag_;
    automation::ComPtr<IErrorLog> log_;
    HRESULT writeFailure_ = S_OK;
};

}  // namespace foldertree

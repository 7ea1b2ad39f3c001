// ComPropertyBag: a container's IPropertyBag as the PropertyBag of the core.
#include "win32/com/ComPropertyBag.h"

#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Variant.h"

namespace foldertree {

automation::Value ComPropertyBag::Read(std::string_view name) {
    automation::Variant value;
    const HRESULT result = bag_->Read(automation::ToWide(name).c_str(), &value.Raw(), log_.Get());
    // This is how bags say that they do not hold the name.
    if (result == E_INVALIDARG) return {};
    automation::Check(result);
    return value.ToValue();
}

void ComPropertyBag::Write(std::string_view name, const automation::Value& value) {
    automation::Variant variant(value);
    const HRESULT result = bag_->Write(automation::ToWide(name).c_str(), &variant.Raw());
    if (FAILED(result)) writeFailure_ = result;
    automation::Check(result);
}

}  // namespace foldertree

// CollectionVariable: a host's variable that holds a collection, in any form in which hosts pass it by reference.
#include "win32/com/CollectionVariable.h"

#include <utility>

#include "automation/Error.h"
#include "automation_win32/Crossing.h"

namespace foldertree {

CollectionVariable::CollectionVariable(VARIANT* variable) : variant_(variable) {
    while (variant_ != nullptr && V_VT(variant_) == (VT_BYREF | VT_VARIANT)) variant_ = V_VARIANTREF(variant_);
    if (variant_ == nullptr) return;
    const VARTYPE type = V_VT(variant_);
    if (type == (VT_BYREF | VT_DISPATCH) || type == (VT_BYREF | VT_UNKNOWN)) reference_ = V_UNKNOWNREF(variant_);
    if (type == VT_DISPATCH || type == VT_UNKNOWN) reference_ = &V_UNKNOWN(variant_);
}

automation::ObjectRef CollectionVariable::Get() const {
    if (reference_ != nullptr) return automation::FromCom(*reference_);
    if (variant_ == nullptr) return nullptr;
    const VARTYPE type = V_VT(variant_);
    if (type == VT_EMPTY || type == VT_NULL || type == VT_ERROR) return nullptr;
    throw automation::VbError(automation::errors::typeMismatch);
}

void CollectionVariable::SetNothing() {
    IUnknown* const held = reference_ != nullptr ? std::exchange(*reference_, nullptr) : nullptr;
    if (held != nullptr) held->Release();
}

}  // namespace foldertree

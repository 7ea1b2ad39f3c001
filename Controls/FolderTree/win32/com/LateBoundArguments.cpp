// LateBoundArguments: a late-bound call as the type library wants it, from the forms that hosts use.
#include "win32/com/LateBoundArguments.h"

#include "common/Members.h"

namespace foldertree {

LateBoundArguments::LateBoundArguments(DISPID member, WORD flags, DISPPARAMS& parameters)
    : flags_(flags), parameters_(parameters) {
    VariantInit(&argument_);
    VariantInit(&own_);
    const MemberInfo* const info = FindMember(member);
    if (parameters.cArgs != 1 || info == nullptr) return;
    const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (put && info->kind == MemberKind::propertyByReference) TakeReference();
    if ((flags & DISPATCH_METHOD) != 0 && info->kind == MemberKind::methodOnVariable) PassByReference();
}

LateBoundArguments::~LateBoundArguments() {
    VariantClear(&own_);
}

void LateBoundArguments::TakeReference() {
    flags_ = DISPATCH_PROPERTYPUTREF;
    if (FAILED(VariantCopyInd(&own_, parameters_.rgvarg))) return;
    if (V_VT(&own_) == VT_EMPTY || V_VT(&own_) == VT_NULL) {
        V_VT(&own_) = VT_DISPATCH;
        V_DISPATCH(&own_) = nullptr;
    }
    Replace(own_);
}

void LateBoundArguments::PassByReference() {
    if ((V_VT(parameters_.rgvarg) & VT_BYREF) != 0 || FAILED(VariantCopy(&own_, parameters_.rgvarg))) return;
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &own_;
    Replace(reference);
}

void LateBoundArguments::Replace(const VARIANT& argument) {
    argument_ = argument;
    parameters_.rgvarg = &argument_;
}

}  // namespace foldertree

// LateBoundArguments: a late-bound call as the type library wants it, from the forms that hosts use.
#include "win32/com/LateBoundArguments.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>

namespace foldertree {

namespace {

// The numbers of FolderTree.idl.
constexpr DISPID killCollection = 5;
constexpr DISPID objectProperties[] = {1 /* Application */, DISPID_FONT, 7 /* SelectedItem */, 8 /* Selection */,
                                       12 /* RDOSessionRef */};

bool IsObjectProperty(DISPID member) {
    return std::find(std::begin(objectProperties), std::end(objectProperties), member) != std::end(objectProperties);
}

}  // namespace

LateBoundArguments::LateBoundArguments(DISPID member, WORD flags, DISPPARAMS& parameters)
    : flags_(flags), parameters_(parameters) {
    VariantInit(&argument_);
    VariantInit(&own_);
    if (parameters.cArgs != 1) return;
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && IsObjectProperty(member)) TakeReference();
    if ((flags & DISPATCH_METHOD) != 0 && member == killCollection) PassByReference();
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

// LateBoundArguments: a late-bound call as the type library wants it, from the forms that hosts use.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace foldertree {

/// Two forms differ. Script hosts assign an object without `Set` (by value instead of by reference), or assign Null or
/// Empty where they mean Nothing. And a collection that is handed to KillCollection by value must not be taken away
/// from the caller, who still owns that reference.
class LateBoundArguments {
  public:
    /// `parameters` must outlive the call.
    LateBoundArguments(DISPID member, WORD flags, DISPPARAMS& parameters);
    ~LateBoundArguments();
    LateBoundArguments(const LateBoundArguments&) = delete;
    LateBoundArguments& operator=(const LateBoundArguments&) = delete;

    WORD Flags() const { return flags_; }
    DISPPARAMS* Parameters() { return &parameters_; }

  private:
    void TakeReference();
    void PassByReference();
    /// Replaces the only argument. Others are left as they are.
    void Replace(const VARIANT& argument);

    WORD flags_;
    DISPPARAMS parameters_;
    VARIANT argument_;
    VARIANT own_;
};

}  // namespace foldertree

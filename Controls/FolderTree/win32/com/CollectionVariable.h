// CollectionVariable: a host's variable that holds a collection, in any form in which hosts pass it by reference.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "automation/Object.h"

namespace foldertree {

/// The variant may hold the object itself, or point to an object variable or to another variant; Nothing, Empty and a
/// variable that was left out hold no collection.
class CollectionVariable {
  public:
    /// `variable` may be null and must stay where it is.
    explicit CollectionVariable(VARIANT* variable);

    /// Throws automation::Error 13 for a variable that holds anything but an object.
    automation::ObjectRef Get() const;
    /// Releases what the host's variable holds.
    void SetNothing();

  private:
    VARIANT* variant_;                // the innermost variant; null when there is none
    IUnknown** reference_ = nullptr;  // the host's object variable, where it has that type
};

}  // namespace foldertree

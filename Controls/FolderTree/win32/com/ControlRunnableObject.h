// ControlRunnableObject: IRunnableObject of the control.
#pragma once

#include <objidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

/// A control in its container's process has nothing to start: to run is to have been run or activated since it was made
/// or closed, and all members work before as well. The last of a container's locks may close it.
class ControlRunnableObject final : public ComPart<IRunnableObject> {
  public:
    explicit ControlRunnableObject(ControlObject& object);

    STDMETHOD(GetRunningClass)(LPCLSID clsid) override;
    STDMETHOD(Run)(LPBINDCTX context) override;
    STDMETHOD_(BOOL, IsRunning)() override;
    STDMETHOD(LockRunning)(BOOL lock, BOOL lastUnlockCloses) override;
    STDMETHOD(SetContainedObject)(BOOL contained) override;

  private:
    ControlObject& object_;
    ULONG locks_ = 0;
};

}  // namespace foldertree

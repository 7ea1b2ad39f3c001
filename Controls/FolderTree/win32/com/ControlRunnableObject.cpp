// ControlRunnableObject: IRunnableObject of the control.
#include "win32/com/ControlRunnableObject.h"

#include "win32/com/ControlInterfaces.h"
#include "win32/com/ControlObject.h"

namespace foldertree {

ControlRunnableObject::ControlRunnableObject(ControlObject& object) : ComPart(object), object_(object) {}

HRESULT ControlRunnableObject::GetRunningClass(LPCLSID clsid) {
    return object_.Interfaces().stream.GetClassID(clsid);
}

HRESULT ControlRunnableObject::Run(LPBINDCTX) {
    object_.running = true;
    return S_OK;
}

BOOL ControlRunnableObject::IsRunning() {
    return object_.running ? TRUE : FALSE;
}

HRESULT ControlRunnableObject::LockRunning(BOOL lock, BOOL lastUnlockCloses) {
    if (lock) {
        ++locks_;
        object_.running = true;
        return S_OK;
    }
    if (locks_ == 0) return E_UNEXPECTED;
    if (--locks_ > 0 || !lastUnlockCloses) return S_OK;
    return object_.Interfaces().oleObject.Close(OLECLOSE_SAVEIFDIRTY);
}

HRESULT ControlRunnableObject::SetContainedObject(BOOL) {
    return S_OK;
}

}  // namespace foldertree

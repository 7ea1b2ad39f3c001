// ControlPersistMemory: IPersistMemory of the control: the stream's bytes in a block of the container's.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

/// Reads and writes what the stream holds. A block that is too small for that fails with STG_E_MEDIUMFULL and stays as
/// it was.
class ControlPersistMemory final : public ComPart<IPersistMemory> {
  public:
    explicit ControlPersistMemory(ControlObject& object);

    STDMETHOD(GetClassID)(CLSID* clsid) override;
    STDMETHOD(IsDirty)() override;
    STDMETHOD(Load)(LPVOID memory, ULONG size) override;
    STDMETHOD(Save)(LPVOID memory, BOOL clearDirty, ULONG size) override;
    STDMETHOD(GetSizeMax)(ULONG* size) override;
    STDMETHOD(InitNew)() override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

// ControlPersistStreamInit: IPersistStreamInit of the control.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlPersistStreamInit final : public ComPart<IPersistStreamInit> {
  public:
    explicit ControlPersistStreamInit(ControlObject& object);

    STDMETHOD(GetClassID)(CLSID* clsid) override;
    STDMETHOD(IsDirty)() override;
    STDMETHOD(Load)(IStream* stream) override;
    STDMETHOD(Save)(IStream* stream, BOOL clearDirty) override;
    STDMETHOD(GetSizeMax)(ULARGE_INTEGER* size) override;
    STDMETHOD(InitNew)() override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

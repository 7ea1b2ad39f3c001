// ControlPersistPropertyBag: IPersistPropertyBag of the control.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlPersistPropertyBag final : public ComPart<IPersistPropertyBag> {
  public:
    explicit ControlPersistPropertyBag(ControlObject& object);

    STDMETHOD(GetClassID)(CLSID* clsid) override;
    STDMETHOD(InitNew)() override;
    STDMETHOD(Load)(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHOD(Save)(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

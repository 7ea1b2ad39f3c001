// ControlClassInfo: IProvideClassInfo2 of the control.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlClassInfo final : public ComPart<IProvideClassInfo2> {
  public:
    explicit ControlClassInfo(ControlObject& object);

    STDMETHOD(GetClassInfo)(ITypeInfo** info) override;
    STDMETHOD(GetGUID)(DWORD kind, GUID* guid) override;
};

}  // namespace foldertree

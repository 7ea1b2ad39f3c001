// ControlQuickActivate: IQuickActivate of the control: one call in place of many when a form is opened.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlQuickActivate final : public ComPart<IQuickActivate> {
  public:
    explicit ControlQuickActivate(ControlObject& object);

    /// Takes site and sinks as the single calls would. A sink that cannot be connected has the cookie 0.
    STDMETHOD(QuickActivate)(QACONTAINER* container, QACONTROL* control) override;
    STDMETHOD(SetContentExtent)(LPSIZEL extent) override;
    STDMETHOD(GetContentExtent)(LPSIZEL extent) override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

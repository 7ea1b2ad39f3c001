// ControlPropertyBrowsing: IPerPropertyBrowsing of the control: names in place of the access modes' numbers.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlPropertyBrowsing final : public ComPart<IPerPropertyBrowsing> {
  public:
    explicit ControlPropertyBrowsing(ControlObject& object);

    /// S_FALSE for a property that is shown as its value is.
    STDMETHOD(GetDisplayString)(DISPID property, BSTR* text) override;
    STDMETHOD(MapPropertyToPage)(DISPID property, CLSID* page) override;
    STDMETHOD(GetPredefinedStrings)(DISPID property, CALPOLESTR* texts, CADWORD* cookies) override;
    STDMETHOD(GetPredefinedValue)(DISPID property, DWORD cookie, VARIANT* value) override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

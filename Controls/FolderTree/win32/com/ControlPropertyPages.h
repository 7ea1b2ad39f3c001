// ControlPropertyPages: ISpecifyPropertyPages of the control.
#pragma once

#include <ocidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

class ControlPropertyPages final : public ComPart<ISpecifyPropertyPages> {
  public:
    explicit ControlPropertyPages(ControlObject& object);

    /// Shows the pages in the container's frame, else in the system's. Returns when the user has closed it.
    HRESULT Show(HWND parent);

    STDMETHOD(GetPages)(CAUUID* pages) override;

  private:
    ControlObject& object_;
};

}  // namespace foldertree

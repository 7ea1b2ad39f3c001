// ClientSite: the container as the control sees it.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <string>

#include "automation_win32/ComPtr.h"

namespace foldertree {

/// Holds the container's site while there is one. Without a site every question has its neutral answer.
class ClientSite {
  public:
    void Set(IOleClientSite* site) { site_ = site; }
    IOleClientSite* Get() const { return site_.Get(); }

    template <class Interface>
    automation::ComPtr<Interface> As() const {
        automation::ComPtr<Interface> result;
        if (site_ != nullptr) site_.As(&result);
        return result;
    }

    /// False only where the container says that it is being designed.
    bool UserMode() const;
    /// Null when the container has none.
    automation::ComPtr<IDispatch> Font() const;
    /// What the container calls the control, UTF-8; empty when it does not say.
    std::string DisplayName() const;
    void OnFocus(bool gotFocus) const;

  private:
    /// The ambient property, or VT_EMPTY. The caller clears it.
    VARIANT Ambient(DISPID property) const;

    automation::ComPtr<IOleClientSite> site_;
};

}  // namespace foldertree

// ControlObject: the COM object of the control: one life for the core, the window and the COM interfaces around them.
#pragma once

#include "win32/WindowsNames.h"

#include <memory>

#include "automation_win32/ComPtr.h"
#include "automation_win32/ModuleLock.h"
#include "ctlFolderTree.h"
#include "win32/com/ClientSite.h"
#include "win32/com/FontWatch.h"
#include "win32/window/ControlWindow.h"

namespace foldertree {

class ControlInterfaces;
class WindowsPlatform;

/// Two counts keep the object: references are the host's, uses are calls that run inside it. With the last reference
/// the control ends at once (UserControl_Terminate), also in the middle of a load that yielded; its memory goes when
/// the last running call has left it. One thread only.
class ControlObject final : public IUnknown, private WindowKeeper {
  public:
    /// A new control, with one reference.
    static automation::ComPtr<IUnknown> Create();

    ControlObject(const ControlObject&) = delete;
    ControlObject& operator=(const ControlObject&) = delete;

    STDMETHOD(QueryInterface)(REFIID iid, void** object) override;
    STDMETHOD_(ULONG, AddRef)() override;
    STDMETHOD_(ULONG, Release)() override;

    /// Keeps the object's memory for as long as a call runs inside it. Every way into the core starts with one, and so
    /// does every message of a window.
    class Use : Held {
      public:
        explicit Use(ControlObject& object) : Held(object) {}
    };

    /// Back from running to loaded: a load ends at its next step and the window goes. Everything else stays, what the
    /// host gave and its sinks too; the control can be loaded and activated again at once.
    void StopRunning();
    /// Whether the last reference has gone. Later calls find a control that does nothing.
    bool Ended() const { return ended_; }

    ctlFolderTree& Core() { return *core_; }
    ControlWindow& Window() { return *window_; }
    ClientSite& Site() { return site_; }
    WindowsPlatform& Platform() { return *platform_; }
    ControlInterfaces& Interfaces() { return *interfaces_; }

    /// Whether a setting changed since the container last saved the control.
    bool dirty = false;
    /// Whether the container has run or activated the control and not closed it since. Its members work either way.
    bool running = false;

  private:
    ControlObject();
    ~ControlObject();

    /// The control goes away: a running load ends at its next step, the window and the host's objects are let go.
    void End();
    void Hold() noexcept override;
    void LetGo() noexcept override;

    const automation::ModuleLock lock_;
    ULONG references_ = 1;
    ULONG uses_ = 0;
    bool ended_ = false;
    ClientSite site_;
    std::unique_ptr<WindowsPlatform> platform_;
    std::unique_ptr<ControlInterfaces> interfaces_;
    std::shared_ptr<ctlFolderTree> core_;
    std::unique_ptr<ControlWindow> window_;
    std::unique_ptr<FontWatch> fontWatch_;
};

}  // namespace foldertree

// FontWatch: notices when a host changes the members of the grid's font object, as in `Font.Size = 12`.
#pragma once

#include "win32/WindowsNames.h"

#include <ocidl.h>

#include <memory>

#include "automation_win32/ComPtr.h"
#include "ctlFolderTree.h"
#include "win32/window/ControlWindow.h"

namespace foldertree {

/// Follows the grid to each new font object and tells the window of changes inside it. Stop() lets the font go; nothing
/// is told after it. A font that cannot be watched, for want of memory or because it refuses, is used all the same.
class FontWatch final : public TreeGridObserver {
  public:
    /// The keeper is held while the window hears of a change: it reads the font anew, and the font is the host's.
    FontWatch(std::shared_ptr<ctlFolderTree> control, ControlWindow& window, WindowKeeper& keeper);
    ~FontWatch() override;

    void Stop();

    void GridChanged(const GridChanges& changes) noexcept override;

  private:
    class Sink;
    void Follow() noexcept;
    void Connect(const automation::ObjectRef& font);
    void Disconnect();

    std::shared_ptr<ctlFolderTree> control_;
    automation::ObjectRef font_;
    automation::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
    automation::ComPtr<Sink> sink_;
};

}  // namespace foldertree

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
/// is told after it.
class FontWatch final : public TreeGridObserver {
  public:
    FontWatch(std::shared_ptr<ctlFolderTree> control, ControlWindow& window);
    ~FontWatch() override;

    void Stop();

    void GridChanged(const GridChanges& changes) noexcept override;

  private:
    class Sink;
    void Follow();
    void Disconnect();

    std::shared_ptr<ctlFolderTree> control_;
    automation::ObjectRef font_;
    automation::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
    automation::ComPtr<Sink> sink_;
};

}  // namespace foldertree

// WaitPanelAccessibility: the wait panel as assistive programs see it: two texts, a progress bar and a button.
#pragma once

#include <windows.h>

#include <string>

#include "win32/AccessibleAnswers.h"
#include "win32/AccessibleWindow.h"

namespace foldertree {

class WaitPanel;

/// A part of the panel.
class WaitPanelAccessibility final : private AccessibleAnswers {
  public:
    WaitPanelAccessibility(WaitPanel& panel, WindowKeeper& keeper) : panel_(panel), objects_(*this, keeper) {}

    enum Child : LONG { label = 1, path, bar, button, end };

    /// The result of WM_GETOBJECT, where AccessibleWindow::Answers.
    LRESULT Answer(WPARAM wParam) { return objects_.Answer(wParam); }

  private:
    HWND Window() const override;
    bool Has(LONG child) override { return child >= label && child < end; }
    LONG Count() override { return end - label; }
    LONG ChildAt(LONG position) override { return position >= 0 && position < Count() ? position + label : 0; }
    LONG PositionOf(LONG child) override { return child - label; }
    LONG ChildAtPoint(POINT point) override;
    LONG Step(LONG direction, LONG child) override;
    LONG Focus() override;
    LONG Selection() override { return 0; }
    std::string Name(LONG child) override;
    std::string Value(LONG child) override;
    std::string Description(LONG) override { return {}; }
    LONG Role(LONG child) override;
    LONG State(LONG child) override;
    RECT Place(LONG child) override;
    std::string Action(LONG child) override;
    HRESULT DoAction(LONG child) override;
    HRESULT Select(LONG, LONG) override { return DISP_E_MEMBERNOTFOUND; }

    WaitPanel& panel_;
    AccessibleWindow objects_;
};

}  // namespace foldertree

// PropertyPanel: the control's properties as check boxes, a number and a list.
#pragma once

#include <windows.h>

#include <vector>

#include "LateBound.h"

namespace demo {

/// Uses the command numbers firstId to lastId of the form.
class PropertyPanel {
  public:
    static constexpr int firstId = 100;
    static constexpr int lastId = 149;
    static constexpr int height = 128;  ///< at 96 pixels an inch

    void Create(HWND form);
    void Arrange(const RECT& place);

    /// Shows what the control's properties are now. Throws AutomationFailure.
    void Show(IDispatch* control);
    /// Sets the property whose widget sent a command. Throws AutomationFailure.
    void Command(int id, int notification, IDispatch* control);
    /// Enter was pressed: sets ExtendToLevel when its edit field has the focus.
    void CommitLevel(IDispatch* control);

  private:
    HWND group_ = nullptr;
    std::vector<HWND> flags_;
    HWND levelLabel_ = nullptr, level_ = nullptr, levelArrows_ = nullptr;
    HWND modeLabel_ = nullptr, mode_ = nullptr;
    HWND counts_ = nullptr;
};

}  // namespace demo

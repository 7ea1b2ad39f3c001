// MethodPanel: the control's methods as buttons.
#pragma once

#include <windows.h>

#include <vector>

namespace demo {

/// The commands that its buttons send to the form.
enum MethodCommand : int {
    methodRefreshList = 400,
    methodLocalize,
    methodSelectAll,
    methodSelectNone,
    methodCollapseToSelection,
    methodKillCollection,
    methodFont,
    methodLookUp,
    methodSelectByType,
    methodCollapseToType,
    methodOther  ///< widgets without a command
};

class MethodPanel {
  public:
    static constexpr int height = 118;  ///< at 96 pixels an inch

    void Create(HWND form);
    void Arrange(const RECT& place);

    /// The enuFTIItemType that is chosen for SelectByType and CollapseToType.
    long ItemType() const;
    /// The argument bAdditional of SelectByType.
    bool Additional() const;

  private:
    HWND group_ = nullptr;
    std::vector<HWND> buttons_;
    HWND type_ = nullptr;
    HWND additional_ = nullptr;
};

}  // namespace demo

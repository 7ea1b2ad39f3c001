// SelectionPanel: the items that the user ticked, as the host reads them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "LateBound.h"
#include "SavedState.h"

namespace demo {

/// What the host reads from one item of the control.
struct SelectedFolder {
    long index = 0;
    std::wstring name;
    std::wstring path;
    std::wstring typeName;
    std::wstring key;
    bool incomplete = false;
    SavedItem saved;
};

/// Name of a value of enuFTIItemType.
std::wstring ItemTypeName(long type);

/// Throws AutomationFailure.
SelectedFolder ReadItem(IDispatch* item);
/// The items of a collection; none for Nothing. Throws AutomationFailure.
std::vector<SelectedFolder> ReadCollection(IDispatch* collection);

class SelectionPanel {
  public:
    void Create(HWND form);
    void Arrange(const RECT& place);
    void Show(const std::vector<SelectedFolder>& folders);
    /// The position of the folder that the user chose in the list, else of the first.
    size_t Chosen() const;

  private:
    HWND group_ = nullptr;
    HWND list_ = nullptr;
};

}  // namespace demo

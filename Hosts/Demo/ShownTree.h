// ShownTree: the tree as the control's window shows it, read the way a screen reader does.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace demo {

/// One row on view or scrolled out of it, but not one under a closed node. Places are in screen pixels.
struct ShownRow {
    bool ticked = false;
    std::wstring number;
    int level = 0;
    std::wstring name;
    POINT box = {};          ///< the middle of the check box
    POINT numberPlace = {};  ///< the middle of the number cell
    POINT namePlace = {};    ///< a point in the name's text
};

/// All rows of the list view inside `control`, top to bottom; none when there is no such window.
std::vector<ShownRow> ReadShownTree(HWND control);

/// Two blanks a level, the ticked rows marked.
std::string TreeAsText(const std::vector<ShownRow>& rows);

/// The rows and the visible push buttons and check boxes of `form`, one a line, cells separated by tabs:
///   row  ticked number level name boxX boxY numberX numberY nameX nameY
///   button  caption checked enabled x y
std::string WindowAsText(HWND form, const std::vector<ShownRow>& rows);

}  // namespace demo

// WatchText: the form's state as text, for scripts that press its buttons.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "SelectionPanel.h"
#include "TracedTree.h"

namespace demo {

/// One fact a line, cells separated by tabs, places in screen pixels:
///   control   left top right bottom
///   row       level itemType unread name               (top to bottom, without placeholders)
///   selected  index path type incomplete
///   button    caption checked x y                      (visible push buttons and check boxes, the control's too)
///   focus     class text left top                      (the window that gets the keys)
std::string WatchText(HWND form, HWND control, const TracedTree& tree, const std::vector<SelectedFolder>& selection);

}  // namespace demo

// NamedObject: the system's own object of a window, with a name that the system cannot know.
#pragma once

#include <windows.h>

#include <string>

namespace foldertree {

/// The result of WM_GETOBJECT for the client area of a standard window: all but the name is what the system tells of
/// it. The object outlives the window as the system's own does. 0, for the system to answer, where that has none.
LRESULT AnswerWithName(HWND window, WPARAM wParam, const std::string& name);

}  // namespace foldertree

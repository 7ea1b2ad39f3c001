// AccessibleReader: a window as an assistive program reads it through oleacc, as text.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>
#include <vector>

#include "automation_win32/ComPtr.h"

namespace foldertree::testing {

/// The client object of a window, of this process or another; null where there is none.
automation::ComPtr<IAccessible> AccessibleOf(HWND window);

VARIANT ChildNumber(LONG child);

/// The children's numbers, as IEnumVARIANT hands them out, `atOnce` by each call.
std::vector<LONG> ChildrenOf(IAccessible& object, ULONG atOnce = 16);

/// One line: role, name in quotes, value, states, description and action, each where there is one.
std::string DescribeChild(IAccessible& object, LONG child);

/// The object's line, and one for each of its children. A child that goes meanwhile says so.
std::string DescribeTree(IAccessible& object);

}  // namespace foldertree::testing

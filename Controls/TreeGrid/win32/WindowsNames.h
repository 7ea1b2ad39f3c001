// WindowsNames: <windows.h> without the macros that take names of the control's own. Include it before the core's
// headers.
#pragma once

#include <windows.h>

#undef CreateFont
#undef Yield

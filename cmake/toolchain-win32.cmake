# Cross-building for Windows, i686.

set(FOLDERTREE_WINDOWS win32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")

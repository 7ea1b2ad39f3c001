# Cross-building for Windows, x86_64.

set(FOLDERTREE_WINDOWS win64)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")

# The language level, the output folders and what every Windows source may take for granted.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# All binaries of a build stand together, so that a program finds its DLLs beside it.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

find_program(FOLDERTREE_CCACHE ccache)
mark_as_advanced(FOLDERTREE_CCACHE)
if(FOLDERTREE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${FOLDERTREE_CCACHE}")
endif()

if(WIN32)
    # Windows 7 is the oldest system that the control runs on.
    add_compile_definitions(UNICODE _UNICODE NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601)
endif()

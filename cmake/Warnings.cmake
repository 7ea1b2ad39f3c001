# foldertree_warnings: linked privately by every target of ours; a warning is an error.

add_library(foldertree_warnings INTERFACE)
target_compile_options(foldertree_warnings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:
        -Wall -Wextra -Wpedantic -Werror
        -Wcast-qual -Wconversion -Wformat=2 -Wimplicit-fallthrough -Woverloaded-virtual -Wshadow -Wsign-conversion -Wundef
        -Wunused>)

# COM interfaces have virtual functions and no virtual destructor, and cannot help it.
if(NOT WIN32)
    target_compile_options(foldertree_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>)
endif()

# GCC 12 sees overlapping copies inside std::string where there are none (its bug 105329).
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(foldertree_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()

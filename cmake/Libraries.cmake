# Static libraries with the project's rules.
#
# foldertree_add_library(name INCLUDE dir SOURCES ... [LIBS ...] [PRIVATE_LIBS ...])
#
# A static library with the project's rules: its include root is dir and nothing else, warnings are errors. Without
# sources it is an interface library (headers alone).

function(foldertree_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "INCLUDE" "SOURCES;LIBS;PRIVATE_LIBS")
    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        # Static libraries end up in DLLs too; objects are the same on Windows, and native ones stay relocatable.
        set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
        target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/${arg_INCLUDE}")
        target_link_libraries(${name} PUBLIC ${arg_LIBS} PRIVATE foldertree_warnings ${arg_PRIVATE_LIBS})
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE "${CMAKE_CURRENT_SOURCE_DIR}/${arg_INCLUDE}")
        target_link_libraries(${name} INTERFACE ${arg_LIBS})
    endif()
endfunction()

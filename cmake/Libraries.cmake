# Static libraries with the project's rules.
#
# foldertree_add_library(name INCLUDE dir SOURCES ... [COLD ...] [LIBS ...] [PRIVATE_LIBS ...])
#
# A static library with the project's rules: its include root is dir and nothing else, warnings are errors. Without
# sources it is an interface library (headers alone). COLD are further sources, whose speed nobody notices: they are
# compiled to be small.
#
# foldertree_ship(target)
#
# What every shipped program and DLL of a Windows build has in common.

# -O2 is the level at which the benchmarks measure; -O3 is larger. The linker leaves out what nobody calls; names and
# lines end up in the debug information that packages keep apart.
set(foldertree_shipped_code -O2 -g1 -ffunction-sections -fdata-sections)

function(foldertree_ship target)
    target_compile_options(${target} PRIVATE ${foldertree_shipped_code})
    target_link_options(${target} PRIVATE -Wl,--gc-sections)
    add_dependencies(shipped ${target})
endfunction()

function(foldertree_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "INCLUDE" "SOURCES;COLD;LIBS;PRIVATE_LIBS")
    if(arg_SOURCES OR arg_COLD)
        add_library(${name} STATIC ${arg_SOURCES} ${arg_COLD})
        set_source_files_properties(${arg_COLD} PROPERTIES COMPILE_OPTIONS "$<$<NOT:$<CONFIG:Debug>>:-Os>")
        # Static libraries end up in DLLs too; objects are the same on Windows, and native ones stay relocatable.
        set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
        if(WIN32)
            target_compile_options(${name} PRIVATE ${foldertree_shipped_code})
        endif()
        target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/${arg_INCLUDE}")
        target_link_libraries(${name} PUBLIC ${arg_LIBS} PRIVATE foldertree_warnings ${arg_PRIVATE_LIBS})
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE "${CMAKE_CURRENT_SOURCE_DIR}/${arg_INCLUDE}")
        target_link_libraries(${name} INTERFACE ${arg_LIBS})
    endif()
endfunction()

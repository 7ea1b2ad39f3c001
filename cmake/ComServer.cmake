# In-process COM servers.
#
# foldertree_add_com_server(target FILE name.ext TITLE title SOURCES ... LIBS ... [FOR_TESTS])
#
# A DLL of the given file name that exports the five entry points of ComServer.def and defines
# automation::DescribeServer in one of its sources. All COM servers of a build are listed in com-servers.txt of its
# folder, for whoever registers them; those FOR_TESTS are neither listed nor shipped. What a shipped server registers,
# registry-rows/NAME.EXT.exe prints for the installer and the side-by-side manifest.

set_property(GLOBAL PROPERTY foldertree_com_servers "")

function(foldertree_add_com_server target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "FOR_TESTS" "FILE;TITLE" "SOURCES;LIBS")
    cmake_path(GET arg_FILE STEM name)
    cmake_path(GET arg_FILE EXTENSION extension)
    set(shared "${PROJECT_SOURCE_DIR}/Automation/win32/src")
    add_library(${target} SHARED ${arg_SOURCES}
        "${shared}/Guids.cpp"
        "${shared}/ServerEntryPoints.cpp"
        "${shared}/TerminateHandler.cpp"
        "${shared}/UnwindTables.cpp"
        "${PROJECT_SOURCE_DIR}/cmake/ComServer.def")
    set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${name} SUFFIX ${extension})
    # On x86 the entry points are stdcall; the fixup finds them under their plain names.
    target_link_options(${target} PRIVATE -Wl,--enable-stdcall-fixup)
    target_link_libraries(${target} PRIVATE ${arg_LIBS} foldertree_warnings)
    if(NOT arg_FOR_TESTS)
        target_compile_options(${target} PRIVATE -Os)
        foldertree_ship(${target})
        foldertree_add_version_info(${target} "${arg_TITLE}")
        add_executable(${target}_registry_rows ${arg_SOURCES} "${shared}/PrintRegistryRows.cpp")
        set_target_properties(${target}_registry_rows PROPERTIES
            OUTPUT_NAME ${arg_FILE} RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/registry-rows")
        target_link_options(${target}_registry_rows PRIVATE -municode)
        target_link_libraries(${target}_registry_rows PRIVATE ${arg_LIBS} foldertree_warnings)
        add_dependencies(shipped ${target}_registry_rows)
        set_property(GLOBAL APPEND PROPERTY foldertree_com_servers "$<TARGET_FILE:${target}>")
    endif()
endfunction()

function(foldertree_list_com_servers)
    get_property(servers GLOBAL PROPERTY foldertree_com_servers)
    list(TRANSFORM servers APPEND "\n")
    list(JOIN servers "" lines)
    file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/com-servers.txt" CONTENT "${lines}")
endfunction()

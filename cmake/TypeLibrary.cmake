# Type libraries from interface descriptions.
#
# foldertree_add_typelib(target X.idl [TITLE title])
#
# Compiles the interface description with widl; LIBRARY_TITLE in it is the title, in quotes. Sources of target, and of
# whatever links it, may include the interface header "X.idl.h"; every program or DLL that links target carries the type
# library as its resource 1 TYPELIB, so that it can be loaded from the module that the code is in. Target is a static library.

find_program(FOLDERTREE_WIDL NAMES ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-widl REQUIRED)
find_path(FOLDERTREE_WINE_IDL NAMES oaidl.idl ocidl.idl
    PATHS /usr/include/wine/wine/windows /usr/include/wine/windows /opt/wine-stable/include/wine/windows
    NO_CMAKE_FIND_ROOT_PATH NO_DEFAULT_PATH)
if(NOT FOLDERTREE_WINE_IDL)
    message(FATAL_ERROR "Wine's IDL files (oaidl.idl) are missing: install the package libwine-dev.")
endif()
# The folder is named after the architecture of the Wine that is installed, not of our target; either library serves.
file(GLOB foldertree_wine_folders
    /usr/lib/*/wine/x86_64-windows /usr/lib/*/wine/i386-windows /usr/lib/wine/x86_64-windows /opt/wine-*/lib*/wine/*-windows)
find_path(FOLDERTREE_STDOLE NAMES stdole2.tlb PATHS ${foldertree_wine_folders} NO_CMAKE_FIND_ROOT_PATH NO_DEFAULT_PATH)
if(NOT FOLDERTREE_STDOLE)
    message(FATAL_ERROR "Wine's stdole2.tlb is missing: install the package libwine.")
endif()
mark_as_advanced(FOLDERTREE_WIDL FOLDERTREE_WINE_IDL FOLDERTREE_STDOLE)

function(foldertree_add_typelib target idl)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "TITLE" "")
    cmake_path(GET idl STEM name)
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/${idl}")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}.typelib")
    set(header "${folder}/${name}.idl.h")
    set(typelib "${folder}/${name}.tlb")
    set(resource "${folder}/${name}.typelib.rc")
    math(EXPR bits "${CMAKE_SIZEOF_VOID_P} * 8")
    set(widl "${FOLDERTREE_WIDL}" -m${bits} "-DLIBRARY_TITLE=\"${arg_TITLE}\""
        -I "${FOLDERTREE_WINE_IDL}" -L "${FOLDERTREE_STDOLE}")

    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(OUTPUT "${typelib}" "${header}"
        COMMAND ${widl} -t -o "${typelib}" "${source}"
        COMMAND ${widl} -h -o "${header}" "${source}"
        DEPENDS "${source}"
        COMMENT "Compiling ${idl}" VERBATIM)
    add_custom_target(${target}_idl DEPENDS "${typelib}" "${header}")
    add_dependencies(${target} ${target}_idl)
    target_include_directories(${target} SYSTEM PUBLIC "${folder}")

    file(CONFIGURE OUTPUT "${resource}" CONTENT "1 TYPELIB \"@name@.tlb\"\n" @ONLY)
    set_source_files_properties("${resource}" PROPERTIES OBJECT_DEPENDS "${typelib}")
    add_library(${target}_typelib OBJECT "${resource}")
    target_include_directories(${target}_typelib PRIVATE "${folder}")
    target_link_libraries(${target} INTERFACE $<TARGET_OBJECTS:${target}_typelib>)
endfunction()

# The version that Windows shows among a file's properties.
#
# foldertree_add_version_info(target title)
#
# Gives a program or DLL of ours the project's version, once and for all in the project command, and the title.

function(foldertree_add_version_info target title)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
        set(kind VFT_APP)
        set(extra "")
    else()
        set(kind VFT_DLL)
        # Tells development tools that regsvr32 can register it.
        set(extra "VALUE \"OLESelfRegister\", \"\"")
    endif()
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.version.rc")
    # The file name is known when all is configured.
    configure_file("${PROJECT_SOURCE_DIR}/cmake/VersionInfo.rc.in" "${resource}.in" @ONLY)
    file(GENERATE OUTPUT "${resource}" INPUT "${resource}.in")
    target_sources(${target} PRIVATE "${resource}")
endfunction()

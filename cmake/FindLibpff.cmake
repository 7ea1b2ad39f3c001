# libpff::libpff, the library that reads PST files, and libbfio, through which it is handed the file: the system's in
# native builds, unless Libpff_ROOT names another; for Windows the DLL that scripts/build-libpff leaves in
# build/libpff-win64 or build/libpff-win32. What scripts/build-libpff makes has both in one.

include(FindPackageHandleStandardArgs)

if(WIN32)
    set(LIBPFF_ROOT "${PROJECT_SOURCE_DIR}/build/libpff-${FOLDERTREE_WINDOWS}" CACHE PATH "Where scripts/build-libpff put libpff")
    set(libpff_search PATHS "${LIBPFF_ROOT}" NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    find_path(LIBPFF_INCLUDE_DIR libpff.h PATH_SUFFIXES include ${libpff_search})
    find_file(LIBPFF_LIBRARY libpff.dll.a PATH_SUFFIXES lib ${libpff_search})
    find_file(LIBPFF_DLL NAMES libpff-1.dll PATH_SUFFIXES bin ${libpff_search})
    mark_as_advanced(LIBPFF_DLL)
    find_package_handle_standard_args(Libpff
        REQUIRED_VARS LIBPFF_LIBRARY LIBPFF_DLL LIBPFF_INCLUDE_DIR
        REASON_FAILURE_MESSAGE "run scripts/build-libpff ${FOLDERTREE_WINDOWS} first")
else()
    find_path(LIBPFF_INCLUDE_DIR libpff.h)
    find_library(LIBPFF_LIBRARY pff)
    find_library(LIBBFIO_LIBRARY bfio)
    find_package_handle_standard_args(Libpff
        REQUIRED_VARS LIBPFF_LIBRARY LIBBFIO_LIBRARY LIBPFF_INCLUDE_DIR
        REASON_FAILURE_MESSAGE "install the packages libpff-dev and libbfio-dev")
endif()
mark_as_advanced(LIBPFF_INCLUDE_DIR LIBPFF_LIBRARY LIBBFIO_LIBRARY)

if(Libpff_FOUND AND NOT TARGET libpff::libpff)
    if(WIN32)
        add_library(libpff::libpff SHARED IMPORTED)
    else()
        add_library(libpff::libpff UNKNOWN IMPORTED)
    endif()
    target_include_directories(libpff::libpff SYSTEM INTERFACE "${LIBPFF_INCLUDE_DIR}")
    if(WIN32)
        set_target_properties(libpff::libpff PROPERTIES
            IMPORTED_LOCATION "${LIBPFF_DLL}" IMPORTED_IMPLIB "${LIBPFF_LIBRARY}")
        # Programs find a DLL beside themselves.
        add_custom_target(libpff_beside_programs ALL
            COMMAND "${CMAKE_COMMAND}" -E copy_if_different "${LIBPFF_DLL}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/" VERBATIM)
        add_dependencies(shipped libpff_beside_programs)
    else()
        set_target_properties(libpff::libpff PROPERTIES IMPORTED_LOCATION "${LIBPFF_LIBRARY}")
        if(NOT LIBPFF_LIBRARY MATCHES "\\.a$")
            target_link_libraries(libpff::libpff INTERFACE "${LIBBFIO_LIBRARY}")
        endif()
    endif()
endif()

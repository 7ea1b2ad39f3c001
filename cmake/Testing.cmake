# Tests: the same GoogleTest sources run natively, one CTest test per case, and under Wine, one CTest test per binary.
#
# foldertree_add_test(name SOURCES ... LIBS ... [OPTIMISED] [USES_DISPLAY] [TIMEOUT seconds])
#   OPTIMISED     the test itself works hard, not only what it tests
#   USES_DISPLAY  the test moves the mouse or the focus, so no other such test runs beside it
# foldertree_add_test_library(name SOURCES ... LIBS ... [OPTIMISED])
#   what several of these programs share; its include root is the current folder
# foldertree_add_script_test(name COMMAND command args... [USES_DISPLAY] [TIMEOUT seconds])
#   any other program whose exit code is the verdict; it runs in the root of the sources;
#   also in builds without unit tests
#
# Test names start with the name of the build ("win64."), since several builds are run in one go. A test that ends with
# exit code 77 is skipped: those of a Windows build do so where there is no Wine that can run them.

enable_testing()
cmake_path(GET PROJECT_BINARY_DIR FILENAME foldertree_build_name)

if(FOLDERTREE_TESTS)
    if(WIN32)
        find_path(FOLDERTREE_GOOGLETEST_SOURCES googletest/CMakeLists.txt PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH)
        if(NOT FOLDERTREE_GOOGLETEST_SOURCES)
            message(FATAL_ERROR "The GoogleTest sources are missing: install the package googletest.")
        endif()
        set(INSTALL_GTEST OFF)
        add_subdirectory("${FOLDERTREE_GOOGLETEST_SOURCES}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
        # Like the tests themselves: built often, run little.
        foreach(library gtest gtest_main gmock)
            target_compile_options(${library} PRIVATE -O0)
        endforeach()
    else()
        find_package(GTest REQUIRED)
        include(GoogleTest)
    endif()
endif()

# Test sources are many and run once, so they are not optimised (the code under test is), and what nearly all of them
# include is parsed once a build. Headers that were parsed for the one cannot serve the other.
function(foldertree_compile_tests target optimised)
    target_link_libraries(${target} PRIVATE GTest::gtest_main GTest::gmock foldertree_warnings)
    if(optimised)
        target_compile_options(${target} PRIVATE -O1)
    else()
        target_compile_options(${target} PRIVATE -O0)
        target_precompile_headers(${target} REUSE_FROM foldertree_test_headers)
    endif()
    # Goldens and sample data are found from here.
    target_compile_definitions(${target} PRIVATE FOLDERTREE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
endfunction()

if(FOLDERTREE_TESTS)
    set(empty "${PROJECT_BINARY_DIR}/TestHeaders.cpp")
    file(TOUCH "${empty}")
    add_library(foldertree_test_headers OBJECT EXCLUDE_FROM_ALL "${empty}")
    target_link_libraries(foldertree_test_headers PRIVATE GTest::gtest_main GTest::gmock foldertree_warnings)
    target_compile_options(foldertree_test_headers PRIVATE -O0)
    # Not windows.h, whose macros have no place in portable tests.
    target_precompile_headers(foldertree_test_headers PRIVATE
        <gmock/gmock.h> <gtest/gtest.h>
        <algorithm> <functional> <map> <memory> <optional> <random> <set> <string> <string_view> <vector>)
endif()

function(foldertree_add_test_library name)
    if(NOT FOLDERTREE_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "OPTIMISED" "" "SOURCES;LIBS")
    add_library(${name} STATIC EXCLUDE_FROM_ALL ${arg_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${arg_LIBS})
    foldertree_compile_tests(${name} "${arg_OPTIMISED}")
endfunction()

function(foldertree_test_properties result timeout usesDisplay)
    if(NOT timeout)
        set(timeout 300)
    endif()
    set(properties TIMEOUT ${timeout})
    if(WIN32)
        list(APPEND properties SKIP_RETURN_CODE 77 ENVIRONMENT FOLDERTREE_WINDOWS=${FOLDERTREE_WINDOWS})
    endif()
    if(usesDisplay)
        # One after the other, so begin with them while all other tests can run beside them.
        list(APPEND properties RESOURCE_LOCK display COST 100)
    endif()
    set(${result} ${properties} PARENT_SCOPE)
endfunction()

function(foldertree_add_test name)
    if(NOT FOLDERTREE_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "OPTIMISED;USES_DISPLAY" "TIMEOUT" "SOURCES;LIBS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBS})
    foldertree_compile_tests(${name} "${arg_OPTIMISED}")

    foldertree_test_properties(properties "${arg_TIMEOUT}" ${arg_USES_DISPLAY})
    if(WIN32)
        # The emulator of the toolchain file starts it under Wine.
        set(test ${foldertree_build_name}.${name})
        add_test(NAME ${test} COMMAND ${name})
        set_tests_properties(${test} PROPERTIES ${properties})
    else()
        gtest_discover_tests(${name} TEST_PREFIX "${foldertree_build_name}." DISCOVERY_MODE PRE_TEST
            DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
    endif()
endfunction()

function(foldertree_add_script_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "USES_DISPLAY" "TIMEOUT" "COMMAND")
    set(test ${foldertree_build_name}.${name})
    add_test(NAME ${test} COMMAND ${arg_COMMAND} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    foldertree_test_properties(properties "${arg_TIMEOUT}" ${arg_USES_DISPLAY})
    set_tests_properties(${test} PROPERTIES ${properties})
endfunction()

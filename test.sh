#!/usr/bin/env bash
# From a bare Debian to the verdict: installs what is missing, builds everything, runs every test, natively under the
# sanitizers and under Wine. The output closes with CTest's summary, and CTest's exit code is ours.
set -euo pipefail
source "$(dirname "$0")/scripts/steps.sh"
(($# == 0)) || fail "usage: ./test.sh (no arguments; for some of the tests, use ctest --test-dir build -R NAME)"

# Tests move the mouse and the focus: never on the screen that somebody works at.
export FOLDERTREE_HEADLESS=1
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

prepare_machine
start_windows win64 win32
start_job pascal-win64 "$repoRoot/scripts/build-pascal" win64
start_job pascal-win32 "$repoRoot/scripts/build-pascal" win32
build_preset native-asan
finish_windows
build_preset win64
build_preset win32
prepare_wine win64
if wine_has_win32; then
    prepare_wine win32
else
    echo "There is no Wine for x86 programs here: the tests win32.* are skipped."
fi

# One run over all builds.
echo "subdirs(native-asan win64 win32)" >"$buildRoot/CTestTestfile.cmake"
echo
ctest --test-dir "$buildRoot" --output-on-failure --no-tests=error -j2

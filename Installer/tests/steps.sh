# Sourced by the tests of the installers: a Wine prefix of their own, and what they share.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
# Lists are compared in the order of their characters.
export LC_ALL=C.UTF-8
export FOLDERTREE_WINEPREFIX=$buildRoot/wine-installer PYTHONDONTWRITEBYTECODE=1
source "$repoRoot/scripts/wine-env"
tests=$repoRoot/Installer/tests
work=$(mktemp -d)
at_exit rm -rf "$work"
at_exit wineserver -k

# packages BUILD: where the test of packaging leaves the packages of a build.
packages() { printf '%s' "$buildRoot/$1/packages"; }

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# The folder in which the installer for x64 or x86 programs puts the files, as the system sees it.
programs() {
    local folder="Program Files"
    [[ $1 != x86 || $WINEARCH == win32 ]] || folder="Program Files (x86)"
    printf '%s' "$WINEPREFIX/drive_c/$folder/FolderTree"
}

# expect WHAT WANTED GOT
expect() {
    [[ $2 == "$3" ]] || fail "$1: wanted '$2', got '$3'"
    echo "$1: $3"
}

# msiexec STATUS ARGUMENT...: runs the installer without a word and expects its exit code, of which Linux sees 8 bits.
# 3010 means that it has been done, but for files in use, which follow when the system starts again.
msiexec() {
    local wanted=$1 status=0
    shift
    timeout 60 wine msiexec "$@" /qn || status=$?
    expect "msiexec $1 $(basename "${2//\\//}")" $((wanted % 256)) "$status"
}

# script NAME ARGUMENT...: the last line of what a script said.
script() {
    local name=$1
    shift
    timeout 60 wine cscript //nologo "$(windows_path "$tests/$name")" "$@" | tr -d '\r' | tail -1
}

file_version() { "$repoRoot/Installer/file-version" "$1"; }

# snapshot NAME: what is there now, for comparison; the registry's files are complete only when Wine has stopped.
snapshot() {
    wineserver -k || true
    wineserver -w
    "$tests/snapshot" "$WINEPREFIX" >"$work/$1"
}

# A prefix in which nothing of ours is installed. Scripts register something of their own when the first of them runs.
start_clean() {
    wine_use "$1"
    wine_start_screen
    if [[ -e $(programs x64)/FolderTree.ocx || -e $(programs x86)/FolderTree.ocx ]]; then
        echo "An earlier test has left something behind: starting afresh."
        rm -rf "$WINEPREFIX"
    fi
    wine_make_prefix
    wine cscript //nologo "$(windows_path "$tests/nothing.vbs")"
    snapshot before
}

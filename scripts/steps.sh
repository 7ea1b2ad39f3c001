# Sourced by demo.sh and test.sh: the steps from a bare Debian to registered components in a Wine prefix.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

prepare_machine() {
    step "Installing missing packages" \
        "Check the network and /etc/apt; without root or sudo, ask for the packages in scripts/packages.txt."
    "$repoRoot/scripts/install-packages"
    steps_done
    "$repoRoot/scripts/build-libpff"
}

# build_preset NAME TARGET...: configures and builds; without targets, everything.
build_preset() {
    local preset=$1 log=$buildRoot/$1.configure.log
    shift
    step "Building $preset${*:+: $*}" \
        "Read the messages above; to start afresh, delete build/$preset and run this again."
    mkdir -p "$buildRoot"
    (cd "$repoRoot" && cmake --preset "$preset") >"$log" 2>&1 || { cat "$log"; fail "CMake could not configure."; }
    (cd "$repoRoot" && cmake --build --preset "$preset" ${*:+--target "$@"})
    steps_done
}

# A screen, the Wine prefix, and in it every COM server that the win64 build has.
prepare_wine() {
    step "Setting up Wine in ${buildRoot##*/}/wine" "Delete build/wine and run this again."
    source "$repoRoot/scripts/wine-env"
    wine_start_screen
    wine_make_prefix
    local servers
    mapfile -t servers <"$buildRoot/win64/com-servers.txt"
    wine_register "${servers[@]}"
    wine_register_mapi_session "$buildRoot/win64/bin/LocalStores.dll"
    steps_done
}

# Sourced by demo.sh and test.sh: the steps from a bare Debian to registered components in a Wine prefix.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# Compiled once instead of first preprocessed and then compiled: a tenth less where the compiler cache is empty.
export CCACHE_DEPEND=${CCACHE_DEPEND:-1}

prepare_machine() {
    step "Installing missing packages" \
        "Check the network and /etc/apt; without root or sudo, ask for the packages in scripts/packages.txt."
    "$repoRoot/scripts/install-packages"
    steps_done
}

jobNames=()
jobs=()

# start_windows BUILD...: begins to make what the builds for Windows (win64, win32) need besides packages. It takes minutes
# and mostly one processor, so other steps may go on until finish_windows.
start_windows() {
    local build
    for build in "$@"; do
        start_job "libpff-$build" "$repoRoot/scripts/build-libpff" "$build"
        [[ $build != win32 ]] || start_job wine32 "$repoRoot/scripts/build-wine32"
    done
}

# What could not be had (exit code 77) is told here and missed later; any other failure ends the script.
finish_windows() {
    local i status
    step "Waiting for: ${jobNames[*]}" "Read the messages above and run this again."
    for i in "${!jobs[@]}"; do
        status=0
        wait "${jobs[i]}" || status=$?
        cat "$buildRoot/${jobNames[i]}.log"
        ((status == 0 || status == 77)) || exit "$status"
    done
    jobs=()
    jobNames=()
    steps_done
}

# start_job NAME COMMAND...: runs it beside us, in a session of its own so that it can be ended with all that it starts.
start_job() {
    local name=$1
    shift
    mkdir -p "$buildRoot"
    setsid "$@" >"$buildRoot/$name.log" 2>&1 &
    jobNames+=("$name")
    jobs+=($!)
}

stop_jobs() {
    local job
    for job in "${jobs[@]}"; do
        kill -- "-$job" 2>/dev/null || true
    done
}
at_exit stop_jobs

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

# prepare_wine BUILD: a screen, and for programs of that build a Wine prefix with every COM server that it has.
prepare_wine() {
    local build=$1 servers
    source "$repoRoot/scripts/wine-env"
    wine_use "$build"
    step "Setting up Wine in ${WINEPREFIX#"$repoRoot/"}" "Delete $WINEPREFIX and run this again."
    wine_start_screen
    wine_make_prefix
    mapfile -t servers <"$buildRoot/$build/com-servers.txt"
    wine_register "${servers[@]}"
    wine_register_mapi_session "$buildRoot/$build/bin/LocalStores.dll"
    steps_done
}

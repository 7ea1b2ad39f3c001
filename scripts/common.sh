# Shared by the scripts: where things are, named steps, and clean-up that runs in reverse order at exit.

repoRoot=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
buildRoot=$repoRoot/build
stepName=
stepRemedy=
exitActions=()

# step NAME REMEDY: announces the next step; if the script ends inside it, REMEDY is printed.
step() {
    stepName=$1
    stepRemedy=$2
    printf '\n== %s\n' "$stepName"
}

# Ends the part of a script in which a failure belongs to a step.
steps_done() {
    stepName=
}

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# at_exit COMMAND...: runs the command when the script ends, whatever the reason; the last one given runs first.
at_exit() {
    exitActions+=("$(printf '%q ' "$@")")
}

# Ends a process that the script has started, if it is still there.
stop_process() {
    kill "$1" 2>/dev/null && wait "$1" 2>/dev/null
    return 0
}

finish() {
    local status=$? i
    trap - EXIT
    set +e
    for ((i = ${#exitActions[@]} - 1; i >= 0; i--)); do
        eval "${exitActions[i]}"
    done
    if ((status != 0)) && [[ -n $stepName ]]; then
        printf '\nFAILED: %s\nWhat to do: %s\n' "$stepName" "$stepRemedy" >&2
    fi
    exit "$status"
}

trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

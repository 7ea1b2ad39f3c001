# Sourced by the tests of stopping a slow load; stop_load is what the user does to stop it.
source "$(dirname "${BASH_SOURCE[0]}")/window.sh"

not_loading() { [[ $(fact loading) == 0 ]]; }

run_cancel_test() {
    local all=70 read # the sample mailbox has more rows than that
    start_demo --slow 150 --level 0
    wait_until "some rows are read" some_rows_read
    stop_load
    wait_until "the load has ended" not_loading
    wait_until "the wait panel is gone" lacks_button Cancel
    read=$(row_count)
    ((read < all)) || fail "The load was not stopped: $read rows."
    expect "last line of the load" "$(grep '^ctlFolderTree: ' "$trace" | tail -n 1)" "ctlFolderTree: GetFolders: Done"
    expect "trace errors" "$(grep -c 'Error in' "$trace" || true)" 0

    # What was read can be used like any tree.
    local path='Mailbox - Alex Example\\Calendar'
    measure_rows
    measure_box Calendar
    tick Calendar
    wait_until "a folder that was read is selected" selection_is $'1\t'"$path"
    close_demo
    echo "The load was stopped after $read rows; the tree is usable."
}

# Sourced by the tests of the demo's window: they press keys and buttons like a user and wait for what follows.
# The demo's --watch file says what its window holds and where the buttons are; the rows are found in the picture.

set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../../scripts/common.sh"
source "$repoRoot/scripts/wine-env"
wine_start_screen
wine_make_prefix

program=$1
work=$(mktemp -d)
at_exit rm -rf "$work"
watch=$work/watch
trace=$work/trace
state=$work/state
demo=

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# start_demo OPTION...: a demo with its own state, which a second one finds again.
start_demo() {
    rm -f "$watch" "$trace"
    wine "$program" --watch "$(windows_path "$watch")" --trace "$(windows_path "$trace")" \
        --state "$(windows_path "$state")" "$@" &
    demo=$!
    at_exit stop_process "$demo"
}

# Closes the window the way a user does; the demo then saves its state.
close_demo() {
    xdotool key --clearmodifiers alt+F4
    wait_until "the demo has ended" demo_ended
}
demo_ended() { ! kill -0 "$demo" 2>/dev/null; }

wait_until() { # WHAT CONDITION...
    local what=$1 tenths
    shift
    for ((tenths = 0; tenths < 300; tenths++)); do
        "$@" && return
        sleep 0.1
    done
    show_state >&2
    fail "Waited 30 seconds in vain until $what."
}

expect() { # WHAT FOUND WANTED
    [[ $2 == "$3" ]] && return
    show_state >&2
    fail "$1: found [$2], wanted [$3]"
}

show_state() {
    echo "--- what the window holds"
    cat "$watch" 2>/dev/null || true
    echo "--- the last trace lines"
    tail -n 20 "$trace" 2>/dev/null || true
    import -window root "$buildRoot/failed-window-test.png" && echo "--- picture: $buildRoot/failed-window-test.png"
}

# facts KIND: the lines of that kind, without the kind.
facts() { [[ ! -e $watch ]] || sed -n "s/^$1\t//p" "$watch"; }
fact() { facts "$1" | head -n 1; }
row_count() { facts row | wc -l; }

tree_stands() { [[ $(fact loading) == 0 ]] && (($(row_count) > 0)) && grep -q '^FolderTreeDemo: RefreshList returned' "$trace"; }
some_rows_read() { has_button Cancel && (($(row_count) >= 12)); }
wait_for_tree() { wait_until "the tree stands" tree_stands; }

# The paths of the selected folders in the host's collection, with their numbers.
selection() { facts selected | cut -f 1,2; }
selection_is() { [[ $(selection) == "$1" ]]; }
changed_is() { [[ $(fact changed) == "$1" ]]; }

# --- Where the rows are. All nodes that were read are open in these tests, so a row's position is its place in the list.

# row_position NAME [NTH]
row_position() {
    facts row | NAME=$1 awk -F '\t' -v nth="${2:-1}" '$4 == ENVIRON["NAME"] && ++found == nth { print NR - 1; exit }'
}

# colours LEFT TOP WIDTH HEIGHT: one "x y RRGGBB" a pixel, as it is on the screen.
colours() {
    import -window root -crop "$3x$4+$1+$2" +repage -depth 8 txt:- | sed -n 's/^\([0-9]*\),\([0-9]*\):.*#\([0-9A-F]\{6\}\).*/\1 \2 \3/p'
}

# Finds the height of header and rows beside the names: the first store's row has a colour of its own, the rows below it
# are white and end with a thin line.
measure_rows() {
    local right bottom
    read -r controlLeft controlTop right bottom <<<"$(fact control)"
    sampleX=$((right - 40))
    read -r headerHeight rowHeight <<<"$(
        colours "$sampleX" "$controlTop" 1 $((bottom - controlTop)) | awk -v white="$windowColour" '
            $3 == white { if (++run == 10 && first == "") first = $2 - 9 }
            $3 != white { run = 0; if (first != "") { height = $2 + 1 - first; exit } }
            END { print first - height, height }'
    )"
    [[ $headerHeight =~ ^[0-9]+$ && $rowHeight =~ ^[0-9]+$ ]] || {
        show_state >&2
        fail "The rows could not be found in the picture: header $headerHeight, row $rowHeight"
    }
}
windowColour=FFFFFF

# row_middle NAME [NTH]: the height on the screen at which the row is.
row_middle() { echo $((controlTop + headerHeight + $(row_position "$@") * rowHeight + rowHeight / 2)); }

# Finds the check box in the picture: what is not white at the left of a folder's row.
measure_box() { # NAME
    local top=$(($(row_middle "$1") - rowHeight / 2 + 2))
    boxX=$(colours $((controlLeft + 2)) "$top" 28 $((rowHeight - 4)) |
        awk -v left=$((controlLeft + 2)) -v white="$windowColour" '
            $3 != white { if (first == "" || $1 < first) first = $1; if ($1 > last) last = $1 }
            END { print int(left + (first + last) / 2) }')
    nameX=$((2 * boxX - controlLeft))
}

# back_colour NAME [NTH]: the colour of the row beside its text.
back_colour() { colours "$sampleX" "$(row_middle "$@")" 1 1 | cut -d ' ' -f 3; }
back_colour_is() { [[ $(back_colour "$1") == "$2" ]]; }

# How many dark pixels a text has; bold text has more.
ink() { ink_at $(($(row_middle "$1") - rowHeight / 2)); } # NAME
header_ink() { ink_at $((controlTop + headerHeight - rowHeight)); }
ink_at() {
    colours "$nameX" $(($1 + 1)) $((sampleX - nameX)) $((rowHeight - 2)) |
        awk '$3 ~ /^[0-5].[0-5].[0-5]./ { ++dark } END { print dark + 0 }'
}

click_at() { xdotool mousemove "$1" "$2" click 1; }
tick() { click_at "$boxX" "$(row_middle "$@")"; }

press_button() { # CAPTION
    local x y
    read -r x y <<<"$(facts button | CAPTION=$1 awk -F '\t' '$1 == ENVIRON["CAPTION"] { print $3, $4; exit }')"
    [[ -n $x ]] || { show_state >&2; fail "There is no button $1."; }
    click_at "$x" "$y"
}
has_button() { facts button | cut -f 1 | grep -qxF "$1"; }
lacks_button() { ! has_button "$1"; }

# --- Trace lines that come after a mark.
mark_trace() { traceMark=$(wc -l <"$trace"); }
traced() { tail -n +$((traceMark + 1)) "$trace"; }

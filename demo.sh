#!/usr/bin/env bash
# Shows the folder tree of real mail in a host window; installs and builds whatever is missing for that.
set -euo pipefail
source "$(dirname "$0")/scripts/steps.sh"

usage() {
    cat <<'TEXT'
usage: ./demo.sh [options]

Opens the demo host on the sample mailbox. With no DISPLAY it runs on a hidden screen instead: it waits until the tree
stands, writes a picture of it to build/demo.png, prints the tree and ends.

  --pst FILE         show this PST file instead of the sample mailbox
  --maildir DIR      show this Maildir++ tree instead of it (may be given several times, also beside --pst)
  --level N          read N levels of folders at once, deeper ones when their node is opened (0: all)
  --mode N           read by way of 0 MAPI tables, 1 RDO objects, 2 Outlook's object model, 3 a CDO session (else 0, or
                     what the demo's last run kept)
  --x86              the 32-bit demo, in a 32-bit Wine
  --screenshot FILE  run on a hidden screen and write the picture to FILE
  --help             this text
TEXT
}

usage_error() {
    printf '%s\n\n' "$1" >&2
    usage >&2
    exit 2
}

build=win64
stores=()
level=()
mode=()
screenshot=$buildRoot/demo.png

while (($# > 0)); do
    option=$1
    case $option in
        --help | -h) usage; exit 0 ;;
        --x86)
            build=win32
            shift
            continue
            ;;
        --pst | --maildir | --level | --mode | --screenshot)
            (($# > 1)) || usage_error "$option needs a value."
            value=$2
            shift 2
            ;;
        *) usage_error "Unknown option: $option" ;;
    esac
    case $option in
        --pst)
            [[ -f $value && -r $value ]] || fail "--pst: $value is no file that can be read."
            stores+=(--pst "$(realpath "$value")")
            ;;
        --maildir)
            [[ -d $value && -r $value ]] || fail "--maildir: $value is no folder that can be read."
            stores+=(--maildir "$(realpath "$value")")
            ;;
        --level)
            [[ $value =~ ^[0-9]+$ ]] || usage_error "--level takes a number, not $value."
            level=(--level "$value")
            ;;
        --mode)
            [[ $value =~ ^[0-3]$ ]] || usage_error "--mode takes 0, 1, 2 or 3, not $value."
            mode=(--mode "$value")
            ;;
        --screenshot)
            screenshot=$(realpath -m "$value")
            [[ -d $(dirname "$screenshot") ]] || fail "--screenshot: there is no folder $(dirname "$screenshot")."
            export FOLDERTREE_HEADLESS=1
            ;;
    esac
done

prepare_machine
start_windows "$build"
finish_windows
build_preset "$build" shipped
prepare_wine "$build"

program=$buildRoot/$build/bin/FolderTreeDemo.exe
arguments=(${level[@]+"${level[@]}"} ${mode[@]+"${mode[@]}"})
for ((i = 0; i < ${#stores[@]}; i += 2)); do
    arguments+=("${stores[i]}" "$(winepath -w "${stores[i + 1]}")")
done

if [[ -z ${FOLDERTREE_SCREEN:-} ]]; then
    step "Running the demo" "Start it again with WINEDEBUG=+seh,+ole ./demo.sh to see what Wine says."
    wine "$program" ${arguments[@]+"${arguments[@]}"}
    steps_done
    exit 0
fi

step "Running the demo on a hidden screen" "Start it again with WINEDEBUG=+seh,+ole ./demo.sh to see what Wine says."
ready=$buildRoot/demo.txt
rm -f "$ready" "$screenshot"
# A desktop of Wine's own gives the window its frame and the focus, where no window manager would.
desktop=(wine explorer /desktop=FolderTree,1280x1024)
"${desktop[@]}" "$(winepath -w "$program")" ${arguments[@]+"${arguments[@]}"} --ready "$(winepath -w "$ready")" &
host=$!
for ((tenths = 0; tenths < 600; tenths++)); do
    [[ ! -s $ready ]] || break
    kill -0 "$host" 2>/dev/null || fail "The demo ended before its tree stood."
    sleep 0.1
done
[[ -s $ready ]] || fail "The tree did not stand within 60 seconds."
sleep 1 # the window paints after the tree stands
import -window root -trim +repage "$screenshot"
# Close it as its user would, so that it keeps its state; whatever is left then ends with the screen.
"${desktop[@]}" taskkill /im FolderTreeDemo.exe >/dev/null 2>&1 || true
for ((tenths = 0; tenths < 50; tenths++)); do
    kill -0 "$host" 2>/dev/null || break
    sleep 0.1
done
steps_done

echo
cat "$ready"
printf '\nPicture: %s\n' "$screenshot"

# Sourced by the tests of foldertree-dump: what they share. $dump is the program, $folder a folder of the test's own.

set -euo pipefail
dump=$1
repoRoot=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export LC_ALL=C.UTF-8
failures=0

# same WHAT EXPECTED ACTUAL
same() {
    [[ $2 == "$3" ]] && return
    printf '%s differs (< wanted, > got):\n' "$1"
    diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") || true
    failures=$((failures + 1))
}

# The numbers of the dump's columns behind its four leading ones.
colName=7 colItemType=11 colPath=17 colKey=18

# folders OPTION...: what the dump prints, a line a folder: level, item type, path below the store.
folders() {
    "$dump" "$@" | awk -F'\t' -v OFS='\t' -v name=$colName -v type=$colItemType -v path=$colPath '
        NR > 1 && $1 > 0 { gsub(/\\\\/, "\\", $path); sub(/^[^\\]*\\/, "", $path); print $1, $type, $path }'
}

verdict() {
    ((failures == 0)) && echo "$1"
    exit "$failures"
}

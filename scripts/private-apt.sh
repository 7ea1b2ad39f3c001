# Sourced after common.sh: apt with lists, cache and package state of its own, for what is to be fetched and not to be
# installed. The configuration and state of the system stay as they are, and no step needs root.

# private_apt_open FOLDER TYPE: starts afresh in FOLDER, with the system's sources as sources of TYPE (deb or deb-src).
private_apt_open() {
    local type=$2 file
    privateAptFolder=$1
    mkdir -p "$privateAptFolder"/{sources,lists/partial,cache/archives/partial,state}
    : >"$privateAptFolder/state/status"
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [[ ! -r $file ]] || sed -nE "s/^[[:space:]]*deb(-src)?[[:space:]]/$type /p" "$file" |
            sort -u >"$privateAptFolder/sources/$(basename "$file" .list).list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [[ ! -r $file ]] || sed -E "s/^Types:.*/Types: $type/" "$file" >"$privateAptFolder/sources/$(basename "$file")"
    done
}

# private_apt ARGUMENT...: apt-get with what private_apt_open has made.
private_apt() {
    apt-get -q -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$privateAptFolder/sources" \
        -o Dir::State="$privateAptFolder/state" -o Dir::State::Lists="$privateAptFolder/lists" \
        -o Dir::State::status="$privateAptFolder/state/status" -o Dir::Cache="$privateAptFolder/cache" \
        -o APT::Sandbox::User=root -o APT::Install-Recommends=false -o Acquire::Languages=none "$@"
}

# Functions that the commands of this repository share; to be sourced by bash.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() {
    printf '== %s\n' "$*"
}

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 2
}

# The packages of the named groups in scripts/packages.txt, one a line, each once.
packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$1 == group { print $2 }' "$root/scripts/packages.txt"
    done | sort -u
}

is_installed() {
    [[ $(dpkg-query -W -f '${db:Status-Abbrev}' "$1" 2>/dev/null) == ii* ]]
}

as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "packages have to be installed: run this as root, or install sudo"
    fi
}

# Installs what the named groups need and the machine lacks; asks the network for nothing when all is there.
install_packages() {
    local package missing=()
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system: taking the needed packages for granted."
        return
    fi
    for package in $(packages_of "$@"); do
        is_installed "$package" || missing+=("$package")
    done
    [[ ${#missing[@]} -eq 0 ]] && return
    say "Installing ${missing[*]}"
    as_root apt-get update -q </dev/null &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -qy --no-install-recommends "${missing[@]}" </dev/null
}

# find_unspread: `unspread` is then what keeps the kernel from spreading the addresses of the program behind it; empty
# where that may not be asked for.
find_unspread() {
    unspread=(setarch "$(uname -m)" -R)
    "${unspread[@]}" true 2>/dev/null || unspread=()
}

# Put in front of the programs of a build and its tests; empty unless a stage says otherwise.
launcher=()

# build PRESET [TARGET...]
build() {
    local preset=$1 target targets=()
    shift
    for target in "$@"; do
        targets+=(--target "$target")
    done
    (cd "$root" && cmake --preset "$preset" >/dev/null </dev/null &&
        "${launcher[@]}" cmake --build --preset "$preset" --parallel "$(nproc)" "${targets[@]}" </dev/null)
}

# start_display WIDTHxHEIGHT: a screen that no machine stands behind; `QSUTILS_DISPLAY` names it then.
start_display() {
    local told
    told=$(mktemp) || return
    Xvfb -displayfd 3 -screen 0 "$1x24" -dpi 96 -noreset -nolisten tcp 3>"$told" >/dev/null 2>&1 </dev/null &
    display_process=$!
    until [[ -s $told ]]; do
        kill -0 "$display_process" 2>/dev/null || return
        sleep 0.1
    done
    QSUTILS_DISPLAY=:$(<"$told")
    export QSUTILS_DISPLAY
    rm -f "$told"
}

stop_display() {
    [[ -n ${display_process:-} ]] || return 0
    kill "$display_process" 2>/dev/null && wait "$display_process" 2>/dev/null
    display_process=
}

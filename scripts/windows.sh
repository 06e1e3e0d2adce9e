# What the Windows build needs beyond Debian's packages; to be sourced by bash. All of it is made once and kept in a
# cache folder outside of the checkout: the libraries built for Windows, the Chinese locale, the Wine prefix.
# shellcheck shell=bash
: "${root:?is set by scripts/common.sh}"

windows_cache=${QSUTILS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/qsutils}

package_version() {
    dpkg-query -W -f '${Version}' "$1"
}

# The libraries are built anew when a compiler, a source or the way of building them has changed.
windows_dependencies_key() {
    {
        for package in g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev libxerces-c-dev libcsv-dev libpugixml-dev \
            googletest libfmt-dev libcli11-dev nlohmann-json3-dev; do
            package_version "$package"
            echo
        done
        cat "$root/cmake/windows/"*
        declare -f fetch_source configure_for_windows build_windows_dependencies
    } | sha256sum | cut -c 1-16
}

# Debian's entries in apt's own lists, as "file:place": a line of a .list file, a paragraph of a .sources file.
debian_entries() {
    # shellcheck disable=SC2016 # apt fills the names in
    apt-get indextargets --format '$(ORIGIN) $(SOURCESENTRY)' 'Created-By: Packages' |
        awk '$1 == "Debian" { print $2 }' | sort -u
}

# The same entries for source packages.
debian_source_entries() {
    local kind=$1 entry file place
    for entry in $(debian_entries); do
        file=${entry%:*} place=${entry##*:}
        case $kind:$file in
            list:*.list) sed -n "${place}s/^deb /deb-src /p" "$file" ;;
            sources:*.sources)
                awk -v place="$place" 'BEGIN { RS = "" }
                    NR == place { sub(/Types:[^\n]*/, "Types: deb-src"); print $0 "\n" }' "$file"
                ;;
        esac
    done
}

# Lets apt find source packages: where it can't, the entries are added beside those for the binary packages.
enable_source_packages() {
    local kind entries
    apt-get source --print-uris "$1" >/dev/null 2>&1 && return
    as_root apt-get update -q </dev/null || return
    apt-get source --print-uris "$1" >/dev/null 2>&1 && return
    say "Adding the entries for Debian's source packages"
    for kind in list sources; do
        entries=$(debian_source_entries "$kind")
        [[ -z $entries ]] || as_root tee "/etc/apt/sources.list.d/qsutils-source.$kind" <<<"$entries" >/dev/null || return
    done
    as_root apt-get update -q </dev/null
}

# fetch_source PACKAGE FOLDER: the unpacked source, in a folder of that name.
fetch_source() {
    local package=$1 folder=$2
    mkdir -p "$folder.packed" && (cd "$folder.packed" && apt-get source -q "$package" </dev/null) &&
        mv "$folder.packed"/*/ "$folder"
}

# configure_for_windows SOURCE BUILD PREFIX OPTION...
configure_for_windows() {
    local source=$1 build=$2 prefix=$3
    shift 3
    cmake -S "$source" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/windows/mingw-w64.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" "$@" </dev/null
}

# Xerces-C with nothing of the network, the system's own transcoder and mutexes; and the small libraries.
build_windows_dependencies() {
    local work=$1 prefix=$2
    enable_source_packages xerces-c && fetch_source xerces-c "$work/xerces-c" && fetch_source libcsv "$work/libcsv" &&
        fetch_source pugixml "$work/pugixml" &&
        configure_for_windows "$work/xerces-c" "$work/xerces-build" "$prefix" -DBUILD_SHARED_LIBS=OFF \
            -Dnetwork=OFF -Dtranscoder=windows -Dmutex-manager=windows &&
        cmake --build "$work/xerces-build" --target xerces-c && cmake --install "$work/xerces-build/src" &&
        configure_for_windows "$root/cmake/windows" "$work/small-build" "$prefix" -DCSV_SOURCE="$work/libcsv" \
            -DPUGIXML_SOURCE="$work/pugixml" &&
        cmake --build "$work/small-build" && cmake --install "$work/small-build"
}

prepare_windows_dependencies() {
    local target work log
    target=$windows_cache/windows/$(windows_dependencies_key)
    log=$windows_cache/windows-dependencies.log
    if [[ ! -d $target ]]; then
        say "Building the libraries for Windows into $target"
        mkdir -p "$windows_cache/windows"
        work=$(mktemp -d "$windows_cache/build.XXXXXX")
        # Put in place whole, so that a build which was broken off is begun anew.
        if ! build_windows_dependencies "$work" "$work/prefix" >"$log" 2>&1; then
            tail -n 40 "$log"
            rm -rf "$work"
            return 1
        fi
        mv -T "$work/prefix" "$target"
        rm -rf "$work"
    fi
    mkdir -p "$root/build" && ln -sfn "$target" "$root/build/windows-dependencies"
}

# in_wine COMMAND...: with a prefix and a Chinese locale of its own, and no questions about components that it doesn't
# use. Without a screen, unless QSUTILS_SCREEN names one; programs with and without a screen don't meet. Where the kernel
# spreads addresses, one start in thousands finds the page taken that Wine needs at 0x7ffe0000, and fails without a word.
in_wine() {
    local display=(-u DISPLAY) prefix=$windows_cache/wine unspread
    find_unspread
    if [[ -n ${QSUTILS_SCREEN:-} ]]; then
        display=("DISPLAY=$QSUTILS_SCREEN")
        prefix=$windows_cache/wine-screen
    fi
    env "${display[@]}" WINEPREFIX="$prefix" LOCPATH="$windows_cache/locale" LC_ALL=zh_CN.UTF-8 \
        WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" "${unspread[@]}" "$@"
}

prepare_wine() {
    local locale=$windows_cache/locale/zh_CN.UTF-8
    if [[ ! -d $locale ]]; then
        mkdir -p "$windows_cache/locale"
        localedef -i zh_CN -f UTF-8 "$locale.new" && mv "$locale.new" "$locale" || return
    fi
    [[ -e $windows_cache/wine.ready ]] && return
    say "Making a Wine prefix in $windows_cache/wine"
    [[ ! -d $windows_cache/wine ]] || stop_wine
    rm -rf "$windows_cache/wine"
    in_wine wineboot --init >/dev/null 2>&1 </dev/null && in_wine wineserver --wait &&
        touch "$windows_cache/wine.ready"
}

# Titles and frames are Wine's own, since a screen without a machine has no window manager that would draw them and tell
# when a window is gone; the signs on their buttons are letters of a font. Faces that Windows has in Chinese get those of
# this machine.
set_up_screen() {
    local face user='HKEY_CURRENT_USER\Software\Wine' replacements
    ln -s /usr/share/wine/fonts/marlett.ttf "$windows_cache/wine-screen/drive_c/windows/Fonts/" || return
    replacements="$user\\Fonts\\Replacements"
    in_wine wine reg add "$user\\X11 Driver" /v Managed /d N /f || return
    for face in 宋体 SimSun; do
        in_wine wine reg add "$replacements" /v "$face" /d 'AR PL UMing CN' /f || return
    done
    for face in 'Microsoft YaHei' 'MS Shell Dlg' 'MS Shell Dlg 2' Tahoma; do
        in_wine wine reg add "$replacements" /v "$face" /d 文泉驿正黑 /f || return
    done
}

# A second prefix for programs with a screen. What never changes in it is the first one's.
prepare_wine_with_screen() {
    local first=$windows_cache/wine second=$windows_cache/wine-screen
    [[ $second.ready -nt $first.ready ]] && return
    say "Making a Wine prefix with fonts in $second"
    rm -rf "$second" && cp -al "$first" "$second" && rm "$second"/*.reg && cp "$first"/*.reg "$second" || return
    QSUTILS_SCREEN=none set_up_screen >/dev/null 2>&1 </dev/null &&
        QSUTILS_SCREEN=none in_wine wineserver --wait && touch "$second.ready"
}

# Starts a screen, and Wine with it, for programs run with `under-wine --screen`.
start_screen() {
    start_display 1280x1024 || return
    export QSUTILS_SCREEN=$QSUTILS_DISPLAY
    stop_wine >/dev/null 2>&1  # one that was left behind is bound to a screen that has gone
    start_wine 600
}

stop_screen() {
    stop_wine
    unset QSUTILS_SCREEN
    stop_display
}

# start_wine SECONDS: starts what Wine keeps running beside the programs, until so long after the last of them. Started by
# a program itself, it would hold that program's output open for as long as it lives.
start_wine() {
    in_wine wineserver --persistent="$1" >/dev/null 2>&1 </dev/null
    in_wine wineboot >/dev/null 2>&1 </dev/null
    in_wine wine explorer.exe /desktop >/dev/null 2>&1 </dev/null &
}

prepare_windows() {
    mkdir -p "$windows_cache" && prepare_windows_dependencies && prepare_wine && prepare_wine_with_screen
}

# Ends what Wine keeps running for the programs to come.
stop_wine() {
    in_wine wineserver --kill || true
}

# Shared by ./run and ./test: packages, builds, and the Wine prefix. Sourced, not run.
# shellcheck shell=bash

export WINEDEBUG=-all
# Neither .NET nor a browser engine is wanted; without this, a new prefix asks for them.
export WINEDLLOVERRIDES="mscoree=;mshtml="

build_packages=(cmake ninja-build g++-mingw-w64-x86-64-posix cmark-gfm)
linux_packages=(cmake ninja-build g++ qt6-base-dev cmark-gfm)
wine_packages=(wine wine64 fonts-wine xvfb)
test_packages=(g++ python3-minimal libgtest-dev libgmock-dev googletest libbenchmark-dev libcairo2-dev libpng-dev
    pkg-config clang libclang-rt-14-dev clang-format clang-tidy xdotool imagemagick qt6-base-dev dbus-daemon xvfb
    at-spi2-core python3-gi gir1.2-atspi-2.0 weston qt6-wayland syncthing)

say() { printf '%s\n' "$*" >&2; }

# install_packages NAME...: installs what is missing, as root or through sudo.
install_packages() {
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    say "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq || return 1
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build_preset PRESET [TARGET...]
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" >/dev/null && cmake --build --preset "$preset" ${1:+--target "$@"}
}

# use_wine_prefix FOLDER: makes it the Wine prefix, created silently on first use.
use_wine_prefix() {
    export WINEPREFIX=$1
    [ -f "$WINEPREFIX/.ready" ] && return 0
    say "Preparing Wine (once, about ten seconds) ..."
    mkdir -p "$WINEPREFIX"
    wineboot --init >/dev/null 2>&1 && wineserver --wait || return 1
    # Debian's Wine does not find its own Tahoma (dialogs) and Marlett (window buttons) where they are installed.
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
    touch "$WINEPREFIX/.ready"
}

# let_wine_manage_windows yes|no: without a window manager, Wine draws captions itself and moves windows;
# otherwise it would wait two seconds for one whenever a window closes.
let_wine_manage_windows() {
    local mark="$WINEPREFIX/.manages-windows" key='HKCU\Software\Wine\X11 Driver'
    if [ "$1" = yes ] && [ ! -f "$mark" ]; then
        wine reg add "$key" /v Managed /d N /f >/dev/null 2>&1 && touch "$mark"
    elif [ "$1" = no ] && [ -f "$mark" ]; then
        wine reg delete "$key" /v Managed /f >/dev/null 2>&1
        rm -f "$mark"
    fi
}

# start_display [SIZE]: a virtual screen (of 800x900) on a free number; sets DISPLAY and display_process.
start_display() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${1:-800x900}x24" -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
    display_process=$!
    local tries=0
    until [ -s "$number_file" ]; do
        kill -0 "$display_process" 2>/dev/null || return 1
        tries=$((tries + 1))
        [ "$tries" -lt 200 ] || return 1
        read -rt 0.05 <> <(:) || true
    done
    DISPLAY=:$(tr -d '\n' <"$number_file")
    export DISPLAY
    rm -f "$number_file"
}

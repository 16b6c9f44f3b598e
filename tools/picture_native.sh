# The native program for take_pictures: with a home of its own, and nothing of a desktop.
# shellcheck shell=bash disable=SC2154
home=$(mktemp -d)
setting() { printf '"%s" = number %d\n' "$1" "$2" >>"$home/.config/inkwright/settings"; }

prepare() {
    build_preset linux inkwright inkalarms >&2
    export HOME=$home INKWRIGHT_DEVICE=$device INKWRIGHT_SCALE=$PICTURE_SCALE QT_QPA_PLATFORM=xcb
    unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_RUNTIME_DIR DBUS_SESSION_BUS_ADDRESS QT_SCALE_FACTOR
    mkdir -p "$home/.config/inkwright"
    echo '[Software\Larkspur Works\Inkwright]' >"$home/.config/inkwright/settings"
}

programs=()
open_program() {
    build/linux/inkwright "$@" &
    programs+=($!)
}
end_programs() {
    kill "${programs[@]}" 2>/dev/null || true
    build/linux/inkalarms --stop || true
    rm -rf "$home"
}

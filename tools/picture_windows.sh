# The Windows program for take_pictures: under Wine, with a prefix of its own.
# shellcheck shell=bash disable=SC2154
key='HKCU\Software\Larkspur Works\Inkwright'
setting() { wine reg add "$key" /v "$1" /t REG_DWORD /d "$2" /f >/dev/null 2>&1; }

prepare() {
    build_preset windows inkwright inkalarms >&2
    use_wine_prefix "$top/build/wine-pictures"
    let_wine_manage_windows yes
    # As on a monitor with that many dots per inch.
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD \
        /d "$(awk "BEGIN { print 96 * $PICTURE_SCALE }")" /f >/dev/null 2>&1
    for kind in Editor Manager; do wine reg delete "$key" /v "Window.$kind" /f >/dev/null 2>&1 || true; done
    wineserver -k || true
    INKWRIGHT_DEVICE=$(winepath -w "$device")
    export INKWRIGHT_DEVICE
}

open_program() { wine build/windows/inkwright.exe "$@" & }
end_programs() { wineserver -k 2>/dev/null || true; }

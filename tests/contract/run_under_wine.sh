#!/bin/sh
# run_under_wine.sh <state folder> <program.exe> [argument...]
# Runs a Windows program on a display and in a Wine prefix of its own. The prefix is kept in the state folder
# for the next time; what the program prints is passed on.
set -eu
state=$1
shift
mkdir -p "$state"

display_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$display_file" >/dev/null 2>&1 &
server=$!
export WINEPREFIX="$state/prefix" WINEDLLOVERRIDES="mscoree=;mshtml=" WINEDEBUG=-all LC_ALL=C.UTF-8
finish() {
    wineserver -k 2>/dev/null || true
    kill "$server" 2>/dev/null || true
    rm -f "$display_file"
}
trap finish EXIT INT TERM

tries=0
while [ ! -s "$display_file" ]; do
    tries=$((tries + 1))
    [ "$tries" -lt 100 ] || { echo "no virtual display" >&2; exit 1; }
    sleep 0.1
done
DISPLAY=:$(cat "$display_file")
export DISPLAY

if [ ! -f "$state/ready" ]; then
    wineboot --init >/dev/null 2>&1
    # Without a window manager on the display Wine waits two seconds for each window that it takes away.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
    wineserver -w
    touch "$state/ready"
fi
wine "$@" 2>/dev/null | tr -d '\r'

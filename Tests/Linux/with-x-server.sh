#!/bin/bash
# Runs a command on an X server of its own, with private folders, and ends all of it afterwards:
#   with-x-server.sh none|openbox|xfwm4 COMMAND [ARGUMENT …]
set -euo pipefail

manager=$1
shift
folder=$(mktemp -d)
processes=()

cleanup() {
    for process in "${processes[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    wait || true
    rm -rf "$folder"
}
trap cleanup EXIT

fail() {
    echo "with-x-server: $1" >&2
    cat "$folder"/*.log >&2 || true
    exit 1
}

# Tries for ten seconds.
eventually() {
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.05
    done
    return 1
}

export HOME="$folder/home"
export XDG_CONFIG_HOME="$HOME/.config" XDG_DATA_HOME="$HOME/.local/share"
export XDG_STATE_HOME="$HOME/.local/state" XDG_CACHE_HOME="$HOME/.cache"
export XDG_RUNTIME_DIR="$folder/runtime"
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_STATE_HOME" "$XDG_CACHE_HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset WAYLAND_DISPLAY XAUTHORITY DBUS_SESSION_BUS_ADDRESS SESSION_MANAGER
export QT_QPA_PLATFORM=xcb

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset \
    3>"$folder/display" >"$folder/server.log" 2>&1 &
processes+=($!)
eventually test -s "$folder/display" || fail "Xvfb did not start"
DISPLAY=:$(cat "$folder/display")
export DISPLAY

has_manager() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

case $manager in
none) ;;
openbox) openbox --sm-disable >"$folder/manager.log" 2>&1 & ;;
xfwm4) xfwm4 --compositor=off --sm-client-disable >"$folder/manager.log" 2>&1 & ;;
*) fail "unknown window manager $manager" ;;
esac
if [ "$manager" != none ]; then
    processes+=($!)
    eventually has_manager || fail "$manager did not start"
fi

status=0
"$@" || status=$?
exit "$status"

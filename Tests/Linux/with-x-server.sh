#!/bin/bash
# Runs a command on its own X server, with or without a window manager, and ends them afterwards:
# with-x-server.sh none|openbox|xfwm4 COMMAND [ARGUMENT …]
# For separate folders and a bus, see with-session-bus.sh. PERCHLY_TEST_SERVER_PID is the server's
# PID, so that the command can stop it.
set -euo pipefail

manager=$1
shift
processes=()
trap 'kill "${processes[@]}" 2>/dev/null || true; wait' EXIT
trap 'exit 143' HUP INT TERM

fail() {
    echo "with-x-server: $1" >&2
    exit 1
}

# Retries for ten seconds.
eventually() {
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.05
    done
    return 1
}

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset \
    3>"$TMPDIR/display" 2>"$TMPDIR/server.log" &
export PERCHLY_TEST_SERVER_PID=$!
processes+=("$PERCHLY_TEST_SERVER_PID")
eventually test -s "$TMPDIR/display" || fail "Xvfb did not start"
DISPLAY=:$(cat "$TMPDIR/display")
export DISPLAY QT_QPA_PLATFORM=xcb

has_manager() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

case $manager in
none) ;;
openbox) openbox --sm-disable & ;;
xfwm4) xfwm4 --compositor=off --sm-client-disable & ;;
*) fail "unknown window manager $manager" ;;
esac
if [ "$manager" != none ]; then
    processes+=($!)
    eventually has_manager || fail "$manager did not start"
fi

"$@"

#!/bin/sh
# Runs a command with an X display of its own, which ends with it.
set -eu

folder=$(mktemp -d "${TMPDIR:-/tmp}/perchly-display.XXXXXX")
server=
cleanup() {
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -rf "$folder"
}
trap cleanup EXIT
trap 'exit 143' HUP INT TERM

mkfifo "$folder/number"
Xvfb -displayfd 3 -screen 0 1440x900x24 -nolisten tcp 3>"$folder/number" 2>"$folder/log" &
server=$!
read -r number <"$folder/number"
export DISPLAY=":$number"

status=0
"$@" || status=$?
exit "$status"

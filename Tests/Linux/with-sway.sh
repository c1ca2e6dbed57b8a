#!/bin/bash
# Runs a command on its own Wayland compositor without devices, and ends that afterwards:
# with-sway.sh COMMAND [ARGUMENT …]
# For separate folders and a bus, see with-session-bus.sh.
set -euo pipefail

folder=$TMPDIR/sway
mkdir -m 700 "$folder"
as_user=()
if [ "$(id -u)" = 0 ]; then # which sway refuses
    chmod 711 "$TMPDIR"
    chown 65534:65534 "$folder"
    as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi
printf 'xwayland disable\n' >"$folder/config"
env XDG_RUNTIME_DIR="$folder" HOME="$folder" WLR_BACKENDS=headless WLR_RENDERER=pixman \
    WLR_LIBINPUT_NO_DEVICES=1 "${as_user[@]}" sway -c "$folder/config" &>"$folder.log" &
compositor=$!
trap 'kill "$compositor" 2>/dev/null || true; wait' EXIT
trap 'exit 143' HUP INT TERM
for _ in $(seq 200); do
    [ ! -S "$folder/wayland-1" ] || break
    sleep 0.05
done
export WAYLAND_DISPLAY=$folder/wayland-1

"$@"

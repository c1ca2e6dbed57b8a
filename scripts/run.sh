#!/bin/sh
# Builds Perchly and starts it on the current display. Without a display it plays a short scene on a
# virtual one and leaves pictures of it in out/. run.sh --wayland does so on a Wayland compositor.
set -eu
cd "$(dirname "$0")/.."

display=${WAYLAND_DISPLAY:-${DISPLAY:-}}
scene=out
targets=perchly
if [ "${1:-}" = --wayland ]; then
    display=
    scene="out/wayland sway"
    targets="perchly wayland_hands"
    export PERCHLY_WAYLAND_HANDS="$PWD/build/Tests/Session/wayland_hands"
fi

echo "run: the first build takes about 3 minutes on 2 cores; later ones take seconds."
if [ -n "$display" ]; then
    scripts/setup.sh Building Running # nothing that changes the desktop
else
    scripts/setup.sh Building Running Testing
fi
# shellcheck disable=SC2086 # one word per target
scripts/build.sh default $targets

program=build/Sources/Perchly/Shell/perchly
if [ -n "$display" ]; then
    echo "run: Perchly is at the top of the screen: point at it."
    exec "$program"
fi
echo "run: Perchly plays a short scene on a virtual display."
# shellcheck disable=SC2086 # a folder and a compositor
exec /usr/bin/python3 -B scripts/scene.py "$program" $scene

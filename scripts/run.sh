#!/bin/sh
# Builds Perchly and starts it on the current display. Without a display it plays a short scene on a
# virtual one and leaves pictures of it in out/.
set -eu
cd "$(dirname "$0")/.."

echo "run: the first build takes about 3 minutes on 2 cores; later ones take seconds."
if [ -n "${DISPLAY:-}" ]; then
    scripts/setup.sh Building Running # nothing that changes the desktop
else
    scripts/setup.sh Building Running Testing
fi
scripts/build.sh default perchly

program=build/Sources/Perchly/Shell/perchly
if [ -n "${DISPLAY:-}" ]; then
    echo "run: Perchly is at the top of the screen: point at it, or press Ctrl+Alt+Space."
    exec "$program"
fi
echo "run: there is no display, so Perchly plays a short scene on a virtual one."
exec /usr/bin/python3 -B scripts/scene.py "$program" out

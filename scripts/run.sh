#!/bin/sh
# Builds Perchly and starts it on the current display. Without one, it plays a short scene on a
# virtual display and leaves pictures of it in out/.
set -eu
cd "$(dirname "$0")/.."

if [ -n "${DISPLAY:-}" ]; then
    scripts/setup.sh Building Running # and nothing that changes the desktop
else
    scripts/setup.sh Building Running Testing
fi
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] && command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake --preset release
cmake --build --preset release --target perchly

program=build/release/Sources/Perchly/Shell/perchly
if [ -n "${DISPLAY:-}" ]; then
    echo "Perchly hangs at the top of the screen: point at it, or press Ctrl+Alt+Space."
    exec "$program"
fi
echo "There is no display: Perchly plays a short scene on a virtual one."
exec /usr/bin/python3 -B scripts/scene.py "$program" out

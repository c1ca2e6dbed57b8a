#!/bin/sh
# Builds everything and runs every test: areas with fake hosts, views, Linux hosts with real
# services, and the program in X sessions. Ends with CTest's summary.
# test.sh asan|tsan builds with sanitizers; further arguments go to ctest.
set -eu
cd "$(dirname "$0")/.."

preset=default
case ${1:-} in
asan | tsan)
    preset=$1
    shift
    ;;
esac

echo "test: the first run takes about 8 minutes on 2 cores, later ones 4."
scripts/setup.sh Building Running Checking Testing
scripts/build.sh "$preset"
build=build
[ "$preset" = default ] || build=build-$preset

# Hide the user's desktop from the tests.
unset DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
export TSAN_OPTIONS="suppressions=$PWD/scripts/tsan.supp die_after_fork=0 ${TSAN_OPTIONS:-}"
export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp print_suppressions=0 ${LSAN_OPTIONS:-}"
# Most tests wait for servers, window managers and timers, not for a processor.
ctest --test-dir "$build" --output-on-failure -j "$((3 * $(nproc)))" "$@" </dev/null

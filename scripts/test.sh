#!/bin/sh
# Builds everything with all checks on and runs every test: the sources' lints, the areas over fake
# hosts, the views, the Linux hosts against real services, and the program in X sessions of its own.
# Ends with the runner's summary; fails if anything does. test.sh PRESET takes another preset than
# "debug"; further arguments go to ctest.
set -eu
cd "$(dirname "$0")/.."

preset=${1:-debug}
[ $# -eq 0 ] || shift

scripts/setup.sh Building Running Checking Testing
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] && command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake --preset "$preset"
cmake --build --preset "$preset"
if [ "$preset" = debug ]; then
    cmake --build --preset "$preset" --target all_verify_interface_header_sets
fi

# Nothing of the person's own desktop is seen by the tests.
unset DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
export TSAN_OPTIONS="suppressions=$PWD/scripts/tsan.supp ${TSAN_OPTIONS:-}"
export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp print_suppressions=0 ${LSAN_OPTIONS:-}"
# Real servers and window managers on a busy machine: what fails is tried once more before it counts.
ctest --test-dir "build/$preset" --output-on-failure --repeat until-pass:2 -j "$(nproc)" "$@" </dev/null

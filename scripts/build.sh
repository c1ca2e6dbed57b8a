#!/bin/sh
# build.sh PRESET [TARGET…]: configures the preset and builds the targets, or everything.
set -eu
cd "$(dirname "$0")/.."

preset=$1
shift
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] && command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
cmake --preset "$preset" --log-level=WARNING
cmake --build --preset "$preset" ${1:+--target "$@"}

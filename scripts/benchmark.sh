#!/bin/sh
# Builds Perchly and the benchmarks, then measures Perchly, the machine's noise and other programs.
# Arguments go to Benchmarks/benchmark.py, for example --rounds 20 --seconds 10.
set -eu
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/build.sh default perchly RingBenchmark ApplicationsBenchmark PasteboardWatcher \
    RouteBenchmark RouteProbe drag_partner
build/Benchmarks/RingBenchmark
exec /usr/bin/python3 -B Benchmarks/benchmark.py build/Sources/Perchly/Shell/perchly "$@"

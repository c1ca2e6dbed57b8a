#!/bin/sh
# Builds Perchly and the benchmarks, then measures Perchly on X11 and on Wayland, the machine's noise,
# and other programs.
# Arguments go to benchmark.py and wayland.py in Benchmarks, for example --rounds 20 --seconds 10.
set -eu
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/build.sh default perchly RingBenchmark ApplicationsBenchmark PasteboardWatcher \
    RouteBenchmark RouteProbe WaylandProbe wayland_hands drag_partner
build/Benchmarks/RingBenchmark
for script in benchmark wayland; do
    /usr/bin/python3 -B "Benchmarks/$script.py" build/Sources/Perchly/Shell/perchly "$@"
done

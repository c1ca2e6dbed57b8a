#!/bin/sh
# fuzz.sh SECONDS [OPTION…]: builds the targets of Tests/Fuzz with clang and runs each for that long,
# one on each processor. Options go to libFuzzer. In build-fuzz/run, each target has a folder with its
# log, the inputs that reached new code and, if it failed, the input that made it fail.
set -eu
cd "$(dirname "$0")/.."

seconds=${1:?"usage: fuzz.sh SECONDS [OPTION…]"}
shift
scripts/setup.sh Building Running Checking
scripts/build.sh fuzz

export UBSAN_OPTIONS=print_stacktrace=1
export tree="$PWD"
scratch=$(mktemp -d -p /dev/shm) # where it is quick to replace a small file
export scratch
trap 'rm -rf "$scratch"' EXIT
# Texts should get longer than what rows and lines are cut to.
basename -a Tests/Fuzz/corpus/* | xargs -P "$(nproc)" -I TARGET sh -c '
    run=$tree/build-fuzz/run/TARGET
    mkdir -p "$run/corpus" "$scratch/TARGET"
    cd "$scratch/TARGET"
    if ! "$tree/build-fuzz/Tests/Fuzz/TARGET" -artifact_prefix="$run/" "$@" "$run/corpus" \
        "$tree/Tests/Fuzz/corpus/TARGET" >"$run/log" 2>&1; then
        cat "$run/log"
        exit 1
    fi
    echo "TARGET: $(grep -o "cov: [0-9]*" "$run/log" | tail -n 1), $(grep "^Done" "$run/log")"
    ' sh -max_total_time="$seconds" -max_len=20000 -timeout=30 "$@"

#!/bin/sh
# lint.sh format|tidy|qml BUILD_FOLDER: one check of the sources; fails and says why if they do not
# pass. The build folder holds the compile commands and the QML modules.
set -euf
cd "$(dirname "$0")/.."

check=$1
build=$2
jobs=$(nproc)

# sources FOLDER PATTERN…: the files whose names match, each ended by a zero byte.
sources() {
    folders=$1
    shift
    names=$(printf ' -o -name %s' "$@")
    # shellcheck disable=SC2086 # a list of folders, a list of tests
    find $folders -type f '(' ${names# -o} ')' -print0 | sort -z
}

# clang-tidy on one file, unless it passed with these headers and settings before.
tidy_one() {
    stamp=$TIDY_STAMPS/$( (echo "$TIDY_COMMON"; cat "$1") | sha256sum | cut -c 1-40)
    [ -e "$stamp" ] && return 0
    if said=$(clang-tidy --quiet -p "$TIDY_BUILD" "$1" 2>&1); then
        touch "$stamp"
    else
        echo "$said" | grep -v 'warnings\? generated'
        return 1
    fi
}

case $check in
format)
    sources "Sources Tests Benchmarks" '*.h' '*.cpp' '*.c' | xargs -0 -r clang-format --dry-run -Werror
    ;;
tidy)
    TIDY_BUILD=$build
    TIDY_STAMPS=$build/tidy-passed
    TIDY_COMMON=$({ sources Sources '*.h'; printf '.clang-tidy\0'; } | xargs -0 sha256sum | sha256sum)
    mkdir -p "$TIDY_STAMPS"
    export TIDY_BUILD TIDY_STAMPS TIDY_COMMON
    sources Sources '*.cpp' | xargs -0 -r -n 1 -P "$jobs" "$0" tidy-one
    ;;
tidy-one) tidy_one "$2" ;;
qml)
    sources "Sources Tests" '*.qml' | xargs -0 -r /usr/lib/qt6/bin/qmllint -I "$build/qml"
    ;;
*)
    echo "lint: no check named $check" >&2
    exit 64
    ;;
esac

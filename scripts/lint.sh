#!/bin/sh
# lint.sh [format|headers|qml|texts|faults|tidy…]: runs the named checks of the sources, or all of
# them. Fails with a message if one does not pass.
set -euf
cd "$(dirname "$0")/.."

[ $# -gt 0 ] || set -- format headers qml texts faults tidy
echo "lint: $*; clang-tidy takes about 6 minutes on 2 cores the first time."
scripts/setup.sh Building Running Checking
scripts/build.sh default

for check; do
    echo "lint: $check"
    case $check in
    format) git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror ;;
    headers) cmake --build build --target all_verify_interface_header_sets ;;
    qml) git ls-files -z '*.qml' | xargs -0 /usr/lib/qt6/bin/qmllint -I build/qml ;;
    texts) scripts/translate.sh check ;;
    faults) # every test named in the table exists
        sed -n 's/^|.*| \(.*\) |$/\1/p' docs/faults.md | grep -o '[[:alnum:]_]\+`' | tr -d '`' |
            while read -r name; do git grep -qw "$name" Tests || { echo "lint: no test $name"; exit 1; }; done
        ;;
    tidy) /usr/bin/python3 -B scripts/tidy.py build ;;
    *)
        echo "lint: no check named $check" >&2
        exit 64
        ;;
    esac
done

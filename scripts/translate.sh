#!/bin/sh
# translate.sh [check]: brings the texts of the sources into Resources/Translations; translate what
# is marked as unfinished there. English has only its plurals there. "check" changes nothing, and
# fails if a text is missing or unfinished.
set -eu
cd "$(dirname "$0")/.."

texts=Resources/Translations
if [ "${1-}" = check ]; then
    texts=$(mktemp -d)
    trap 'rm -r "$texts"' EXIT
    cp Resources/Translations/* "$texts"
fi
for file in "$texts"/*; do
    case $file in *_en.ts) plurals=-pluralonly ;; *) plurals= ;; esac
    /usr/lib/qt6/bin/lupdate -silent -locations none -no-obsolete $plurals Sources -ts "$file"
done
if [ "${1-}" = check ] && grep -B 2 'type="unfinished"' "$texts"/*; then
    echo "translate: run scripts/translate.sh and translate the texts above" >&2
    exit 1
fi

#!/bin/sh
# setup.sh [SECTION…]: installs the Debian packages of packages.txt that are missing, of these of its
# sections only (Building, Running, Checking, Testing, Measuring), or of all. Quick when none is.
set -eu
cd "$(dirname "$0")/.."

wanted=$(awk -v sections=" $* " '
    /^# (Build|Runn|Check|Test|Measur)ing/ { name = $2; sub(/:/, "", name); on = index(sections, " " name " ") }
    /^[^#]/ && (on || sections == "  ")' scripts/packages.txt)
if ! command -v dpkg-query >/dev/null; then
    echo "setup: this is not a Debian system. Install what corresponds to these packages:" >&2
    echo "$wanted" >&2
    exit 1
fi

# Prints the packages that are not installed.
missing() {
    names=$(for name in $wanted; do
        case $name in
        *"|"*) # new|old: the old name where apt does not know the new one
            new=${name%|*}
            apt-cache show "$new" >/dev/null 2>&1 && echo "$new" || echo "${name#*|}"
            ;;
        *) echo "$name" ;;
        esac
    done)
    # shellcheck disable=SC2086 # one word a package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $names 2>/dev/null |
        sed -n 's/^installed //p' || true)
    echo "$names" | grep -vxF "$installed" | tr '\n' ' ' || true
}

packages=$(missing)
[ -n "$packages" ] || exit 0

install="apt-get install -y --no-install-recommends"
if [ "$(id -u)" -eq 0 ]; then
    as_root=
elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
    as_root=sudo
else
    echo "setup: packages are missing, and installing them needs root rights. Run as root:" >&2
    echo "apt-get update && $install $packages" >&2
    exit 1
fi

$as_root apt-get update -q
packages=$(missing) # apt may know other names now
echo "setup: installing $packages"
# shellcheck disable=SC2086 # one word a package
$as_root env DEBIAN_FRONTEND=noninteractive $install $packages </dev/null

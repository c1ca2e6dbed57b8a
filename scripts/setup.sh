#!/bin/sh
# setup.sh [SECTION…]: installs the missing packages of packages.txt, in all or the named sections
# (Building, Running, Checking, Packaging, Testing, Measuring). Quick if none is missing.
set -eu
cd "$(dirname "$0")/.."

release=99 # testing and unstable have no release number
if [ -r /etc/os-release ]; then
    release=$(. /etc/os-release && echo "${VERSION_ID:-99}")
fi
wanted=$(awk -v sections=" $* " -v release="${release%%.*}" '
    /^# (Build|Runn|Check|Packag|Test|Measur)ing/ { name = $2; sub(/:/, "", name); on = index(sections, " " name " ") }
    /^[^#]/ && (on || sections == "  ") { split($0, names, "|"); print names[2] && release < 13 ? names[2] : names[1] }
    ' scripts/packages.txt | grep .)
if ! command -v dpkg-query >/dev/null; then
    echo "setup: this is not a Debian system. Install the equivalents of these packages:" >&2
    echo "$wanted" >&2
    exit 1
fi

# shellcheck disable=SC2086 # one word per package
installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
    sed -n 's/^installed //p' || true)
missing=$(echo "$wanted" | grep -vxF "$installed" | tr '\n' ' ' || true)
[ -n "$missing" ] || exit 0

install="apt-get install -y --no-install-recommends $missing"
if [ "$(id -u)" -eq 0 ]; then
    as_root=
elif command -v sudo >/dev/null && { sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; }; }; then
    as_root=sudo
else
    echo "setup: packages are missing, and installing them needs root. Run as root:" >&2
    echo "apt-get update && $install" >&2
    exit 1
fi

echo "setup: installing $missing"
$as_root apt-get update -q || echo "setup: apt-get update failed; using the existing package lists" >&2
# shellcheck disable=SC2086 # as above
$as_root env DEBIAN_FRONTEND=noninteractive $install </dev/null

#!/bin/sh
# try-package.sh PACKAGE: installs the Debian package into a new, minimal root of this machine's
# release of Debian, starts it there, directly and as a menu does, with pictures in out/, and purges
# it. Fails if that leaves a file. Run it as root; it takes about 2 minutes.
set -eu

package=$(realpath "$1")
pictures=$(dirname "$package")
self=$(realpath "$0")
here=$(dirname "$self")

if [ $# -eq 1 ]; then
    root=$(mktemp -d -p /var/tmp perchly-root-XXXXXX)
    trap 'rm -rf "$root"' EXIT
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mirror=$(apt-get indextargets --format '$(CODENAME) $(REPO_URI)' 'Created-By: Packages' |
        sed -n "s/^$release //p" | head -n 1)
    echo "try-package: making a root of $release in $root"
    debootstrap --variant=minbase "$release" "$root" "$mirror" >"$root.log" || { cat "$root.log"; exit 1; }
    rm "$root.log"
    # Its mounts end with this namespace, before the root is removed.
    unshare --mount "$self" "$package" "$root"
    exit
fi

root=$2
for folder in proc dev tmp; do # sessions keep their display, bus and home folder in /tmp
    mount --bind "/$folder" "$root/$folder"
done

in_root() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

apt() {
    in_root apt-get -qq -y --no-install-recommends "$@" </dev/null >"$root/var/log/apt.out" 2>&1 ||
        { cat "$root/var/log/apt.out"; exit 1; }
}

files() {
    (cd "$root" && find . \( -path ./proc -o -path ./dev -o -path ./run -o -path ./tmp -o -path ./var/cache \
        -o -path ./var/log -o -path ./var/lib/apt -o -path ./var/lib/dpkg \) -prune -o -print | sort)
}

start() { # start NAME COMMAND…
    name=$1
    shift
    printf '#!/bin/sh\nexec chroot "%s" %s\n' "$root" "$*" >"$pictures/$name"
    chmod +x "$pictures/$name"
    /usr/bin/python3 -B "$here/installed.py" "$pictures/$name" "$pictures/$name.png"
}

cp "$package" "$root/var/cache/perchly.deb"
apt update
# What any desktop has: systemd, which leaves files when purged, a session bus, and a program that
# starts a desktop entry.
apt install systemd-sysv dbus-user-session libglib2.0-bin
files >"$root/var/log/before"
echo "try-package: installing it, without and with what it recommends, takes:"
for recommends in false true; do
    in_root apt-get install --assume-no -o APT::Install-Recommends=$recommends \
        /var/cache/perchly.deb 2>&1 </dev/null | grep -E '^(Need|After)' || true
done
apt install /var/cache/perchly.deb
start directly perchly
start from-menu "dbus-run-session -- sh -c 'gio launch $(in_root sh -c \
    'dpkg -L perchly | grep /applications/.*desktop') && sleep 60'"
# Without what only packages of the root recommend.
apt purge --auto-remove -o APT::AutoRemove::RecommendsImportant=false \
    -o APT::AutoRemove::SuggestsImportant=false perchly
left=$(files | grep -vxFf "$root/var/log/before" || true)
if [ -n "$left" ]; then
    echo "try-package: purging leaves these files:" >&2
    echo "$left" | head -n 30 >&2
    exit 1
fi
echo "try-package: purging leaves nothing"

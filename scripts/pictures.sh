#!/bin/sh
# Takes every picture in docs/ again with the program that scripts/run.sh has built. The
# applications on the shelf are real packages, unpacked into a temporary folder, not installed.
set -eu
cd "$(dirname "$0")/.."

applications=$(mktemp -d)
trap 'rm -rf "$applications"' EXIT
(
    cd "$applications"
    # because apt's own user may not write here
    apt-get download -q -o APT::Sandbox::User=root firefox-esr thunderbird libreoffice-common \
        libreoffice-writer libreoffice-calc inkscape audacity audacity-data
    for package in *.deb; do
        dpkg-deb -x "$package" .
    done
)

PATH=$PATH:$applications/usr/bin
XDG_DATA_DIRS=$applications/usr/share:/usr/local/share:/usr/share
export PATH XDG_DATA_DIRS
/usr/bin/python3 -B scripts/scene.py build/Sources/Perchly/Shell/perchly docs

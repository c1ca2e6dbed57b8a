#!/bin/sh
# Makes a Debian package of Perchly for this machine's release of Debian in out/package, and checks it.
# package.sh --try also tries it with scripts/try-package.sh; as root.
set -eu
cd "$(dirname "$0")/.."

scripts/setup.sh Building Running Packaging
scripts/build.sh default perchly

folder=$PWD/out/package
rm -rf "$folder"
mkdir -p "$folder"
(cd build && cpack -B "$folder") >"$folder/log" 2>&1 || { cat "$folder/log"; exit 1; }
rm -r "$folder/_CPack_Packages"
package=$(echo "$folder"/*.deb)
dpkg-deb --extract "$package" "$folder/content"
share=$folder/content/usr/share
desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate --no-net "$share"/metainfo/*.xml
lintian --allow-root --fail-on error --display-info "$package"
echo "package: $package, $(($(stat -c %s "$package") / 1024)) KiB"

if [ "${1:-}" = --try ]; then
    scripts/setup.sh Testing
    scripts/try-package.sh "$package"
fi

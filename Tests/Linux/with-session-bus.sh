#!/bin/sh
# Runs a command with its own session bus and home folder, and removes them afterwards. The bus
# starts no services, so that the user's desktop is not touched.
set -eu

folder=$(mktemp -d "${TMPDIR:-/tmp}/perchly-test.XXXXXX")
bus=
cleanup() {
    [ -z "$bus" ] || kill "$bus" 2>/dev/null || true
    rm -rf "$folder"
}
trap cleanup EXIT
trap 'exit 143' HUP INT TERM

for name in home config data state runtime cache; do
    mkdir -m 700 "$folder/$name"
done
export HOME="$folder/home" XDG_CONFIG_HOME="$folder/config" XDG_DATA_HOME="$folder/data"
export XDG_STATE_HOME="$folder/state" XDG_CACHE_HOME="$folder/cache"
export XDG_RUNTIME_DIR="$folder/runtime" TMPDIR="$folder"

cat >"$folder/bus.conf" <<CONF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=$folder/bus</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
CONF

mkfifo "$folder/ready"
dbus-daemon --config-file="$folder/bus.conf" --nofork --print-address=3 \
    3>"$folder/ready" 2>"$folder/bus.log" &
bus=$!
read -r DBUS_SESSION_BUS_ADDRESS <"$folder/ready"
export DBUS_SESSION_BUS_ADDRESS PERCHLY_TEST_BUS_PID="$bus"

"$@"

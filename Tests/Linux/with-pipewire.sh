#!/bin/bash
# Runs a command with its own sound system: PipeWire with two silent outputs, "first" (the default)
# and "second", a session manager and a PulseAudio server, on a separate bus and in separate
# folders. The command may stop and start them:
# "$PERCHLY_TEST_SOUND" stop|start|wait
set -euo pipefail

if [ -z "${PERCHLY_TEST_SOUND:-}" ]; then
    PERCHLY_TEST_SOUND=$(realpath "$0")
    export PERCHLY_TEST_SOUND
    exec "$(dirname "$PERCHLY_TEST_SOUND")/with-session-bus.sh" "$PERCHLY_TEST_SOUND" run "$@"
fi

folder=$(dirname "$XDG_RUNTIME_DIR")/sound

stop() {
    for name in pipewire-pulse wireplumber pipewire; do
        if [ -s "$folder/$name.pid" ]; then
            kill -9 "$(cat "$folder/$name.pid")" 2>/dev/null || true
            rm "$folder/$name.pid"
        fi
    done
    rm -f "$XDG_RUNTIME_DIR/pipewire-0" "$XDG_RUNTIME_DIR/pulse/native"
}

launch() {
    "$1" >>"$folder/$1.log" 2>&1 </dev/null &
    echo $! >"$folder/$1.pid"
    disown
}

# Retries for ten seconds.
eventually() {
    for _ in $(seq 200); do
        "$@" && return 0
        sleep 0.05
    done
    echo "with-pipewire: the sound system did not start" >&2
    cat "$folder"/*.log >&2
    exit 1
}

start() {
    launch pipewire
    eventually test -S "$XDG_RUNTIME_DIR/pipewire-0"
    launch wireplumber
    launch pipewire-pulse
}

is_ready() {
    pw-metadata -n default 0 default.audio.sink 2>/dev/null | grep -q '"first"' &&
        pactl info >/dev/null 2>&1
}

case $1 in
stop) stop ;;
start) start ;;
wait) eventually is_ready ;;
run)
    shift
    mkdir -p "$folder" "$XDG_CONFIG_HOME/pipewire/pipewire.conf.d"
    cat >"$XDG_CONFIG_HOME/pipewire/pipewire.conf.d/outputs.conf" <<'CONF'
context.objects = [
    { factory = adapter args = {
        factory.name = support.null-audio-sink node.name = first media.class = Audio/Sink
        audio.position = [ FL FR ] monitor.channel-volumes = true priority.session = 2000
        object.linger = true } }
    { factory = adapter args = {
        factory.name = support.null-audio-sink node.name = second media.class = Audio/Sink
        audio.position = [ FL FR ] monitor.channel-volumes = true priority.session = 1000
        object.linger = true } }
]
CONF
    trap stop EXIT
    trap 'exit 143' HUP INT TERM
    start
    eventually is_ready
    "$@"
    ;;
*)
    echo "with-pipewire: no command $1" >&2
    exit 64
    ;;
esac

#!/usr/bin/python3
"""Measures one program's sound on its way through Perchly, beside pw-loopback, on a sound system of its own.

Compare figures of one run only. Usage: audio.py FOLDER [--seconds N] [--underruns N] with the folder of
RouteBenchmark and RouteProbe; --underruns is the length of the last part in seconds, 600 by default.
"""

import argparse
import json
import os
import subprocess
import sys
import time
from pathlib import Path

from processes import cpu_seconds, proportional_megabytes

WRAPPER = Path(__file__).resolve().parent.parent / "Tests" / "Linux" / "with-pipewire.sh"
LOOPBACK = [
    "pw-loopback",
    "--capture-props=media.class=Audio/Sink node.name=loop",
    "--playback-props=node.passive=true",
]


class Partner:
    """A process that is told things by lines and ends with its standard input."""

    def __init__(self, command, ready=False):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.pid = self.process.pid
        if ready:
            self.process.stdout.readline()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        try:
            self.process.wait(3)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def ask(self):
        """Delay, breaks and frames since the last time."""
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        return [int(number) for number in self.process.stdout.readline().split()]


def measured(probe, seconds):
    time.sleep(0.5)
    probe.ask()
    time.sleep(seconds)
    return probe.ask()


def set_quantum(frames):
    subprocess.run(
        ["pw-metadata", "-n", "settings", "0", "clock.force-quantum", str(frames)],
        stdout=subprocess.DEVNULL, check=True,
    )


def latency(probe_program, route_program):
    for quantum in (64, 256, 1024):
        set_quantum(quantum)
        with Partner([probe_program]) as probe:
            time.sleep(1)
            direct = measured(probe, 2)[0]
            with Partner([route_program, "route", str(probe.pid)], ready=True):
                routed = measured(probe, 2)[0]
        print(f"quantum {quantum}: {routed - direct} frames added ({direct} direct, {routed} routed)")


def send_probe(sink):
    """To that sink, or to the default output."""
    objects = json.loads(subprocess.check_output(["pw-dump"]))
    node = next(
        each["id"] for each in objects
        if each["type"].endswith(":Node") and each["info"]["props"].get("node.name") == "probe"
    )
    change = ["-d", str(node), "target.object"] if sink is None else [str(node), "target.object", sink, "Spa:String"]
    subprocess.run(["pw-metadata", "-n", "default", *change], stdout=subprocess.DEVNULL, check=True)


def handovers(probe_program, route_program, rounds=30):
    """Breaks as a program is routed and let go, and as the session manager alone moves it to and fro."""
    set_quantum(1024)
    with Partner(LOOPBACK), Partner([probe_program]) as probe:
        time.sleep(1)
        probe.ask()
        for _ in range(rounds):
            send_probe("loop")
            time.sleep(1)
            send_probe(None)
            time.sleep(1)
        print(f"{rounds} times sent to pw-loopback and back: {probe.ask()[1]} breaks")
    with Partner([probe_program]) as probe:
        time.sleep(1)
        probe.ask()
        subprocess.run([route_program, "rounds", str(probe.pid), str(rounds)], check=True)
        print(f"{rounds} times routed and let go: {probe.ask()[1]} breaks")


def cost(name, pid, seconds):
    memory = proportional_megabytes(pid)
    start = cpu_seconds(pid)
    time.sleep(seconds)
    minute = (cpu_seconds(pid) - start) * 60 / seconds
    print(f"{name}: {minute:.3f} CPU s a minute, {memory:.1f} MB")


def costs(probe_program, route_program, seconds):
    set_quantum(1024)
    with Partner([probe_program]) as probe:
        time.sleep(1)
        with Partner([route_program, "idle"], ready=True) as idle:
            cost("following the sound system", idle.pid, seconds)
        with Partner([route_program, "route", str(probe.pid)], ready=True) as route:
            cost("the same and one route", route.pid, seconds)
    with Partner(LOOPBACK) as loopback:
        time.sleep(0.5)
        environment = dict(os.environ, PIPEWIRE_NODE="loop")
        player = subprocess.Popen([probe_program], stdin=subprocess.PIPE, env=environment)
        time.sleep(2)
        cost("pw-loopback", loopback.pid, seconds)
        player.stdin.close()
        player.wait()


def refresh(probe_program, route_program):
    players = [Partner([probe_program]) for _ in range(50)]
    time.sleep(4)
    subprocess.run([route_program, "list", "2000"], check=True)
    for player in players:
        player.process.kill()
        player.process.wait()
    time.sleep(1)


def underruns(probe_program, route_program, seconds):
    set_quantum(256)
    busy = subprocess.Popen(["sh", "-c", "while :; do :; done"])
    try:
        with Partner([probe_program]) as probe:
            time.sleep(1)
            _, breaks, frames = measured(probe, seconds / 10)
            print(f"direct, one core busy: {breaks} breaks in {frames / 48000:.0f} s")
            with Partner([route_program, "route", str(probe.pid)], ready=True):
                _, breaks, frames = measured(probe, seconds)
                print(f"routed, one core busy: {breaks} breaks in {frames / 48000:.0f} s")
    finally:
        busy.kill()
        busy.wait()


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("folder")
    arguments.add_argument("--seconds", type=float, default=30)
    arguments.add_argument("--underruns", type=float, default=600)
    options = arguments.parse_args()
    if "PERCHLY_TEST_SOUND" not in os.environ:
        os.execv(WRAPPER, [str(WRAPPER), sys.executable, *sys.argv])
    os.environ["PIPEWIRE_CONFIG_NAME"] = "client-rt.conf"  # everybody's audio threads are real-time ones
    folder = Path(options.folder).resolve()
    programs = (str(folder / "RouteProbe"), str(folder / "RouteBenchmark"))
    latency(*programs)
    handovers(*programs)
    costs(*programs, options.seconds)
    refresh(*programs)
    underruns(*programs, options.underruns)


if __name__ == "__main__":
    main()

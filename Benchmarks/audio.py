#!/usr/bin/python3
"""Measures one program's sound through Perchly and through pw-loopback, on a separate sound system.

Compare figures of one run only. Usage: audio.py FOLDER [--seconds N] [--underruns N] with the folder of
RouteBenchmark and RouteProbe; --underruns is how many seconds each way is measured in the last part, 600 by
default; --only names the parts to run.
"""

import argparse
import json
import os
import subprocess
import sys
import time
from contextlib import ExitStack, contextmanager
from pathlib import Path

from processes import cpu_seconds, proportional_megabytes

WRAPPER = Path(__file__).resolve().parent.parent / "Tests" / "Linux" / "with-pipewire.sh"
STALLS = Path(__file__).resolve().parent / "stalls.py"
LOOPBACK = [
    "pw-loopback",
    "--capture-props=media.class=Audio/Sink node.name=loop",
    "--playback-props=node.passive=true",
]
# Ends with its parent, even if the benchmark is interrupted.
BUSY_LOOP = "import os\nparent = os.getppid()\nwhile os.getppid() == parent: pass"


class Partner:
    """A process that answers lines on stdin and ends when stdin closes."""

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
        """Returns the numbers of its answer. A probe: delay, breaks and frames since the last call."""
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        return [float(number) for number in self.process.stdout.readline().split()]


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
        print(f"quantum {quantum}: {routed - direct:.0f} frames added ({direct:.0f} direct, {routed:.0f} routed)")


def send_probe(sink):
    """Sends the probe to the sink, or to the default output if it is None."""
    objects = json.loads(subprocess.check_output(["pw-dump"]))
    node = next(
        each["id"] for each in objects
        if each["type"].endswith(":Node") and each["info"]["props"].get("node.name") == "probe"
    )
    change = ["-d", str(node), "target.object"] if sink is None else [str(node), "target.object", sink, "Spa:String"]
    subprocess.run(["pw-metadata", "-n", "default", *change], stdout=subprocess.DEVNULL, check=True)


def handovers(probe_program, route_program, rounds=30):
    """Counts breaks while a program is routed and released, and while only the session manager moves it."""
    set_quantum(1024)
    with Partner(LOOPBACK), Partner([probe_program]) as probe:
        time.sleep(1)
        probe.ask()
        for _ in range(rounds):
            send_probe("loop")
            time.sleep(1)
            send_probe(None)
            time.sleep(1)
        print(f"{rounds} times sent to pw-loopback and back: {probe.ask()[1]:.0f} breaks")
    with Partner([probe_program]) as probe:
        time.sleep(1)
        probe.ask()
        subprocess.run([route_program, "rounds", str(probe.pid), str(rounds)], check=True)
        print(f"{rounds} times routed and let go: {probe.ask()[1]:.0f} breaks")


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


@contextmanager
def directly(_probe, _route_program):
    yield


@contextmanager
def through_loopback(_probe, _route_program):
    with Partner(LOOPBACK):
        time.sleep(1)
        send_probe("loop")
        yield
        send_probe(None)
        time.sleep(0.5)


@contextmanager
def through_route(probe, route_program):
    with Partner([route_program, "route", str(probe.pid)], ready=True):
        yield


def underruns(probe_program, route_program, seconds):
    """Counts breaks beside a busy loop, and those in a second in which every thread was late."""
    quantum = 256
    set_quantum(quantum)
    busy = subprocess.Popen([sys.executable, "-c", BUSY_LOOP])
    with ExitStack() as stack:
        stack.callback(lambda: (busy.kill(), busy.wait()))
        watches = [
            stack.enter_context(Partner([sys.executable, str(STALLS), str(processor)]))
            for processor in os.sched_getaffinity(0)
        ]
        for name, way in (("direct", directly), ("pw-loopback", through_loopback), ("routed", through_route)):
            breaks = []
            with Partner([probe_program]) as probe, way(probe, route_program):
                time.sleep(1.5)
                for partner in (probe, *watches):
                    partner.ask()
                for _ in range(round(seconds)):
                    time.sleep(1)
                    count = probe.ask()[1]
                    stall = max(watch.ask()[0] for watch in watches)
                    breaks += [stall] * int(count)
            late = sum(stall > 500 * quantum / 48000 for stall in breaks)
            print(
                f"{name}, one core busy: {len(breaks)} breaks in {seconds:.0f} s, "
                f"{late} of them while the machine stood still for half a cycle or more",
                flush=True,
            )


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("folder")
    arguments.add_argument("--seconds", type=float, default=30)
    arguments.add_argument("--only", nargs="*", metavar="PART")
    arguments.add_argument("--underruns", type=float, default=600)
    options = arguments.parse_args()
    if "PERCHLY_TEST_SOUND" not in os.environ:
        os.execv(WRAPPER, [str(WRAPPER), sys.executable, *sys.argv])
    os.environ["PIPEWIRE_CONFIG_NAME"] = "client-rt.conf"  # real-time audio threads for all clients
    folder = Path(options.folder).resolve()
    programs = (str(folder / "RouteProbe"), str(folder / "RouteBenchmark"))
    parts = {
        "latency": lambda: latency(*programs),
        "handovers": lambda: handovers(*programs),
        "costs": lambda: costs(*programs, options.seconds),
        "refresh": lambda: refresh(*programs),
        "underruns": lambda: underruns(*programs, options.underruns),
    }
    for name in options.only or parts:
        parts[name]()


if __name__ == "__main__":
    main()

#!/usr/bin/python3
"""Measures Perchly on sway and on X11 by turns, and Waybar on sway.

Compare figures of one run only: they come from the same machine under the same load.
Usage: wayland.py PROGRAM [--rounds N] [--seconds N], PROGRAM being in a build tree with WaylandProbe.
"""

import os
import re
import shutil
import statistics
import subprocess
import time
from contextlib import contextmanager
from pathlib import Path

from benchmark import by_pointer, one_start
from clipboard import Owner
from measuring import AWAY, SIZE, command_line, high, measured_session
from processes import cost_of_a_minute, proportional_megabytes

REFRESH_RATE = 1000  # so that the display's cycle adds at most 1 ms
DRIVERS = re.compile(r"lib(?:EGL_|GLX_|LLVM|gallium)[^/\s]*")  # Qt itself links libEGL.so.1
SETTLING_SECONDS = 10
COST_ROUNDS = 3


class Probe:
    """Sees the screen and copies on sway."""

    def __init__(self, session, program):
        pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE}
        self._process = session.spawn(str(program), **pipes)

    def ask(self, *words):
        self._process.stdin.write(" ".join(map(str, words)).encode() + b"\n")
        self._process.stdin.flush()
        return self._process.stdout.readline()

    def watch(self, rect):
        """Returns an object with the methods of Painting."""
        assert self.ask("watch", *rect) == b"ready\n"
        return self

    def wait(self, since):
        """Returns the milliseconds until the part looked different."""
        times = [int(time) / 1e6 - since * 1e3 for time in self._process.stdout.readline().split()]
        self.until_drawn, changed = times
        return changed

    def close(self):
        pass

    def copy(self, text):
        return int(self.ask("copy", text.decode())) / 1e6


@contextmanager
def sway_session(program, probe=None):
    with measured_session(program, window_manager="sway") as session:
        width, height = SIZE
        session.screen.tell(f"output HEADLESS-1 resolution {width}x{height}@{REFRESH_RATE}Hz")
        if probe:
            session.probe = Probe(session, probe)
        yield session


def by_turns(sessions, rounds, measure):
    """Returns each session's samples."""
    samples = [[] for _ in sessions]
    for _ in range(rounds):
        for session, own in zip(sessions, samples):
            own.append(measure(session))
    return samples


def opening(session):
    """With animation, the first frame of the open size still looks like the pill."""
    changed = by_pointer(session)
    return session.probe.until_drawn if session.is_wayland else changed


def copies(session, watcher, rounds):
    session.spawn(str(watcher))
    time.sleep(1)
    copier = session.probe if session.is_wayland else Owner(session.screen.name)
    return [copier.copy(b"copy-%d" % number) for number in range(rounds)]


def memory(program):
    return [proportional_megabytes(program.pid, kind) for kind in ("Pss:", "Rss:")]


class Cost:
    """Of a program that has just started, after it was given time to settle."""

    def __init__(self, session, seconds):
        program = session.run()
        time.sleep(SETTLING_SECONDS)
        self.closed = memory(program)
        self.closed_idle = cost_of_a_minute(program.pid, seconds)
        session.call(session.executable, "toggle")
        time.sleep(2)
        self.open = memory(program)
        self.open_idle = cost_of_a_minute(program.pid, seconds)
        maps = Path(f"/proc/{program.pid}/maps").read_text()
        self.drivers = sorted(set(DRIVERS.findall(maps)))
        program.stop()


def main():
    options = command_line(__doc__, "program", rounds=100, seconds=20)
    program = Path(options.program).resolve()
    build = program.parents[3]
    os.environ["PERCHLY_WAYLAND_HANDS"] = str(build / "Tests/Session/wayland_hands")
    probe = build / "Benchmarks/WaylandProbe"

    with measured_session(program) as x11, sway_session(program, probe) as sway:
        sessions = (x11, sway)
        for session in sessions:
            session.run().stop()  # the first start fills the caches
        compare("start to painted pill", by_turns(sessions, options.rounds, one_start))
        costs = by_turns(sessions, COST_ROUNDS, lambda session: Cost(session, options.seconds))
        programs = [session.run() for session in sessions]
        time.sleep(1)
        samples = by_turns(sessions, options.rounds, opening)
        compare("pointer on the pill to the first open frame", samples)
        for program in programs:
            program.stop()
        watcher = build / "Benchmarks/PasteboardWatcher"
        copied = [copies(session, watcher, options.rounds) for session in sessions]
        compare("copy to fetched", copied)
    report_costs(costs)
    measure_waybar(options.seconds)


def compare(name, samples):
    print(f"\n{name + ', ms':<50}{'median':>9}{'p99':>9}{'runs':>6}")
    for system, own in zip(("X11", "sway"), samples):
        print(f"{system:<50}{statistics.median(own):>9.2f}{high(own):>9.2f}{len(own):>6}")
    x11, sway = map(statistics.median, samples)
    print(f"{'sway / X11':<50}{sway / x11:>9.2f}", flush=True)


def report_costs(costs):
    print(f"\n{'medians (and ranges)':<34}{'X11':>24}{'sway':>24}")

    def row(name, value):
        cells = ""
        for own in costs:
            figures = sorted(value(cost) for cost in own)
            middle = statistics.median(figures)
            cells += f"{f'{middle:.3f} ({figures[0]:.3f}–{figures[-1]:.3f})':>24}"
        print(f"{name:<34}{cells}")

    row("closed, proportional MB", lambda cost: cost.closed[0])
    row("closed, resident MB", lambda cost: cost.closed[1])
    row("open, proportional MB", lambda cost: cost.open[0])
    row("open, resident MB", lambda cost: cost.open[1])
    row("idle closed, CPU s a minute", lambda cost: cost.closed_idle[0])
    row("idle closed, wake-ups a second", lambda cost: cost.closed_idle[1])
    row("idle open, CPU s a minute", lambda cost: cost.open_idle[0])
    row("idle open, wake-ups a second", lambda cost: cost.open_idle[1])
    for system, own in zip(("X11", "sway"), costs):
        print(f"OpenGL drivers mapped on {system}: {own[-1].drivers or 'none'}")


def measure_waybar(seconds):
    if not shutil.which("waybar"):
        print("Waybar is not installed (package waybar)")
        return
    with sway_session("waybar") as session:
        bar = session.run(wait=False)
        time.sleep(SETTLING_SECONDS)
        memory = proportional_megabytes(bar.pid)
        cpu, woken = cost_of_a_minute(bar.pid, seconds)
    print(f"Waybar: {memory:.1f} MB, {cpu:.3f} CPU s a minute, {woken:.2f} wake-ups a second")


if __name__ == "__main__":
    main()

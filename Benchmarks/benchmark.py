#!/usr/bin/python3
"""Measures Perchly, a dock and the machine's noise from outside, in separate X sessions.

Compare figures of one run only: they come from the same machine under the same load.
 Usage: benchmark.py PROGRAM [--rounds N] [--seconds N]
"""

import shutil
import statistics
import subprocess
import time
from pathlib import Path

from Xlib import X, XK
from Xlib.ext import xtest

from measuring import AWAY, HEIGHT, WIDTH, command_line, high, measured_session, watch
from painting import Painting
from perchly_session.waiting import wait_until
from processes import cost_of_a_minute, proportional_megabytes

PILL_CENTRE = (WIDTH // 2, 17)
PILL_STRIP = (WIDTH // 2 - 100, 4, 200, 26)
BELOW_PILL = (WIDTH // 2 - 100, 36, 200, 60)
TOGGLE = ("Control_L", "Alt_L", "space")


def main():
    options = command_line(__doc__, "program", rounds=100, seconds=60)
    program = Path(options.program).resolve()

    times = []
    costs = []
    times.append(("a small X client: start to painted (noise)", root_painted(options.rounds)))
    times.append(("start to pill painted", started(program, options.rounds)))
    with measured_session(program) as session:
        session.run()
        measure_opening(session, times, options.rounds)
    with measured_session(program) as session:
        measure_cost(session, session.run(), costs, options.seconds)
    if shutil.which("plank"):
        measure_dock(times, costs, options)
    report(times, costs)


# Starting


def root_painted(rounds):
    """Measures the start of a minimal client in the same way."""
    samples = []
    with measured_session(None) as session:
        for number in range(rounds):
            colour = f"#{number % 200 + 20:02x}4060"
            painting = Painting(session.screen, PILL_STRIP)
            start = time.perf_counter()
            client = subprocess.Popen(["xsetroot", "-solid", colour], env=session.environment)
            samples.append(painting.wait(start))
            client.wait()
            painting.close()
    return samples


def started(program, rounds):
    with measured_session(program) as session:
        session.run().stop()  # the first start fills the caches
        return [one_start(session) for _ in range(min(rounds, 40))]


def one_start(session):
    wait_until(lambda: not session.programs[-1].panel(), "the shelf gone")
    time.sleep(0.05)
    painting = watch(session, PILL_STRIP)
    start = time.perf_counter()
    running = session.run(wait=False)
    taken = painting.wait(start)
    painting.close()
    wait_until(running.panel, "the shelf")
    running.stop()
    return taken


# Opening


def measure_opening(session, times, rounds):
    time.sleep(1)
    samples = [by_pointer(session) for _ in range(rounds)]
    times.append(("pointer onto the pill to the first open frame", samples))
    times.append(("hot key to the first open frame", by_hot_key(session, rounds)))


def closed(session):
    program = session.programs[-1]
    wait_until(lambda: program.frame() and program.frame()[3] == 34, "the shelf closed")
    wait_until(program.rests, "the program at rest", interval=0)


def by_pointer(session):
    screen = session.screen
    screen.move_to(*AWAY, step=200)
    closed(session)
    x, y = screen.pointer()
    painting = watch(session, BELOW_PILL)
    start = time.perf_counter()
    screen.move_by(PILL_CENTRE[0] - x, PILL_CENTRE[1] - y)
    taken = painting.wait(start)
    painting.close()
    return taken


def by_hot_key(session, rounds):
    samples = []
    screen = session.screen
    screen.move_to(*AWAY, step=200)
    for _ in range(rounds):
        closed(session)
        codes = [screen.display.keysym_to_keycode(XK.string_to_keysym(key)) for key in TOGGLE]
        painting = Painting(screen, BELOW_PILL)
        for code in codes[:-1]:
            xtest.fake_input(screen.display, X.KeyPress, code)
        screen.display.sync()
        start = time.perf_counter()
        xtest.fake_input(screen.display, X.KeyPress, codes[-1])
        screen.display.flush()
        samples.append(painting.wait(start))
        painting.close()
        for code in reversed(codes):
            xtest.fake_input(screen.display, X.KeyRelease, code)
        screen.display.sync()
        time.sleep(0.05)
        screen.key(*TOGGLE)
    return samples


# Cost


def moving_pointer(screen):
    """Moves the pointer at 1,000 events per second, away from the shelf."""
    state = {"next": time.monotonic(), "step": 1}

    def move():
        for _ in range(10):
            xtest.fake_input(screen.display, X.MotionNotify, detail=1, x=state["step"], y=0)
            state["step"] = -state["step"]
        screen.display.flush()
        state["next"] += 0.01
        time.sleep(max(0, state["next"] - time.monotonic()))

    return move


def measure_cost(session, program, costs, seconds):
    pid = program.pid
    time.sleep(10)
    costs.append(("memory after 10 s", f"{proportional_megabytes(pid):.1f} MB proportional"))

    def add(name, meanwhile=None):
        cpu, woken = cost_of_a_minute(pid, seconds, meanwhile)
        costs.append((name, f"{cpu:.3f} CPU s a minute, {woken:.2f} wake-ups a second"))

    add("closed, pointer at rest")
    add("closed, pointer moving elsewhere", moving_pointer(session.screen))
    session.screen.key(*TOGGLE)
    time.sleep(2)
    costs.append(("memory while open", f"{proportional_megabytes(pid):.1f} MB proportional"))
    add("open, pointer at rest")
    add("open, pointer moving elsewhere", moving_pointer(session.screen))


# The dock beside it


def measure_dock(times, costs, options):
    with measured_session("plank") as session:
        session.start_compositor()
        starts = []
        dock = None
        for _ in range(min(options.rounds, 20)):
            if dock:
                dock.stop()
                time.sleep(0.3)
            painting = Painting(session.screen, (WIDTH // 2 - 20, HEIGHT - 40, 40, 38))
            start = time.perf_counter()
            dock = session.run(wait=False)
            starts.append(painting.wait(start))
            painting.close()
        times.append(("plank: start to painted", starts))
        time.sleep(10)
        memory = proportional_megabytes(dock.pid)
        costs.append(("plank: memory after 10 s", f"{memory:.1f} MB proportional"))
        cpu, woken = cost_of_a_minute(dock.pid, options.seconds)
        costs.append(
            ("plank: pointer at rest", f"{cpu:.3f} CPU s a minute, {woken:.2f} wake-ups a second")
        )


# Report


def report(times, costs):
    print(f"\n{'milliseconds':<50}{'median':>9}{'p99':>9}{'runs':>6}")
    for name, samples in times:
        print(f"{name:<50}{statistics.median(samples):>9.1f}{high(samples):>9.1f}{len(samples):>6}")
    print()
    for name, cost in costs:
        print(f"{name:<50}{cost}")


if __name__ == "__main__":
    main()

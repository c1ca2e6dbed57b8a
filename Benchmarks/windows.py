#!/usr/bin/python3
"""Measures the program's windows from outside: from the request or key to the painted window.

Each of several runs opens a window for the first time; one run opens it repeatedly. In the settings, keys
are typed into the search over 10,000 applications. A message on the session bus opens the windows, as a
second start does.
Usage: windows.py PROGRAM [--rounds N]
"""

import argparse
import statistics
import time
from pathlib import Path

from gi.repository import Gio, GLib

from measuring import high, install_applications, measured_session
from painting import Painting, keys_to_paint
from perchly_session.waiting import wait_until
from processes import cost_of_a_minute, proportional_megabytes

WINDOWS = {
    "settings": "Perchly Settings",
    "workspace": "Perchly Workspace",
    "mixer": "Perchly Volume Mixer",
}
MIDDLE = (500, 250, 280, 300)  # inside each of the windows
ROWS = (340, 330, 500, 200)  # the list of applications
APPLICATIONS = 10000
SEARCH = ("1", "2", "3", "BackSpace", "BackSpace", "BackSpace")


class Opener:
    """Asks the running program to show a window."""

    def __init__(self, session):
        self._bus = Gio.DBusConnection.new_for_address_sync(
            session.bus_address,
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None,
            None,
        )

    def open(self, action):
        self._bus.call(
            "org.perchly.Perchly",
            "/org/perchly/Perchly",
            "org.freedesktop.Application",
            "ActivateAction",
            GLib.Variant("(sava{sv})", (action, [], {})),
            None,
            Gio.DBusCallFlags.NONE,
            -1,
            None,
            None,
        )
        self._bus.flush_sync(None)


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("program")
    arguments.add_argument("--rounds", type=int, default=20)
    options = arguments.parse_args()
    with measured_session(Path(options.program).resolve()) as session:
        install_applications(session, APPLICATIONS)
        times = {}
        for action in WINDOWS:
            first, again = measure_opening(session, action, options.rounds)
            times[f"{action}: first opening"] = first
            times[f"{action}: later openings"] = again
        report(times)
        search, costs = measure_search(session, options.rounds)
        report({f"a key in the search of {APPLICATIONS} applications": search})
        print("\n".join(costs))


def opened(session, opener, action):
    painting = Painting(session.screen, MIDDLE)
    start = time.perf_counter()
    opener.open(action)
    taken = painting.wait(start)
    painting.close()
    return taken


def close(session, program, action):
    window = wait_until(lambda: program.window(WINDOWS[action]), WINDOWS[action])
    session.screen.close_window(window.id)
    wait_until(lambda: not program.window(WINDOWS[action]), "the window closed")
    time.sleep(0.2)


def measure_opening(session, action, rounds):
    first, again = [], []
    for number in range(rounds):
        program = session.run()
        opener = Opener(session)
        time.sleep(1)
        first.append(opened(session, opener, action))
        if number == rounds - 1:
            for _ in range(2 * rounds):
                close(session, program, action)
                again.append(opened(session, opener, action))
        program.stop()
    return first, again


def rows_shown(screen):
    """Whether the list shows anything but the window's background."""
    return len(set(screen.screenshot(ROWS).getdata())) > 20


def measure_search(session, rounds):
    program = session.run()
    screen = session.screen
    before = proportional_megabytes(program.pid)
    Opener(session).open("settings")
    wait_until(lambda: screen.focus() == getattr(program.window(WINDOWS["settings"]), "id", 1), "it")
    for key in ("Right", "Tab"):
        wait_until(program.rests, "the program at rest", timeout=60)
        screen.key(key)
    wait_until(lambda: rows_shown(screen), "the list", timeout=60, interval=0.5)
    samples = keys_to_paint(screen, ROWS, SEARCH, rounds)
    memory = proportional_megabytes(program.pid)
    screen.key("Tab")  # so that no caret blinks
    time.sleep(2)
    cpu, woken = cost_of_a_minute(program.pid, 20)
    program.stop()
    return samples, [
        f"memory: {before:.1f} MB before, {memory:.1f} MB with the settings and the list open",
        f"settings open, at rest: {cpu:.3f} CPU s a minute, {woken:.2f} wake-ups a second",
    ]


def report(times):
    print(f"\n{'milliseconds':<50}{'median':>9}{'p99':>9}{'worst':>9}{'runs':>6}")
    for name, samples in times.items():
        median, worst = statistics.median(samples), max(samples)
        print(f"{name:<50}{median:>9.1f}{high(samples):>9.1f}{worst:>9.1f}{len(samples):>6}")


if __name__ == "__main__":
    main()

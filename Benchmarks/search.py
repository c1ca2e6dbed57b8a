#!/usr/bin/python3
"""Measures the workspace search from outside: from a key to the painted rows.

Perchly searches 2,000 applications, 30 clips, 200 snippets and 500 held links; rofi searches the same
applications in the same session. PERCHLY_DRAG_PARTNER is the path of the tests' drag program.
Usage: search.py PROGRAM [--rounds N]
"""

import argparse
import json
import statistics
import subprocess
import time
import uuid
from pathlib import Path

from measuring import high, install_applications, measured_session
from painting import keys_to_paint
from perchly_session.other_programs import DragPartner, copy
from perchly_session.waiting import wait_until

TITLE = "Perchly Workspace"
OPEN = ("Control_L", "Alt_L", "k")
ROWS = (340, 330, 500, 150)  # inside both programs' lists
KEYS = ("1", "2", "3", "BackSpace", "BackSpace", "BackSpace")
APPLICATIONS, COPIES, SNIPPETS, LINKS = 2000, 30, 200, 500
SEARCH, FILES, CLIPBOARD = range(3)  # indices in the section picker


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("program")
    arguments.add_argument("--rounds", type=int, default=30)
    options = arguments.parse_args()
    with measured_session(Path(options.program).resolve(), window_manager="openbox") as session:
        install(session)
        times = {"Perchly": measure_perchly(session, options.rounds)}
        times["rofi"] = measure_rofi(session, options.rounds)
    print(f"{'a key to its painted rows, milliseconds':<44}{'median':>9}{'p99':>9}{'keys':>6}")
    for name, samples in times.items():
        print(f"{name:<44}{statistics.median(samples):>9.1f}{high(samples):>9.1f}{len(samples):>6}")


def install(session):
    install_applications(session, APPLICATIONS)
    snippets = [
        {"id": str(uuid.uuid4()).upper(), "text": f"Snippet {number} of a few words"}
        for number in range(SNIPPETS)
    ]
    session.store(
        persistSnippets=True, pinnedSnippets={"encoding": "utf-8", "data": json.dumps(snippets)}
    )


def measure_perchly(session, rounds):
    program, screen = session.run(), session.screen
    screen.key(*OPEN)
    window = wait_until(lambda: program.window(TITLE), TITLE)
    wait_until(lambda: screen.focus() == window.id, "the window with the keyboard")
    choose(screen, FILES)
    links = [f"https://example.org/{number}" for number in range(LINKS)]
    source = DragPartner(session, *links)
    x, y, width, height = program.window(TITLE).rect
    middle = (x + width // 2, y + height // 2 + 60)
    assert source.drag_to((middle[0] - 10, middle[1]), middle) == "copy"
    source.close()
    screen.activate(window.id)
    wait_until(lambda: screen.focus() == window.id, "the keyboard back")
    choose(screen, CLIPBOARD)
    for key in ("Tab", "space"):  # record clips from here on
        screen.key(key)
        time.sleep(0.2)
    for number in range(COPIES):
        copy(session, f"Copy {number}")
        time.sleep(0.9)
    choose(screen, SEARCH)
    samples = keys_to_paint(screen, ROWS, KEYS, rounds)
    program.stop()
    return samples


def choose(screen, section):
    """Chooses a section: the search hot key focuses the search field, and Shift+Tab the picker
    before it."""
    screen.key(*OPEN)
    time.sleep(0.5)
    screen.key("Shift_L", "Tab")
    screen.key("space")
    time.sleep(0.5)
    for key in ("Home", *["Down"] * section, "Return"):
        screen.key(key)
        time.sleep(0.1)
    time.sleep(0.5)


def measure_rofi(session, rounds):
    environment = session.environment | {"LC_ALL": "C.UTF-8"}
    rofi = subprocess.Popen(["rofi", "-show", "drun", "-normal-window"], env=environment)
    try:
        wait_until(lambda: session.screen.windows_of(rofi.pid), "rofi")
        return keys_to_paint(session.screen, ROWS, KEYS, rounds)
    finally:
        rofi.terminate()
        rofi.wait()


if __name__ == "__main__":
    main()

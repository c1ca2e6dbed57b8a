#!/usr/bin/python3
"""Measures how soon a copy in another program is fetched and what watching the clipboard costs, for
Perchly and two clipboard managers.

Each watches its own X session while this program copies texts and answers requests for them. Compare
figures of one run only.
Usage: clipboard.py WATCHER [--rounds N] [--seconds N], WATCHER being build/Benchmarks/PasteboardWatcher.
"""

import statistics
import subprocess
import sys
import time
from pathlib import Path

from Xlib import X, Xatom, display
from Xlib.protocol import event

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "Tests" / "Session"))

from measuring import command_line, high  # noqa: E402
from perchly_session.session import Session  # noqa: E402
from processes import cost_of_a_minute, proportional_megabytes  # noqa: E402

TEXTS = ("UTF8_STRING", "text/plain;charset=utf-8", "text/plain", "STRING")
TIMEOUT = 5


class Owner:
    """A program that owns the clipboard and answers requests."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.clipboard = self.display.get_atom("CLIPBOARD")
        self.targets = self.display.get_atom("TARGETS")
        self.texts = [self.display.get_atom(text) for text in TEXTS]

    def copy(self, text):
        """Returns the milliseconds from the copy until its text is first fetched; None if it never is."""
        start = time.perf_counter()
        self.window.set_selection_owner(self.clipboard, X.CurrentTime)
        self.display.flush()
        fetched = None
        while time.perf_counter() < start + TIMEOUT and fetched is None:
            fetched = self.answer(text)
        # Serve requests for more formats, too.
        quiet = time.perf_counter() + 0.2
        while time.perf_counter() < quiet:
            self.answer(text)
        return fetched and (fetched - start) * 1e3

    def answer(self, text):
        """Answers one request, if there is one; returns the time if it was for the text."""
        if not self.display.pending_events():
            time.sleep(0.00005)
            return None
        request = self.display.next_event()
        if request.type != X.SelectionRequest:
            return None
        place = request.property or request.target
        if request.target == self.targets:
            kinds = [self.targets, *self.texts]
            request.requestor.change_property(place, Xatom.ATOM, 32, kinds)
        elif request.target in self.texts:
            request.requestor.change_property(place, request.target, 8, text)
        else:
            place = X.NONE
        answer = event.SelectionNotify(
            time=request.time,
            requestor=request.requestor,
            selection=request.selection,
            target=request.target,
            property=place,
        )
        request.requestor.send_event(answer)
        self.display.flush()
        return time.perf_counter() if request.target in self.texts else None


def measure(name, command, options):
    session = Session(command[0], size=(640, 480))
    try:
        watcher = subprocess.Popen(
            command,
            env=session.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        time.sleep(3)
        owner = Owner(session.screen.name)
        samples = [owner.copy(f"{name} {i} ".encode() * 50) for i in range(options.rounds)]
        missed = samples.count(None)
        samples = sorted(sample for sample in samples if sample is not None)
        time.sleep(1)
        cpu, woken = cost_of_a_minute(watcher.pid, options.seconds)
        try:
            memory = proportional_megabytes(watcher.pid)
            costs = f"{cpu:>10.3f}{woken:>10.2f}{memory:>8.1f}"
        except ProcessLookupError:
            costs = f"{'it ended by itself':>28}"
        watcher.kill()
        watcher.wait()
    finally:
        session.stop()
    times = f"{statistics.median(samples):>8.2f}{high(samples):>8.2f}" if samples else f"{'none':>16}"
    print(f"{name:<12}{times}{missed:>8}{costs}")


def main():
    options = command_line(__doc__, "watcher", rounds=200, seconds=20)
    print(
        f"{'':<12}{'median':>8}{'p99':>8}{'missed':>8}{'CPU s/min':>10}{'woken/s':>10}{'MB':>8}"
    )
    measure("perchly", [str(Path(options.watcher).resolve())], options)
    measure("copyq", ["copyq"], options)
    measure("clipman", ["xfce4-clipman"], options)


if __name__ == "__main__":
    main()

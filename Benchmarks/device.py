#!/usr/bin/python3
"""Measures screen captures and previews from outside, and similar programs for comparison.

Compares the time from command to overlay with `flameshot gui`, and from button release to complete file
with `scrot -s`. Also measures the first preview of each kind, in a new companion each, and the CPU time of
reading the battery and the meetings every 30 seconds.
Usage: device.py PROGRAM [--rounds N]
"""

import argparse
import json
import statistics
import subprocess
import time
from functools import partial
from pathlib import Path

from Xlib import X
from Xlib.ext import xtest

import calendars
from measuring import high, measured_session
from painting import Painting
from processes import cpu_seconds
from perchly_session.other_programs import moving_picture
from perchly_session.waiting import wait_until

AROUND = (400, 250, 480, 300)  # in the middle, which every preview's window covers
START, END = (300, 200), (899, 599)
TEXT = "a line of text\n" * 5000
PDF = b"""%PDF-1.4
1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj
2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj
3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 300 400]>>endobj
trailer<</Root 1 0 R>>
"""


class Captures:
    def __init__(self, session, companion):
        self._session = session
        self._screen = session.screen
        self._file = session.folder / "capture.png"
        self._ours = [companion, "-i", "-x", str(self._file)]
        self._scrot = ["scrot", "-s", "-o", str(self._file)]

    def to_overlay(self, command):
        painting = Painting(self._screen, (0, 0, 1280, 800))
        since = time.perf_counter()
        process = self._start(command)
        elapsed = painting.wait(since)
        painting.close()
        time.sleep(0.2)
        self._screen.key("Escape")
        _end(process)
        return elapsed

    def ours_to_overlay(self):
        return self.to_overlay(self._ours)

    def flameshot_to_overlay(self):
        return self.to_overlay(["flameshot", "gui"])

    def to_file(self, command):
        self._file.unlink(missing_ok=True)
        process = self._start(command)
        time.sleep(0.5)
        self._screen.move_to(*START, step=200)
        self._screen.press()
        self._screen.move_to(*END, step=100)
        since = time.perf_counter()
        xtest.fake_input(self._screen.display, X.ButtonRelease, 1)
        self._screen.display.sync()
        while not _is_whole(self._file):
            time.sleep(0.0002)
        elapsed = (time.perf_counter() - since) * 1000
        _end(process)
        return elapsed

    def ours_to_file(self):
        return self.to_file(self._ours)

    def scrot_to_file(self):
        return self.to_file(self._scrot)

    def _start(self, command):
        return subprocess.Popen(
            command,
            env=self._session.environment,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )


def _is_whole(file):
    try:
        return file.read_bytes().endswith(b"IEND\xaeB`\x82")
    except OSError:
        return False


def _end(process):
    try:
        process.wait(3)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def preview(session, companion, file, is_shown=None):
    """Waits until something is painted, or until `is_shown` returns true."""
    painting = Painting(session.screen, AROUND)
    since = time.perf_counter()
    process = subprocess.Popen(
        [companion], env=session.environment, stdin=subprocess.PIPE, stderr=subprocess.DEVNULL
    )
    request = {"items": [file.as_uri()], "index": 0, "toggle": False}
    process.stdin.write(json.dumps(request).encode() + b"\n")
    process.stdin.flush()
    if is_shown:
        wait_until(is_shown, "the picture", interval=0)
    elapsed = (time.perf_counter() - since) * 1000 if is_shown else painting.wait(since)
    painting.close()
    process.stdin.close()
    _end(process)
    time.sleep(0.1)
    return elapsed


def shows_video(screen):
    """Whether the middle has the colours of the test video."""
    blue, green, red = screen.root.get_image(640, 380, 1, 1, X.ZPixmap, 0xFFFFFFFF).data[:3]
    return blue < 8 and (red > 240 or green > 120)


def samples(session, picture):
    files = {
        "picture": picture,
        "text": "a.txt",
        "document": "a.pdf",
        "other": "a.bin",
        "video, its name and kind": "a.mp4",
    }
    moving_picture(session.folder / "a.mp4")
    (session.folder / "a.txt").write_text(TEXT)
    (session.folder / "a.pdf").write_bytes(PDF)
    (session.folder / "a.bin").write_bytes(b"\x00\x01\x02" * 1000)
    return {name: session.folder / file for name, file in files.items()}


def cost_of_polls(session):
    """Returns the CPU milliseconds of 95 idle seconds, with access to a calendar."""
    calendar = session.home / ".calendars" / "all" / "all.ics"
    calendar.parent.mkdir(parents=True)
    calendar.write_text(calendars.calendar(calendars.make_events(10_000)), newline="")
    consent = session.preferences_file.parent / "permissions" / "calendars.json"
    consent.parent.mkdir(parents=True)
    consent.write_text('{"readCalendars": true}')
    consent.chmod(0o600)
    program = session.run()
    session.screen.key("Control_L", "Alt_L", "k")  # the first use
    window = wait_until(lambda: program.window("Perchly Workspace"), "the workspace")
    session.screen.close_window(window)
    time.sleep(25)
    before = cpu_seconds(program.pid)
    time.sleep(95)
    return (cpu_seconds(program.pid) - before) * 1000


def report(what, values):
    print(f"{what:44} {statistics.median(values):7.1f} ms   {high(values):7.1f}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", type=Path)
    parser.add_argument("--rounds", type=int, default=20)
    options = parser.parse_args()
    folder = options.program.resolve().parent
    rounds = range(options.rounds)
    print(f"{'':44}   median       p99")
    with measured_session(options.program.resolve()) as session:
        captures = Captures(session, str(folder / "perchly-screencapture"))
        report("capture: command to overlay", [captures.ours_to_overlay() for _ in rounds])
        report("capture: release to file", [captures.ours_to_file() for _ in rounds])
        report("scrot: release to file", [captures.scrot_to_file() for _ in rounds])
        captures.ours_to_file()
        for name, file in samples(session, "capture.png").items():
            companion = str(folder / "perchly-preview")
            report(f"first preview: {name}", [preview(session, companion, file) for _ in rounds])
        video = session.folder / "a.mp4"
        is_shown = partial(shows_video, session.screen)
        report(
            "first preview: video, its first picture",
            [preview(session, companion, video, is_shown) for _ in rounds],
        )
        report("flameshot: command to overlay", [captures.flameshot_to_overlay() for _ in rounds])
        report("CPU of three polls in 95 seconds", [cost_of_polls(session)])


if __name__ == "__main__":
    main()

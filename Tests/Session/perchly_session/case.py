"""The base class of the session tests, and common actions on the program."""

import contextlib
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

from . import sway
from .hands import SEARCH, TOGGLE
from .other_programs import OtherWindow
from .session import Session
from .waiting import wait_until, wait_while

PILL = (495, 0, 290, 34)
OPEN = (310, 0, 660, 429)
AWAY = (640, 740)
WORKSPACE = "Perchly Workspace"
NO_BUS = "perchly: no session bus: .*"
GONE = "perchly: Could not find accessible on path: .*"  # a test queried a removed object
ON_X = os.environ.get("PERCHLY_WINDOW_MANAGER") != "sway"
WINDOW_MANAGER = os.environ.get("PERCHLY_WINDOW_MANAGER", "openbox")


def unexpected_errors(program, *expected):
    """The lines on its stderr that none of the patterns matches."""
    known = "|".join((GONE, *expected))
    return [line for line in program.errors().splitlines() if not re.fullmatch(known, line)]


def on_x_only(test):
    return unittest.skipUnless(ON_X, "about X")(test)


class User:
    """Actions of tests and the scene on self.session, self.program, self.screen and self.tree."""

    def click(self, name, role="push button", subject=None):
        self.screen.click(*self.tree.find(name, role, subject).centre)

    def window(self, title):
        """Waits until the window with this title has the keyboard."""
        window = wait_until(lambda: self.program.window(title), title)
        wait_until(lambda: self.screen.focus() == window.id, f"{title} with the keyboard")
        return window

    def expect_keyboard(self):
        wait_until(lambda: self.program.has_keyboard(), "the shelf with the keyboard")

    def expect_closed(self, title):
        wait_until(lambda: not self.program.window(title), f"{title} closed")

    def open_workspace(self, section):
        self.screen.key(*SEARCH)
        window = self.window(WORKSPACE)
        self.choose_section(section)
        return window

    def choose_section(self, name):
        self.click("Tools", "combo box")
        self.click(name, "list item")
        self.tree.find("Tools", "combo box", name)

    def windows_of(self, companion):
        command = ("pgrep", "-f", f"^{self.session.executable}-{companion}")
        numbers = self.session.call(*command, check=False).split()
        return [window for number in numbers for window in self.screen.windows_of(int(number))]

    def expect_stored(self, **values):
        stored = lambda: {key: self.session.preferences().get(key) for key in values}
        wait_until(lambda: stored() == values, f"{values} stored")

    def on_pill(self):
        """The middle of the shelf."""
        x, y, width, height = self.program.frame()
        return x + width // 2, y + height // 2


class SessionCase(unittest.TestCase, User):
    """Gives each test a session under the window manager PERCHLY_WINDOW_MANAGER, and saves a
    screenshot if the test fails. A line on the program's stderr fails the test, unless one of
    `expected_errors` matches it."""

    maxDiff = None
    expected_errors = ()

    def start_session(self, **options):
        """Ends any earlier session of the test, with its programs."""
        self.doCleanups()
        options = {"window_manager": WINDOW_MANAGER} | options
        self.session = Session(os.environ["PERCHLY_PROGRAM"], **options)
        self.addCleanup(self._end_session, self.session)
        self.screen = self.session.screen
        self.screen.move_to(*AWAY, step=100)

    def start(self, preferences=None, **options):
        """Starts a session and the program in it."""
        self.start_session(**options)
        self.session.store(**(preferences or {}))
        self.run_program()

    def run_program(self):
        self.program = self.session.run()
        self.tree = self.program.accessibility()

    def tell(self, *command, status=0, says=""):
        """Runs a command of the program, which must end with this status and message."""
        result = subprocess.run(
            (self.session.executable, *command),
            env=self.session.environment, cwd=self.session.folder,
            capture_output=True, text=True, timeout=20,
        )
        self.assertEqual(result.returncode, status, result.stderr)
        self.assertIn(says, result.stderr)
        self.assertEqual(bool(says), bool(result.stderr), result.stderr)
        return result.stderr

    def other_window(self, *arguments, **options):
        """Creates another program's window, hidden at first."""
        if self.session.is_wayland:
            other = sway.OtherWindow(self.session, *arguments, **options)
        else:
            other = OtherWindow(self.screen, *arguments, **options)
        self.addCleanup(other.close)
        return other

    def expect_frame(self, frame, what):
        """Waits until the shelf has exactly this frame (x, y, width, height)."""
        try:
            wait_until(lambda: self.program.frame() == frame, what)
        except AssertionError as problem:
            raise AssertionError(f"{problem}; the frame is {self.program.frame()}") from None

    def keeps_frame(self, frame, what, seconds):
        wait_while(lambda: self.program.frame() == frame, what, seconds)

    def expect_pill(self):
        self.expect_frame(PILL, "the shelf closed")

    def expect_open(self):
        self.expect_frame(OPEN, "the shelf open")

    def hover(self):
        self.screen.move_to(*self.on_pill())
        self.expect_open()

    def leave(self):
        self.screen.move_to(*AWAY)
        self.expect_pill()

    def _end_session(self, session):
        problems = self._outcome.result.failures + self._outcome.result.errors
        try:
            if self in [getattr(test, "test_case", test) for test, _ in problems]:
                self._report(session)
            for program in session.programs:
                if program.running():
                    self.assertIn(program.stop(), (0, -15), program.errors())
                lines = unexpected_errors(program, *self.expected_errors)
                self.assertEqual(lines, [], "on the program's stderr")
        finally:
            session.stop()

    def _report(self, session):
        folder = Path(os.environ.get("PERCHLY_SESSION_REPORTS", "session-reports"))
        folder.mkdir(parents=True, exist_ok=True)
        picture = folder / f"{self.id()}-{session.window_manager or 'bare'}.png"
        with contextlib.suppress(OSError):  # XWayland has no picture
            session.screen.screenshot().save(picture)
            print(f"screenshot: {picture}", file=sys.stderr)
        for program in session.programs:
            print(f"windows {program.windows()}, wrote: {program.errors()}", file=sys.stderr)

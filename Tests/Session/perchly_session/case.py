"""The base of the session tests."""

import math
import os
import re
import sys
import unittest
from pathlib import Path

from .other_programs import OtherWindow
from .session import Session
from .waiting import wait_until, wait_while

TOGGLE = ("Control_L", "Alt_L", "space")
NO_BUS = "perchly: no session bus: .*"
# Qt's line when a test asks for an element that has just gone.
GONE = "perchly: Could not find accessible on path: .*"
LARGEST_COMPACT = 290 * 34 * 2


def default_window_manager():
    return os.environ.get("PERCHLY_WINDOW_MANAGER", "openbox")


class SessionCase(unittest.TestCase):
    """Gives each test a session of its own under the window manager that
    PERCHLY_WINDOW_MANAGER names, and shows what went on when the test fails. A line on the
    program's stderr fails the test, unless it matches one of `expected_errors` as a whole."""

    maxDiff = None
    expected_errors = ()

    def start_session(self, **options):
        """Ends the session that the test had before, with its programs."""
        self.doCleanups()
        options.setdefault("window_manager", default_window_manager())
        self.session = Session(os.environ["PERCHLY_PROGRAM"], **options)
        self.addCleanup(self._end_session, self.session)
        self.session.start()
        self.screen = self.session.screen
        self.screen.move_to(self.screen.width // 2, self.screen.height - 60, step=100)
        return self.session

    def start(self, preferences=None, **options):
        """A session with the program in it."""
        self.start_session(**options)
        self.session.store(**(preferences or {}))
        return self.run_program()

    def run_program(self):
        self.program = self.session.run()
        return self.program

    def other_window(self, *arguments, **options):
        """Another program's window, not shown yet."""
        other = OtherWindow(self.screen, *arguments, **options)
        self.addCleanup(other.close)
        return other

    # The keyboard

    def go_to(self, *names, subject=None):
        """Presses Tab, and arrows inside a list, until a control of one of those names (for that
        entry) has the keyboard; returns its name."""
        tree = self.program.accessibility()
        seen = []

        def there():
            node = tree.focused()
            if node and node.name in names and subject in (None, node.description):
                return node.name
            seen.append(node.name if node else None)
            self.screen.key(tree.key_towards(names, subject))
            return None

        try:
            return wait_until(there, f"the keyboard on one of {names}", timeout=30, interval=0.05)
        except AssertionError as problem:
            raise AssertionError(f"{problem}; on the way it was on {seen}") from None

    # What the shelf looks like from outside

    def expect_frame(self, frame, what, timeout=10):
        """Waits until the shelf has exactly this frame (x, y, width, height)."""
        try:
            wait_until(lambda: self.program.frame() == frame, what, timeout)
        except AssertionError as problem:
            raise AssertionError(f"{problem}; the frame is {self.program.frame()}") from None

    def keeps_frame(self, frame, what, seconds):
        """Shows that the shelf stays as it is. Its window keeps the open size for a moment when it
        closes; what takes the pointer does not."""
        is_open = frame[2] * frame[3] > LARGEST_COMPACT

        def same():
            outline = self.program.outline()
            open_now = outline[2] * outline[3] > LARGEST_COMPACT
            return self.program.frame() == frame and open_now == is_open

        wait_while(same, what, seconds)

    def compact_frame(self, edge="top", position=0.5, area=None, visible=None):
        """Where the collapsed shelf hangs on a display."""
        return self._place(edge, position, area, visible, {"top": (290, 34)}.get(edge, (34, 120)))

    def expanded_frame(self, edge="top", position=0.5, area=None, visible=None):
        """Where the open shelf hangs on a display, at scale 1."""
        return self._place(edge, position, area, visible, {"top": (660, 519)}.get(edge, (694, 519)))

    def _place(self, edge, position, area, visible, size):
        left, top, width, height = area or (0, 0, self.screen.width, self.screen.height)
        _, visible_top, _, visible_height = visible or (left, top, width, height)
        if edge == "top":
            x = left + position * width - size[0] / 2
            x = max(left, min(x, left + width - size[0]))
            return math.floor(x + 0.5), top, *size
        x = left if edge == "left" else left + width - size[0]
        # Positions along a side count from the bottom.
        y = visible_top + (1 - position) * visible_height - size[1] / 2
        y = max(visible_top, min(y, visible_top + visible_height - size[1]))
        return x, math.floor(y + 0.5), *size

    def on_pill(self):
        """A point inside the collapsed shelf."""
        x, y, width, height = self.program.frame()
        return x + width // 2, y + height // 2

    def away(self):
        """A point that no shelf covers."""
        return self.screen.width // 2, self.screen.height - 60

    # Endings

    def _end_session(self, session):
        result = self._outcome.result
        problems = result.failures + result.errors
        try:
            if any(getattr(test, "test_case", test) is self for test, _ in problems):
                self._report(session)
            for program in session.programs:
                if program.running():
                    self.assertIn(program.stop(), (0, -15), program.errors())
            for program in session.programs:
                unexpected = [
                    line
                    for line in program.errors().splitlines()
                    if not any(re.fullmatch(known, line) for known in (GONE, *self.expected_errors))
                ]
                self.assertEqual(unexpected, [], "on the program's stderr")
        finally:
            session.stop()

    def _report(self, session):
        folder = Path(os.environ.get("PERCHLY_SESSION_REPORTS", "session-reports"))
        folder.mkdir(parents=True, exist_ok=True)
        if session.screen:
            name = f"{self.id()}-{session.window_manager or 'bare'}"
            session.screen.screenshot().save(folder / f"{name}.png")
            print(f"screenshot: {folder}/{name}.png", file=sys.stderr)
        for program in session.programs:
            print(f"the program wrote:\n{program.errors()}", file=sys.stderr)
            if program.running():
                print(f"its windows: {program.windows()}", file=sys.stderr)
                print(f"its frame: {program.frame()}", file=sys.stderr)


def main():
    unittest.main(verbosity=2)

"""Detects from outside when something is painted on the screen."""

import select
import time

from Xlib import X, XK
from Xlib.ext import damage, xtest

DEADLINE = 10.0


class Painting:
    """Watches a strip of the screen: on DAMAGE events it compares pictures."""

    def __init__(self, screen, rect):
        self._display = screen.display
        self._root = screen.root
        self._rect = rect
        self._display.query_extension("DAMAGE") or _fail("the X server has no DAMAGE extension")
        self._display.damage_query_version()
        self._damage = self._root.damage_create(damage.DamageReportRawRectangles)
        self._before = self._picture()

    def wait(self, since):
        """Returns the milliseconds from `since`, a time.perf_counter(), until the strip changes."""
        end = since + DEADLINE
        while time.perf_counter() < end:
            if self._picture() != self._before:
                return (time.perf_counter() - since) * 1000
            self._wait_for_drawing(end)
        raise AssertionError(f"nothing was painted in {self._rect} within {DEADLINE} s")

    def close(self):
        self._display.damage_destroy(self._damage)
        self._drop_events()
        self._display.sync()

    def _picture(self):
        x, y, width, height = self._rect
        return self._root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data

    def _wait_for_drawing(self, end):
        if not self._drop_events():
            select.select([self._display.fileno()], [], [], max(0, end - time.perf_counter()))
            self._drop_events()

    def _drop_events(self):
        count = self._display.pending_events()
        for _ in range(count):
            self._display.next_event()
        return count


def settle(screen, rect):
    """Waits until the strip stays the same for a while: icons are painted after their rows."""
    before, now = None, ()
    while now != before:
        time.sleep(0.3)
        before, now = now, screen.root.get_image(*rect, X.ZPixmap, 0xFFFFFFFF).data


def keys_to_paint(screen, rect, keys, rounds):
    """Presses the keys in turn; returns the milliseconds from each press until the strip changes."""
    settle(screen, rect)
    samples = []
    for key in keys * rounds:
        code = screen.display.keysym_to_keycode(XK.string_to_keysym(key))
        painting = Painting(screen, rect)
        start = time.perf_counter()
        xtest.fake_input(screen.display, X.KeyPress, code)
        xtest.fake_input(screen.display, X.KeyRelease, code)  # before it repeats
        screen.display.flush()
        samples.append(painting.wait(start))
        painting.close()
        settle(screen, rect)
    return samples


def _fail(message):
    raise AssertionError(message)

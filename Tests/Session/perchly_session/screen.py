"""The X side of a session: pointer, keys, windows, focus and screenshots."""

import time
from collections import namedtuple

from PIL import ImageGrab
from Xlib import X, XK, display, error
from Xlib.ext import shape, xtest
from Xlib.protocol import event

from .hands import Hands
from .waiting import wait_until

PRESS_SECONDS = 0.1
KEY_SECONDS = 0.01  # so that a press does not look like key repeat


# A mapped window; rect is (x, y, width, height) on the screen.
Window = namedtuple("Window", "id title rect")


class Screen(Hands):
    """A client of the session's X server that acts and sees like a user."""

    def __init__(self, name):
        self.name = name
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self.width = self.display.screen().width_in_pixels
        self.height = self.display.screen().height_in_pixels

    def atom(self, name):
        return self.display.get_atom(name)

    def resource(self, number):
        return self.display.create_resource_object("window", number)

    def property(self, window, name):
        """The values of a property; empty if it is not set."""
        found = window.get_full_property(self.atom(name), X.AnyPropertyType)
        return found.value if found else ()

    # Pointer

    def pointer(self):
        at = self.root.query_pointer()
        return at.root_x, at.root_y

    def _fake(self, *kind, rest=0.0, **place):
        xtest.fake_input(self.display, *kind, **place)
        self.display.sync()
        time.sleep(rest)

    def move_by(self, dx, dy, rest=0.0):
        """Sends one relative motion event, which raw motion listeners see, too."""
        self._fake(X.MotionNotify, True, x=dx, y=dy, rest=rest)

    def press(self, button=1):
        self._fake(X.ButtonPress, button, rest=PRESS_SECONDS)

    def release(self, button=1):
        self._fake(X.ButtonRelease, button, rest=PRESS_SECONDS)

    def fling(self, *places, then):
        """Drags through these places, and moves on, in no time."""
        fake = lambda *kind, **place: xtest.fake_input(self.display, *kind, **place)
        fake(X.ButtonPress, 1)
        for x, y in places:
            fake(X.MotionNotify, x=x, y=y)
        fake(X.ButtonRelease, 1)
        fake(X.MotionNotify, x=then[0], y=then[1])
        self.display.sync()

    # Keys

    def code(self, name):
        """The key with this name or character."""
        return self.display.keysym_to_keycode(XK.string_to_keysym(name) or ord(name))

    def hold(self, *keys):
        for key in keys:
            self._fake(X.KeyPress, self.code(key), rest=KEY_SECONDS)

    def let_go(self, *keys):
        for key in reversed(keys):
            self._fake(X.KeyRelease, self.code(key), rest=KEY_SECONDS)

    def needs_shift(self, character):
        return self.display.keycode_to_keysym(self.code(character), 1) == ord(character)

    # Windows

    def origin_of(self, title):
        """None: windows know where they are."""

    def panel(self, process):
        """The shelf's window, or None."""
        return next((w for w in self.windows_of(process) if w.title == "Perchly"), None)

    def frame(self, process):
        """The shelf's frame (x, y, width, height) without its shadow, or None."""
        panel = self.panel(process)
        return panel and self.input_frame(panel)

    def focus(self):
        """The id of the window with the keyboard; 0 if it is the root or no window has it."""
        window = self.display.get_input_focus().focus
        return 0 if isinstance(window, int) or window.id == self.root.id else window.id

    def manages_windows(self):
        """Whether the window manager manages a new window. It announces itself earlier, and may miss
        windows mapped in between."""
        window = self.root.create_window(0, 0, 50, 50, 0, X.CopyFromParent)
        window.map()
        try:
            return wait_until(lambda: self.property(window, "WM_STATE"), "WM_STATE", timeout=0.5)
        except AssertionError:
            return False
        finally:
            window.destroy()
            self.display.sync()

    def windows_of(self, process):
        """The mapped windows of a process, unmanaged ones first."""
        own = [window.id for window in self.root.query_tree().children]
        numbers = dict.fromkeys([*own, *self.property(self.root, "_NET_CLIENT_LIST")])
        described = (self._describe(self.resource(number), process) for number in numbers)
        return [window for window in described if window]

    def is_above(self, upper, lower):
        """Whether a window is stacked above another; both may have frames."""
        frames = [self.top_level(lower), self.top_level(upper)]
        return frames == [w.id for w in self.root.query_tree().children if w.id in frames]

    def top_level(self, number):
        """The root's child that is, or contains, the window."""
        parent = self.resource(number).query_tree().parent
        return number if not parent or parent.id == self.root.id else self.top_level(parent.id)

    def contains(self, number, process):
        """Whether a window of the process is inside this one, as an icon in a tray."""
        return any(
            process in self.property(child, "_NET_WM_PID") or self.contains(child.id, process)
            for child in self.resource(number).query_tree().children
        )

    def input_frame(self, window):
        """The bounds of the window's input shape, as (x, y, width, height) on the screen."""
        own = self.resource(window.id)
        self.display.grab_server()  # a resize changes place and shape
        try:
            origin = self.root.translate_coords(own, 0, 0)
            found = own.shape_get_rectangles(shape.SK.Input).rectangles
        finally:
            self.display.ungrab_server()
            self.display.flush()
        if not found:
            return window.rect
        left, top = min(r.x for r in found), min(r.y for r in found)
        right, bottom = max(r.x + r.width for r in found), max(r.y + r.height for r in found)
        return origin.x + left, origin.y + top, right - left, bottom - top

    # Requests of task bars and pagers to the window manager

    def close_window(self, number):
        self._ask(number, "_NET_CLOSE_WINDOW", X.CurrentTime, 2, 0, 0, 0)

    def maximize(self, number):
        states = [self.atom(f"_NET_WM_STATE_MAXIMIZED_{axis}") for axis in ("HORZ", "VERT")]
        self._ask(number, "_NET_WM_STATE", 1, *states, 2, 0)

    def resize_window(self, number, height):
        self.resource(number).configure(height=height)

    def minimize(self, number):
        self._ask(number, "WM_CHANGE_STATE", 3, 0, 0, 0, 0)

    def show_desktop(self, number):
        self._ask(self.root.id, "_NET_CURRENT_DESKTOP", number, X.CurrentTime, 0, 0, 0)

    def activate(self, number):
        self._ask(number, "_NET_ACTIVE_WINDOW", 2, X.CurrentTime, 0, 0, 0)

    def _ask(self, number, kind, *data):
        message = event.ClientMessage(
            window=self.resource(number), client_type=self.atom(kind), data=(32, data)
        )
        mask = X.SubstructureRedirectMask | X.SubstructureNotifyMask
        self.root.send_event(message, event_mask=mask)
        self.display.flush()

    # Pictures

    def screenshot(self, rect=None):
        """A picture of the screen or of a part of it (x, y, width, height)."""
        x, y, width, height = rect or (0, 0, self.width, self.height)
        return ImageGrab.grab((x, y, x + width, y + height), xdisplay=self.name)

    def _describe(self, window, process):
        """The window, if it is a visible one of the process."""
        try:
            if process not in self.property(window, "_NET_WM_PID"):
                return None
            attributes, geometry = window.get_attributes(), window.get_geometry()
            origin = self.root.translate_coords(window, 0, 0)
            title = bytes(self.property(window, "_NET_WM_NAME")).decode()
        except (error.BadWindow, error.BadDrawable):
            return None  # closed meanwhile
        if attributes.map_state != X.IsViewable or attributes.win_class != X.InputOutput:
            return None
        return Window(window.id, title, (origin.x, origin.y, geometry.width, geometry.height))

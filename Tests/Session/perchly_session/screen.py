"""The X side of a session: pointer, keys, windows, focus and screenshots."""

import time
from dataclasses import dataclass

from Xlib import X, XK, display, error
from Xlib.ext import shape, xtest

from .picture import Picture
from .waiting import TimedOut, wait_until

STEP_PIXELS = 8
STEP_SECONDS = 0.004
PRESS_SECONDS = 0.1


@dataclass(frozen=True)
class Window:
    """One window of the program: where it is on the screen, in pixels, and what it is."""

    id: int
    title: str
    x: int
    y: int
    width: int
    height: int
    override_redirect: bool
    types: tuple

    @property
    def rect(self):
        return self.x, self.y, self.width, self.height


class Screen:
    """A client of the session's X server with the hands and eyes of a person."""

    def __init__(self, name):
        self.name = name
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self.width = self.display.screen().width_in_pixels
        self.height = self.display.screen().height_in_pixels

    def close(self):
        self.display.close()

    def atom(self, name):
        return self.display.get_atom(name)

    # Pointer

    def pointer(self):
        at = self.root.query_pointer()
        return at.root_x, at.root_y

    def move_by(self, dx, dy):
        """One relative motion event, which programs that listen to raw motion see as well."""
        xtest.fake_input(self.display, X.MotionNotify, detail=1, x=dx, y=dy)
        self.display.sync()

    def move_to(self, x, y, step=STEP_PIXELS, pause=STEP_SECONDS):
        """Moves in a straight line of small steps."""
        from_x, from_y = self.pointer()
        steps = max(1, round(max(abs(x - from_x), abs(y - from_y)) / step))
        for number in range(1, steps + 1):
            at_x, at_y = self.pointer()
            to_x = round(from_x + (x - from_x) * number / steps)
            to_y = round(from_y + (y - from_y) * number / steps)
            self.move_by(to_x - at_x, to_y - at_y)
            time.sleep(pause)
        if self.pointer() != (x, y):
            raise AssertionError(f"the pointer is at {self.pointer()}, not at {(x, y)}")

    def press(self, button=1):
        """Presses a button and rests a moment, as a hand does."""
        xtest.fake_input(self.display, X.ButtonPress, button)
        self.display.sync()
        time.sleep(PRESS_SECONDS)

    def release(self, button=1, rest=PRESS_SECONDS):
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()
        time.sleep(rest)

    def click(self, x, y):
        self.move_to(x, y)
        self.press()
        self.release()

    def drag(self, start, end):
        """Presses at the start, moves to the end as a hand does, and releases there."""
        self.move_to(*start)
        self.press()
        distance = max(abs(end[0] - start[0]), abs(end[1] - start[1]))
        self.move_to(*end, step=max(distance / 40, 1), pause=0.01)
        self.release()

    def hasty_drag(self, start, end, beyond):
        """Presses, moves, releases and moves on, all before a program has seen any of it."""
        self.move_to(*start)
        points = [start, ((start[0] + end[0]) // 2, (start[1] + end[1]) // 2), end]
        xtest.fake_input(self.display, X.ButtonPress, 1)
        for point in points:
            xtest.fake_input(self.display, X.MotionNotify, x=point[0], y=point[1])
        xtest.fake_input(self.display, X.ButtonRelease, 1)
        xtest.fake_input(self.display, X.MotionNotify, x=beyond[0], y=beyond[1])
        self.display.sync()

    # Keys

    def code(self, name):
        """The key with this name or character."""
        return self.display.keysym_to_keycode(XK.string_to_keysym(name) or ord(name))

    def hold(self, *keys):
        """Presses the keys, by their names, in order."""
        for key in keys:
            xtest.fake_input(self.display, X.KeyPress, self.code(key))
        self.display.sync()
        time.sleep(0.02)

    def let_go(self, *keys):
        for key in reversed(keys):
            xtest.fake_input(self.display, X.KeyRelease, self.code(key))
        self.display.sync()
        # A press at the very time of the release would be the keyboard's own repetition.
        time.sleep(0.02)

    def key(self, *keys):
        """Presses the keys in order and releases them, as in key("Control_L", "Alt_L", "space")."""
        self.hold(*keys)
        self.let_go(*keys)

    def type_text(self, text):
        """Types what is on a US keyboard; a newline is Return."""
        for character in text:
            name = "Return" if character == "\n" else character
            shifted = self.display.keycode_to_keysym(self.code(name), 1) == ord(character)
            self.key(*["Shift_L"] * shifted, name)

    def locks(self):
        """The modifier bits that are locked now: X.LockMask for Caps Lock, X.Mod2Mask for Num
        Lock."""
        return self.root.query_pointer().mask & (X.LockMask | X.Mod2Mask)

    def is_held(self, key, modifiers):
        """Whether a program has taken this chord for itself. Takes it for a moment to see, so that
        a program that wants it just then does not get it."""
        code = self.code(key)
        refused = error.CatchError(error.BadAccess)
        self.root.grab_key(
            code, modifiers, True, X.GrabModeAsync, X.GrabModeAsync, onerror=refused
        )
        self.display.sync()
        self.root.ungrab_key(code, modifiers)
        self.display.sync()
        return bool(refused.get_error())

    # Windows

    def focus(self):
        """The id of the window with the keyboard, or 0 for none and the root."""
        window = self.display.get_input_focus().focus
        return 0 if isinstance(window, int) or window.id == self.root.id else window.id

    def has_compositor(self):
        return self.display.get_selection_owner(self.atom("_NET_WM_CM_S0")) != X.NONE

    def has_window_manager(self):
        found = self.root.get_full_property(
            self.atom("_NET_SUPPORTING_WM_CHECK"), X.AnyPropertyType
        )
        return bool(found and len(found.value))

    def manages_windows(self):
        """Whether the window manager takes care of a new window within a moment. It announces
        itself before it does, and may miss what is mapped in between."""
        window = self.root.create_window(0, 0, 50, 50, 0, X.CopyFromParent)
        window.map()
        try:
            state = self.atom("WM_STATE")
            wait_until(lambda: window.get_property(state, state, 0, 1), "WM_STATE", timeout=0.5)
        except TimedOut:
            return False
        finally:
            window.destroy()
            self.display.sync()
        return True

    def windows_of(self, process):
        """The mapped windows of a process, those that no manager takes care of first."""
        managed = self.root.get_full_property(self.atom("_NET_CLIENT_LIST"), X.AnyPropertyType)
        own = self.root.query_tree().children
        numbers = [window.id for window in own] + list(managed.value if managed else ())
        found = []
        for number in dict.fromkeys(numbers):
            window = self.display.create_resource_object("window", number)
            try:
                described = self._describe(window, process)
            except (error.BadWindow, error.BadDrawable):
                continue  # it went away meanwhile
            if described:
                found.append(described)
        return found

    def stacking(self):
        """The ids of the root's children, from the lowest to the highest."""
        return [child.id for child in self.root.query_tree().children]

    def top_level(self, window_id):
        """The root's child that is or holds the window: its frame, if the manager gave it one."""
        window = self.display.create_resource_object("window", window_id)
        while True:
            parent = window.query_tree().parent
            if not parent or parent.id == self.root.id:
                return window.id
            window = parent

    def input_frame(self, window):
        """Where the window takes the pointer, as (x, y, width, height) on the screen."""
        resource = self.display.create_resource_object("window", window.id)
        rectangles = resource.shape_get_rectangles(shape.SK.Input).rectangles
        if not rectangles:
            return window.rect
        left = min(r.x for r in rectangles)
        top = min(r.y for r in rectangles)
        right = max(r.x + r.width for r in rectangles)
        bottom = max(r.y + r.height for r in rectangles)
        return window.x + left, window.y + top, right - left, bottom - top

    def holds(self, window_id, process):
        """Whether a window has another of the process in it, as a tray has an icon."""
        window = self.display.create_resource_object("window", window_id)
        return any(
            self._owner(child) == process or self.holds(child.id, process)
            for child in window.query_tree().children
        )

    def close_window(self, window):
        """Asks the window manager to close a window, as the button in its title bar does."""
        self._message(window.id, "_NET_CLOSE_WINDOW", [X.CurrentTime, 2, 0, 0, 0])

    def task_bar_facts(self, window):
        """The class by which task bars find a window's entry, and how large its pictures are."""
        resource = self.display.create_resource_object("window", window.id)
        icon = resource.get_full_property(self.atom("_NET_WM_ICON"), X.AnyPropertyType)
        return resource.get_wm_class(), len(icon.value) if icon else 0

    def maximize(self, window_id):
        states = [self.atom(f"_NET_WM_STATE_MAXIMIZED_{axis}") for axis in ("HORZ", "VERT")]
        self._message(window_id, "_NET_WM_STATE", [1, *states, 2, 0])

    def minimize(self, window):
        self._message(window.id, "WM_CHANGE_STATE", [3, 0, 0, 0, 0])

    def show_desktop(self, number):
        self._message(self.root.id, "_NET_CURRENT_DESKTOP", [number, X.CurrentTime, 0, 0, 0])

    def activate(self, window_id):
        """Asks the window manager to give a window the keyboard, as a task bar does."""
        self._message(window_id, "_NET_ACTIVE_WINDOW", [2, X.CurrentTime, 0, 0, 0])

    def screenshot(self):
        image = self.root.get_image(0, 0, self.width, self.height, X.ZPixmap, 0xFFFFFFFF)
        return Picture(self.width, self.height, bytes(image.data))

    def _message(self, window_id, name, data):
        from Xlib.protocol import event

        self.root.send_event(
            event.ClientMessage(
                window=self.display.create_resource_object("window", window_id),
                client_type=self.atom(name),
                data=(32, data),
            ),
            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask,
        )
        self.display.flush()

    def _owner(self, window):
        owner = window.get_full_property(self.atom("_NET_WM_PID"), X.AnyPropertyType)
        return owner.value[0] if owner else None

    def _describe(self, window, process):
        if self._owner(window) != process:
            return None
        attributes = window.get_attributes()
        if attributes.map_state != X.IsViewable or attributes.win_class != X.InputOutput:
            return None
        title = window.get_full_property(self.atom("_NET_WM_NAME"), X.AnyPropertyType)
        types = window.get_full_property(self.atom("_NET_WM_WINDOW_TYPE"), X.AnyPropertyType)
        geometry = window.get_geometry()
        origin = self.root.translate_coords(window, 0, 0)
        return Window(
            id=window.id,
            title=title.value.decode() if title else "",
            x=origin.x,
            y=origin.y,
            width=geometry.width,
            height=geometry.height,
            override_redirect=bool(attributes.override_redirect),
            types=tuple(self.display.get_atom_name(a) for a in types.value) if types else (),
        )

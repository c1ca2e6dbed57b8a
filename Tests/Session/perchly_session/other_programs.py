"""Programs that a person has open beside Perchly."""

from Xlib import X, XK, Xatom, Xutil, display

from .waiting import wait_until

LOCKS = (0, X.LockMask, X.Mod2Mask, X.LockMask | X.Mod2Mask)
KEY_NAMES = {getattr(XK, name): name[3:] for name in dir(XK) if name.startswith("XK_")}


class OtherWindow:
    """Another program's window, which remembers what is typed into it."""

    def __init__(
        self, screen, title="Other program", rect=(200, 300, 400, 200), state=None, managed=True
    ):
        self._screen = screen
        self.display = display.Display(screen.name)
        x, y = rect[:2]
        events = X.KeyPressMask | X.ButtonPressMask | X.StructureNotifyMask
        self.window = self.display.screen().root.create_window(
            *rect, 0, X.CopyFromParent,
            background_pixel=0x3050A0, override_redirect=not managed, event_mask=events,
        )
        self.window.set_wm_name(title)
        self.window.set_wm_class("other", "Other")
        self.window.set_wm_hints(
            flags=Xutil.InputHint | Xutil.StateHint, input=1, initial_state=Xutil.NormalState
        )
        self.window.set_wm_normal_hints(flags=Xutil.USPosition, x=x, y=y)
        if state:
            self._set_atoms("_NET_WM_STATE", [state])
        self.display.flush()

    @property
    def id(self):
        return self.window.id

    def set_type(self, kind):
        self._set_atoms("_NET_WM_WINDOW_TYPE", [f"_NET_WM_WINDOW_TYPE_{kind}"])

    def reserve(self, edge, size):
        """Makes the window a dock that reserves a strip of the screen for itself."""
        self.set_type("DOCK")
        at = ("left", "right", "top", "bottom").index(edge)
        strut = [0] * 12
        strut[at], strut[2 * at + 5] = size, max(self._screen.width, self._screen.height) - 1
        name = self.display.get_atom("_NET_WM_STRUT_PARTIAL")
        self.window.change_property(name, Xatom.CARDINAL, 32, strut)
        self.display.flush()

    def show(self):
        self.window.map()
        self.display.flush()
        wait_until(
            lambda: self.window.get_attributes().map_state == X.IsViewable, "the other window shown"
        )
        return self

    def take_focus(self):
        """Shows the window and waits until it has the keyboard."""
        self.show()
        if self._screen.has_window_manager():
            self._screen.activate(self.id)
        else:
            self.window.set_input_focus(X.RevertToParent, X.CurrentTime)
            self.display.flush()
        wait_until(self.has_focus, "the other window with the keyboard")
        return self

    def has_focus(self):
        return self._screen.focus() == self.id

    def typed(self):
        """The names of the keys pressed in this window since the last call."""
        names = []
        for event in self._events(X.KeyPress):
            symbol = self.display.keycode_to_keysym(event.detail, 0)
            names.append(KEY_NAMES.get(symbol, hex(symbol)))
        return names

    def clicks(self):
        """How many button presses reached this window since the last call."""
        return len(self._events(X.ButtonPress))

    def close(self):
        if self.display:
            self.display.close()
        self.display = None

    def _events(self, kind):
        self.display.sync()
        taken = [self.display.next_event() for _ in range(self.display.pending_events())]
        return [event for event in taken if event.type == kind]

    def _set_atoms(self, name, values):
        atoms = [self.display.get_atom(value) for value in values]
        self.window.change_property(self.display.get_atom(name), Xatom.ATOM, 32, atoms)


class HotKeyHolder:
    """Another program that has taken a chord for itself."""

    def __init__(self, screen, key, modifiers=X.ControlMask | X.Mod1Mask):
        self.display = display.Display(screen.name)
        code = self.display.keysym_to_keycode(XK.string_to_keysym(key))
        root = self.display.screen().root
        for locks in LOCKS:
            root.grab_key(code, modifiers | locks, True, X.GrabModeAsync, X.GrabModeAsync)
        self.display.sync()

    def presses(self):
        self.display.sync()
        taken = [self.display.next_event() for _ in range(self.display.pending_events())]
        return sum(event.type == X.KeyPress for event in taken)

    def close(self):
        self.display.close()

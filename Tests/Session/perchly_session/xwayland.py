"""Mutter and KWin without devices, and their X server."""

import os
import shutil
import time

from . import screen, sway
from .accessibility import call, connect
from .waiting import wait_until

REMOTE = "org.gnome.Mutter.RemoteDesktop"
NOTIFY = {
    "move": (f"{REMOTE}.Session.NotifyPointerMotionRelative", "(dd)"),
    "button": (f"{REMOTE}.Session.NotifyPointerButton", "(ib)"),
    "key": (f"{REMOTE}.Session.NotifyKeyboardKeysym", "(ub)"),
}


class Screen(sway.Seat, screen.Screen):
    """Sees the windows of X. On mutter, acts in the compositor; on KWin nothing can act."""

    def __init__(self, session, size):
        self._session = session
        self._remote = None
        told = session.folder / "compositor"
        script = session.folder / "tell"
        script.write_text(f"#!/bin/sh\nenv > {told}~\nmv {told}~ {told}\nexec sleep inf\n")
        script.chmod(0o700)
        width, height = size
        if session.window_manager == "mutter":
            options = ("--headless", "--wayland", "--virtual-monitor", f"{width}x{height}")
            session.spawn("mutter", *options, "--", script)
        else:
            copy = session.folder / "kwin_wayland"  # without capabilities, which containers lack
            shutil.copyfile(shutil.which("kwin_wayland"), copy)
            copy.chmod(0o700)
            session.environment["KWIN_COMPOSE"] = "Q"
            options = f"--virtual --xwayland --no-lockscreen --width {width} --height {height}"
            session.spawn(copy, *options.split(), script)
        wait_until(told.exists, "the compositor", timeout=30)
        own = dict(line.split("=", 1) for line in told.read_text().splitlines() if "=" in line)
        for name in {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY"} & own.keys():
            session.environment[name] = os.environ[name] = own[name]
        super().__init__(own["DISPLAY"])
        if session.window_manager == "mutter":
            self._bus = connect(session.bus_address)
            path = "/" + REMOTE.replace(".", "/")
            (self._remote,) = call(self._bus, REMOTE, path, f"{REMOTE}.CreateSession")
            call(self._bus, REMOTE, self._remote, f"{REMOTE}.Session.Start")
            self.move_by(-width, -height)
            self.key("Shift_L")  # gives windows a keyboard

    def _act(self, kind, *values, rest=0.0):
        if self._remote:
            call(self._bus, REMOTE, self._remote, *NOTIFY[kind], *values)
        time.sleep(rest)

    def move_by(self, dx, dy, rest=0.0):
        x, y = self._at[0] + dx, self._at[1] + dy
        self._at = min(max(x, 0), self.width - 1), min(max(y, 0), self.height - 1)
        self._act("move", dx, dy, rest=rest)

    def _name(self, key):
        return self.code(key)


class OtherWindow(sway.OtherWindow):
    """A window of Wayland, with the keyboard."""

    def show(self):
        with open(self._log, "wb") as log:
            command = ("env", "QT_QPA_PLATFORM=wayland", os.environ["PERCHLY_OTHER_WINDOW"])
            self._process = self._session.spawn(*command, stdout=log)
        self.expect_focus()
        return self

"""The Wayland side of a session, on sway without devices."""

import io
import json
import os
import struct
import subprocess
import time

from PIL import Image, ImageDraw
from Xlib import XK

from .hands import SEARCH, TOGGLE, Hands
from .other_programs import SpawnedProgram
from .screen import KEY_SECONDS, PRESS_SECONDS, Window
from .waiting import wait_until

DESKTOP = (0, 255, 0)  # shadows have no other colour
OTHER = "Other program"
BUTTONS = {1: 272, 2: 274, 3: 273}
PLAIN = ("#00ff00", "solid_color")
CONFIGURATION = """
output * bg #00ff00 solid_color
output {output} resolution {width}x{height} position 0 0 scale {scale}
default_border none
default_floating_border none
seat seat0 xcursor_theme none 1
focus_follows_mouse no
xwayland disable
for_window [title=".*"] floating enable
bar bar-0 {{
    mode invisible
    workspace_buttons no
    colors background #00ff00
}}
"""
OUTSIDE = """
default_border none
output HEADLESS-1 resolution 3000x3000
xwayland disable
default_floating_border none
for_window [title=".*"] floating enable, resize set {width} {height}
"""
NOBODY = ("setpriv", "--reuid=65534", "--regid=65534", "--clear-groups")  # sway refuses root


def invisible_pointer():
    """A transparent cursor file. Newer sway ends at scale 2 if it has only one pixel."""
    image = struct.pack("<9I", 36, 0xFFFD0002, 1, 1, 2, 2, 0, 0, 0) + bytes(16)
    return b"Xcur" + struct.pack("<3I", 16, 0x10000, 1) + struct.pack("<3I", 0xFFFD0002, 1, 28) + image


class Seat(Hands):
    """Pointer and keys of a user who has bound the chords to commands in the compositor. Needs
    _act(*words, rest) of the derived class, its _session, width and height."""

    _at = (0, 0)
    _bound = {TOGGLE: "toggle", SEARCH: "search"}

    # Pointer

    def pointer(self):
        return self._at

    def move_by(self, dx, dy, rest=0.0):
        x, y = self._at[0] + dx, self._at[1] + dy
        self._at = min(max(x, 0), self.width - 1), min(max(y, 0), self.height - 1)
        self._act("move", *self._at, self.width, self.height, rest=rest)

    def press(self, button=1):
        self._act("button", BUTTONS[button], 1, rest=PRESS_SECONDS)

    def release(self, button=1):
        self._act("button", BUTTONS[button], 0, rest=PRESS_SECONDS)

    def fling(self, *places, then):
        """Drags through these places, and moves on, in no time."""
        self._act("button", BUTTONS[1], 1)
        for x, y in places:
            self.move_by(x - self._at[0], y - self._at[1])
        self._act("button", BUTTONS[1], 0)
        self.move_by(then[0] - self._at[0], then[1] - self._at[1])

    # Keys

    def code(self, name):
        """The keysym with this name or character."""
        return XK.string_to_keysym(name) or ord(name)

    def needs_shift(self, character):
        return character.isupper() or character in '~!@#$%^&*()_+{}|:"<>?'

    def _name(self, key):
        return key if len(key) > 1 else XK.keysym_to_string(ord(key)) and f"U{ord(key):04X}"

    def hold(self, *keys):
        for key in keys:
            self._act("key", self._name(key), 1, rest=KEY_SECONDS)

    def let_go(self, *keys):
        for key in reversed(keys):
            self._act("key", self._name(key), 0, rest=KEY_SECONDS)

    def key(self, *keys):
        if keys in self._bound:
            self._session.call(self._session.executable, self._bound[keys])
        else:
            super().key(*keys)


class Screen(Seat):
    """Acts and sees like a user. Places are in pixels. Removable outputs are windows of another
    sway, which decides their size: that of the session."""

    def __init__(self, session, size, scale, removable_outputs):
        self._session = session
        self.width, self.height = size
        self._scale = scale
        folder = session.folder / "sway"
        folder.mkdir()
        (folder / "icons/none/cursors").mkdir(parents=True)
        (folder / "icons/none/cursors/left_ptr").write_bytes(invisible_pointer())
        (folder / "icons/none/index.theme").write_text("[Icon Theme]\nName=none\n")
        width, height = size
        backend = {"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1"}
        output = "HEADLESS-1"
        if removable_outputs:
            self._outside = session.folder / "outside"
            self._start(self._outside, OUTSIDE.format(width=width, height=height), **backend)
            backend = {"WLR_BACKENDS": "wayland", "WAYLAND_DISPLAY": f"{self._outside}/wayland-1"}
            output = "WL-1"
        configuration = CONFIGURATION.format(width=width, height=height, scale=scale, output=output)
        session.environment |= {
            "WAYLAND_DISPLAY": f"{folder}/wayland-1",
            "SWAYSOCK": f"{folder}/ipc",
            "XCURSOR_PATH": f"{folder}/icons",
            "XCURSOR_THEME": "none",
        }
        self._start(folder, configuration, **backend)
        self._hands = session.spawn(
            os.environ["PERCHLY_WAYLAND_HANDS"], stdin=subprocess.PIPE, stdout=subprocess.PIPE
        )
        self._hands.stdout.readline()
        blank = lambda: self.screenshot((0, 0, 1, 1)).getpixel((0, 0)) == DESKTOP
        wait_until(blank, "the desktop")

    def _start(self, folder, configuration, **backend):
        folder.mkdir(exist_ok=True)
        (folder / "config").write_text(configuration)
        own = {"WLR_RENDERER": "pixman", "WAYLAND_DISPLAY": "", "SWAYSOCK": f"{folder}/ipc"} | backend
        own |= {"XDG_RUNTIME_DIR": f"{folder}", "HOME": f"{folder}"}
        own |= {"DBUS_SESSION_BUS_ADDRESS": ""}  # refuses another user, at which swaybar stops
        command = ["env", *(f"{name}={value}" for name, value in own.items())]
        if os.getuid() == 0:
            self._session.folder.chmod(0o711)
            os.chown(folder, 65534, 65534)
            command += NOBODY
        self._session.spawn(*command, "sway", "-c", f"{folder}/config")
        wait_until((folder / "wayland-1").exists, "sway")

    def tell(self, *words):
        """Sends a command to sway, or asks it with -t."""
        return json.loads(self._session.call("swaymsg", "--raw", *words))

    def _act(self, *words, rest=0.0):
        self._hands.stdin.write(" ".join(map(str, words)).encode() + b"\n")
        self._hands.stdin.flush()
        assert self._hands.stdout.readline() == b"done\n", words
        time.sleep(rest)

    # Windows

    def _scaled(self, rect):
        return tuple(rect[side] * self._scale for side in ("x", "y", "width", "height"))

    def _tree(self):
        nodes = [self.tell("-t", "get_tree")]
        for node in nodes:
            nodes += node["nodes"] + node["floating_nodes"]
        return [node for node in nodes if node.get("pid")]

    def windows_of(self, process):
        """The visible ordinary windows of a process."""
        return [
            Window(node["id"], node["name"], self._scaled(node["rect"]))
            for node in self._tree()
            if node["pid"] == process and node["visible"]
        ]

    def origin_of(self, title):
        """Where an ordinary window is, which it does not know; None for others."""
        node = next((node for node in self._tree() if node["name"] == title), None)
        return node and self._scaled(node["rect"])[:2]

    def focus(self):
        """The id of the ordinary window with the keyboard, or 0."""
        return next((node["id"] for node in self._tree() if node["focused"]), 0)

    def frame(self, process):
        """The shelf's frame, as seen: what is darker than the desktop and no ordinary window."""
        frames = []
        for output in self.tell("-t", "get_outputs"):
            if output["active"]:
                x, y, *_ = self._scaled(output["rect"])
                picture = self._grab("-o", output["name"])
                for node in self._tree():
                    if node["name"] == OTHER:  # in the colour of the desktop
                        continue
                    left, top, width, height = self._scaled(node["rect"])
                    left, top = left - x, top - y
                    place = (left, top, left + width - 1, top + height - 1)
                    ImageDraw.Draw(picture).rectangle(place, DESKTOP)
                found = picture.split()[1].point(lambda green: 255 * (green < 90)).getbbox()
                if found:
                    left, top, right, bottom = found
                    frames.append((x + left, y + top, right - left, bottom - top))
        return frames[0] if frames else None

    def panel(self, process):
        """The shelf's window without its shadow, or None."""
        frame = self.frame(process)
        return frame and Window("panel", "Perchly", frame)

    def place(self, number, x, y, *size):
        if size:
            self.tell(f"[con_id={number}] resize set {size[0]} {size[1]}")
        self.tell(f"[con_id={number}] move absolute position {x} {y}")
        time.sleep(0.3)  # sway waits up to 0.2 s for the program

    def resize_window(self, number, height):
        self.tell(f"[con_id={number}] resize set height {height} px")

    def close_window(self, number):
        self.tell(f"[con_id={number}] kill")

    def minimize(self, number):
        self.tell(f"[con_id={number}] move to scratchpad")

    # Displays

    def set_background(self, *background):
        """Sets it on all displays, as in set_background("#00ff00", "solid_color"), and waits for it."""
        is_plain = lambda: all(self.shows(DESKTOP, x, self.height - 1, 0) for x in (0, self.width - 1))
        self.tell(f"output * bg {' '.join(map(str, background))}")
        wait_until(lambda: is_plain() == (background == PLAIN), "the background")

    def _outputs(self):
        return [output["name"] for output in self.tell("-t", "get_outputs")]

    def add_output(self, number, rect):
        """The output with this number, or another one; returns its name."""
        if number >= len(self._outputs()):
            self.tell("create_output")
        name = wait_until(self._outputs, "an output")[number]
        x, y, width, height = rect
        self.tell(f"output {name} enable resolution {width}x{height} position {x} {y}")
        self.width, self.height = max(self.width, x + width), max(self.height, y + height)
        return name

    def remove_output(self, name):
        self.tell("--socket", f"{self._outside}/ipc", f"[title={name}] kill")
        wait_until(lambda: name not in self._outputs(), f"{name} removed")

    def show_bar(self, edge, height):
        """Shows a bar at that edge of each display; returns a function that ends that."""
        for setting in (f"position {edge}", f"height {height}", "mode dock"):
            self.tell(f"bar bar-0 {setting}")
        return lambda: self.tell("bar bar-0 mode invisible")

    # Pictures

    def _grab(self, *options):
        picture = self._session.call("grim", "-t", "ppm", *options, "-")
        return Image.open(io.BytesIO(picture)).convert("RGB")

    def screenshot(self, rect=None):
        """A picture of the screen or of a part of it (x, y, width, height)."""
        picture = self._grab()
        x, y, width, height = rect or (0, 0, *picture.size)
        return picture.crop((x, y, x + width, y + height))


class OtherWindow(SpawnedProgram):
    """A window, hidden at first, that records key and button presses. state may be FULLSCREEN."""

    def __init__(self, session, rect=(200, 300, 400, 200), state=None):
        self._session = session
        self._rect = rect
        self._state = state
        self._log = session.folder / f"other-{id(self)}"
        self._read = 0

    def show(self):
        if not self._process:
            with open(self._log, "wb") as log:
                self._process = self._session.spawn(os.environ["PERCHLY_OTHER_WINDOW"], stdout=log)
            windows = lambda: self._session.screen.windows_of(self._process.pid)
            self.id = wait_until(windows, "the other window")[0].id
            self._session.screen.place(self.id, *self._rect)
            if self._state:
                self._session.screen.tell(f"[con_id={self.id}] fullscreen enable")
        return self

    def _words(self):
        return [line.split() for line in self._log.read_text().splitlines()]

    def take_focus(self):
        self.show()
        self._session.screen.tell(f"[con_id={self.id}] focus")
        self.expect_focus()
        return self

    def expect_focus(self, focus=True):
        def focused():
            told = [value for word, value in self._words() if word == "focus"]
            return told and told[-1] == str(int(focus))

        wait_until(focused, f"the other window's focus {focus}")

    def _since(self, kind):
        words, self._read = self._words()[self._read :], len(self._words())
        return [int(value) for word, value in words if word == kind]

    def typed(self):
        """The keysyms of the keys pressed in this window since the last call."""
        return self._since("key")

    def pressed(self):
        """The buttons pressed in it since the last call."""
        return self._since("press")

    def expect_typed(self, name):
        typed = lambda: self.typed() == [self._session.screen.code(name)]
        wait_until(typed, f"{name} typed into the other window")

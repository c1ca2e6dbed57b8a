"""Other programs: windows, hot keys, the clipboard, drag and drop, media players."""

import json
import os
import subprocess
import sys
import time
from pathlib import Path

from Xlib import X, Xatom, Xutil, display

from .waiting import wait_until

SCRIPTED_PLAYER = Path(__file__).parents[2] / "ScriptHost" / "scripted_player.py"
MPV = ("mpv", "--no-config", "--no-terminal")


class SpawnedProgram:
    _process = None

    def close(self):
        if self._process:
            self._process.kill()
            self._process.wait()


class OtherWindow:
    """A window, hidden at first, that records key and button presses. state and kind are the ends of
    its _NET_WM_STATE and _NET_WM_WINDOW_TYPE."""

    def __init__(self, screen, rect=(200, 300, 400, 200), state=None, kind=None, managed=True):
        self.screen = screen
        self.display = display.Display(screen.name)
        events = X.KeyPressMask | X.ButtonPressMask | X.StructureNotifyMask
        self.window = self.display.screen().root.create_window(
            *rect, 0, X.CopyFromParent,
            background_pixel=0x3050A0, override_redirect=not managed, event_mask=events,
        )
        self.id = self.window.id
        self.window.set_wm_name("Other program")
        self.window.set_wm_class("other", "Other")
        flags = Xutil.InputHint | Xutil.StateHint
        self.window.set_wm_hints(flags=flags, input=1, initial_state=Xutil.NormalState)
        self.window.set_wm_normal_hints(flags=Xutil.USPosition, x=rect[0], y=rect[1])
        for name, value in (("_NET_WM_STATE", state), ("_NET_WM_WINDOW_TYPE", kind)):
            if value:
                self.change(name, Xatom.ATOM, [self.display.get_atom(f"{name}_{value}")])

    def close(self):
        if self.display:
            self.display.close()
        self.display = None

    def events(self, kind):
        """Returns events of this kind since the last call and drops all others."""
        self.display.sync()
        taken = [self.display.next_event() for _ in range(self.display.pending_events())]
        return [event for event in taken if event.type == kind]

    def change(self, name, kind, values):
        self.window.change_property(self.display.get_atom(name), kind, 32, values)
        self.display.flush()

    def show(self):
        self.window.map()
        shown = lambda: self.window.get_attributes().map_state == X.IsViewable
        wait_until(shown, "the other window shown")
        return self

    def take_focus(self):
        """Shows the window and waits until it has the keyboard."""
        self.show()
        if self.screen.property(self.screen.root, "_NET_SUPPORTING_WM_CHECK"):
            self.screen.activate(self.id)
        else:
            self.window.set_input_focus(X.RevertToParent, X.CurrentTime)
            self.display.flush()
        self.expect_focus()
        return self

    def expect_focus(self):
        focused = lambda: self.screen.focus() == self.id
        wait_until(focused, "the other window with the keyboard")

    def typed(self):
        """The codes of the keys pressed in this window since the last call."""
        return [press.detail for press in self.events(X.KeyPress)]

    def pressed(self):
        """The button presses in it since the last call."""
        return self.events(X.ButtonPress)

    def expect_typed(self, name):
        typed = lambda: self.typed() == [self.screen.code(name)]
        wait_until(typed, f"{name} typed into the other window")


# The clipboard


def copy(session, content, target="UTF8_STRING"):
    """Copies text or bytes as another program does."""
    data = content.encode() if isinstance(content, str) else content
    command = ("xclip", "-selection", "clipboard", "-target", target)
    if session.is_wayland:
        command = ("wl-copy", "--type", target)
    quiet = {"capture_output": False, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
    session.call(*command, input=data, **quiet)


def pasted(session):
    command = ("xclip", "-selection", "clipboard", "-out")
    return session.call(*(("wl-paste", "-n") if session.is_wayland else command)).decode()


# Drag and drop


class DragPartner(SpawnedProgram):
    """A window to drag URLs from, and to drop on."""

    PLACE = (800, 600)

    def __init__(self, session, *urls):
        self._screen = session.screen
        self._said = session.folder / "drag-partner"
        with open(self._said, "wb") as said:
            command = (os.environ["PERCHLY_DRAG_PARTNER"], *urls)
            self._process = session.spawn(*command, stdout=said)
        shown = lambda: self._screen.windows_of(self._process.pid)
        window = wait_until(shown, "the drag partner's window")[0]
        if session.is_wayland:
            self._screen.place(window.id, 700, 550)

    def drag_to(self, *places):
        """Drags its URLs through the positions; returns the action of the drop."""
        return self._drag(self.PLACE, *places)

    def drag_from(self, start, meanwhile=lambda: None):
        """Drags from the start into its window; returns what was dropped."""
        x, y = self.PLACE
        places = ((start[0] + 20, start[1] + 10), (x - 20, y), (x, y))
        return json.loads(self._drag(start, *places, meanwhile=meanwhile))

    def output(self):
        return self._said.read_text()

    def _drag(self, start, *places, meanwhile=lambda: None):
        before = len(self.output())
        said = lambda: self.output()[before:].splitlines()
        self._screen.move_to(*start)
        self._screen.press()
        for place in places:
            self._screen.move_to(*place, pause=0.01)
            time.sleep(0.3)
            meanwhile()
        wait_until(said, "the drag accepted")
        self._screen.release()
        return wait_until(lambda: said()[-1] != "accepted" and said()[-1], "the drop")


# Media


def moving_picture(file):
    """Creates a video of three seconds with a tone, red for a moment, then green."""
    picture = "av://lavfi:color=c=red:s=64x48:r=10:d=0.3,tpad=stop_duration=2.7:color=green"
    options = ("--audio-file=av://lavfi:sine=d=3", "--ovc=mpeg4", "--oac=aac", f"--o={file}")
    subprocess.run([*MPV, picture, *options], check=True, timeout=20)
    return file.read_bytes()


class ScriptedPlayer(SpawnedProgram):
    """A scripted player, see Tests/ScriptHost/scripted_player.py."""

    def __init__(self, session, name="scripted", **script):
        command = (sys.executable, "-B", str(SCRIPTED_PLAYER), name, json.dumps(script))
        self._process = session.spawn(*command, stdout=subprocess.PIPE)
        self.expect("ready")

    def expect(self, word):
        """Waits until the player receives this command."""
        line = self._process.stdout.readline().decode().split()
        if not line or line[0] != word:
            raise AssertionError(f"the player was asked {line}, not {word}")

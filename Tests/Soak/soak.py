#!/usr/bin/python3
"""Uses Perchly for a compressed day in a session whose services restart, then kills it at random
moments. After the day it must use no more than before; a kill must lose nothing that was saved and
leave nothing behind. Usage: soak.py PROGRAM [--minutes N] [--kills N] [--seed N]
"""

import argparse
import contextlib
import itertools
import random
import re
import sys
import threading
import time
from collections import Counter
from pathlib import Path

from gi.repository import Gio
from Xlib import X
from Xlib.error import ConnectionClosedError

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "Benchmarks"), str(ROOT / "Tests" / "Session")]

from perchly_session.accessibility import BUS, call, connect  # noqa: E402
from perchly_session.case import AWAY, TOGGLE, WORKSPACE, User, unexpected_errors  # noqa: E402
from perchly_session.other_programs import ScriptedPlayer, copy  # noqa: E402
from perchly_session.session import Session, end  # noqa: E402
from perchly_session.sound import Sound  # noqa: E402
from perchly_session.waiting import wait_until  # noqa: E402
from processes import cost_of_a_minute  # noqa: E402

SELECTION_OWNER = ROOT / "Tests" / "Linux" / "Clipboard" / "selection_owner.py"
CLOSED, OPEN = (290, 34), (640, 660, 694)  # widths
TITLES = 300
# QtDBus, now and then
BUS_RESTARTED = "perchly: QDBusConnection: name '.*' had owner '' but we thought it was .*"


class Soak(User):
    def __init__(self, session, seed):
        self.session, self.screen = session, session.screen
        self.random = random.Random(seed)
        self.number, self.steps, self.saved = itertools.count(10000), Counter(), set()
        self.sound = Sound(session)
        self.tray = session.start_status_watcher()
        session.store(leftWidget="Quick note", persistSnippets=True)
        self.start()

    @property
    def program(self):
        if not self.started.running():
            raise ProcessLookupError(self.started.errors())
        return self.started

    def start(self):
        self.screen.move_to(*AWAY, step=100)
        self.started = self.session.run()
        self.tree = self.started.accessibility()
        self.open_workspace("Clipboard")
        self.click("Enable clipboard history for this session", "check box")
        self.close(WORKSPACE)

    # Use

    def expect_shelf(self, widths):
        frame = lambda: self.program.frame() or (0, 0, 0, 0)
        wait_until(lambda: frame()[2] in widths, f"the shelf's width in {widths}")

    def close(self, title):
        self.window(title)
        self.screen.key("Control_L", "w")
        self.expect_closed(title)

    def point(self):
        self.screen.move_to(*self.on_pill(), step=40)
        self.expect_shelf(OPEN)

    def leave(self):
        self.screen.move_to(*AWAY, step=40)
        self.expect_shelf(CLOSED)

    def hover(self):
        for _ in range(5):
            self.point()
            self.leave()

    def use_keyboard(self):
        for _ in range(3):
            self.screen.key(*TOGGLE)
            self.expect_shelf(OPEN)
            self.expect_keyboard()
            self.screen.key("Escape")
            self.expect_shelf(CLOSED)

    def dock(self, edge=None):
        along, before = self.random.randrange(100, 450), self.edge()  # AWAY stays outside
        places = {"left": (4, along), "right": (1275, along), "top": (2 * along, 4)}
        edge = edge or self.random.choice([other for other in places if other != before])
        if edge != before:
            self.screen.drag(self.on_pill(), places[edge])
            self.leave()
        wait_until(lambda: self.edge() == edge, f"the shelf at the {edge} edge")

    def edge(self):
        x, _, width, height = self.program.frame()
        return "top" if width > height else "left" if x == 0 else "right"

    def copy(self):
        """Copies a text marked as confidential, then another."""
        number = next(self.number)
        said = self.session.folder / f"secret-{number}"
        forms = (f"UTF8_STRING=secret {number}", "x-kde-passwordManagerHint=secret")
        owner = self.session.spawn(sys.executable, "-B", SELECTION_OWNER, *forms, log=said)
        asked = lambda: self.program and "asked UTF8_STRING" in said.read_text()
        wait_until(asked, "the secret read")
        copy(self.session, f"public {number}")
        end(owner)

    def capture(self):
        self.screen.key(*TOGGLE)
        self.expect_shelf(OPEN)
        self.click("Capture")
        wait_until(lambda: self.program and self.windows_of("screencapture"), "the overlay")
        self.screen.drag((300, 300), (400, 350))
        self.window(WORKSPACE)
        self.click("Clear")
        self.close(WORKSPACE)

    def save(self):
        """Pins a clip, and saves a launch group and the note."""
        number = next(self.number)
        clip, group, note = f"clip {number}", f"group {number}", f"note {number}"
        self.open_workspace("Clipboard")
        copy(self.session, clip)
        self.click("Pin", subject=clip)
        self.expect_saved(clip)
        self.choose_section("Launch")
        self.click("Workspace name", "text")
        self.screen.type_text(f"{group}\n")
        self.expect_saved(group)
        self.screen.key("Control_L", "comma")
        self.close("Perchly Settings")
        self.close(WORKSPACE)
        self.point()
        self.click("Quick note", "panel")
        self.expect_keyboard()
        self.screen.key("Control_L", "End")
        self.screen.type_text(f" {note}")
        self.expect_saved(note)
        self.screen.key("Escape")
        self.leave()

    def expect_saved(self, *texts):
        stored = lambda: str(self.session.preferences())
        is_saved = lambda: self.program and all(text in stored() for text in texts)
        wait_until(is_saved, f"{texts} saved")
        self.saved.update(texts)

    # Surroundings

    def play(self):
        """A player comes, changes its title hundreds of times, and goes."""
        player = ScriptedPlayer(self.session, "spotify")
        self.tree.find("Song · Playing")
        bus, name = connect(self.session.bus_address), "org.mpris.MediaPlayer2"
        to = (f"{name}.spotify", "/org/mpris/MediaPlayer2", f"{name}.Player")
        for number in range(TITLES):  # each becomes the title, announced by five signals
            bus.call(*to, f"Track{number}", None, None, Gio.DBusCallFlags.NONE, -1, None, None)
        bus.flush_sync()
        self.hover()
        self.tree.find(f"Track{TITLES - 1} · Playing")
        player.close()
        self.tree.expect_gone(f"Track{TITLES - 1} · Playing")

    def change_displays(self):
        self.dock("right")
        for number in range(2):
            self.session.add_monitor(number, (640 * number, 0, 640, 800))
        self.hover_at(640)
        for number, right in ((1, 640), (0, 1280)):
            self.session.call("xrandr", "--delmonitor", f"monitor{number}")
            self.hover_at(right)

    def hover_at(self, right):
        wait_until(lambda: sum(self.program.frame()[::2]) == right, f"the shelf at {right}")
        self.hover()

    def restart_desktop(self):
        """The window manager and the tray."""
        end(self.session.manager)
        self.tray.close()
        self.hover()
        self.tray = self.session.start_status_watcher()
        self.session.start_window_manager()

    def restart_servers(self):
        """Those of the session bus and of sound. Qt looks for a tray on its first bus only."""
        self.tray.close()
        bus = self.session.bus
        # Killed, it leaves the accessibility bus alone.
        launcher = ("--session", str(bus.pid), "at-spi-bus-laun")
        self.session.call("pkill", "-KILL", *launcher, check=False)
        bus.terminate()
        bus.wait()
        self.session.start_bus()
        bus = connect(self.session.bus_address)
        names = lambda: call(bus, BUS, "/", f"{BUS}.ListNames")[0]
        is_back = lambda: self.program and "org.perchly.Perchly" in names()
        wait_until(is_back, "the program on the new bus")
        self.tray = self.session.start_status_watcher()
        self.sound.stop()
        self.sound.start()

    # The day

    USES = (hover, use_keyboard, dock, copy, capture, save)
    STEPS = (restart_desktop, restart_servers, *USES, play, change_displays)

    def take(self, step):
        step(self)
        self.steps[step.__name__] += 1

    def day(self, minutes):
        for step in self.STEPS:  # which loads everything
            self.take(step)
        before, memory = self.state(), []
        for _ in range(4):
            quarter_ends = time.monotonic() + minutes * 15
            while time.monotonic() < quarter_ends:
                self.take(self.random.choice(self.STEPS))
            self.take(Soak.save)  # with the same windows opened last
            time.sleep(5)  # they return memory some seconds after they are closed
            memory.append(self.megabytes())
        print("steps:", *(f"{step} {count}" for step, count in self.steps.items()))
        print("megabytes after each quarter:", *(f"{size:.1f}" for size in memory))
        try:
            wait_until(lambda: not self.state() - before, "no more than at the start", 60)
            assert memory[3] - memory[1] < 5, "it has grown"
        finally:
            print("more than at the start:", self.state() - before)
        print(f"megabytes at rest: {self.megabytes():.1f}")
        wait_until(self.comes_to_rest, "the program at rest", 60)
        self.open_workspace("Clipboard")
        self.click("Search copied text", "text")
        self.screen.type_text("secret")
        self.tree.find("No copied text matches.")
        self.close(WORKSPACE)

    def comes_to_rest(self):
        cpu, woken = cost_of_a_minute(self.program.pid, 15)
        print(f"{cpu:.3f} CPU seconds per minute, {woken:.2f} wake-ups per second")
        return cpu < 0.1 and woken <= 1

    def megabytes(self):
        status = Path(f"/proc/{self.program.pid}/status").read_text()
        return int(re.search(r"RssAnon:\s+(\d+)", status)[1]) / 1024

    def state(self):
        """How many descriptors of each kind, threads and children the program has."""
        script = "readlink /proc/{0}/fd/*; cat /proc/{0}/task/*/comm; ps --ppid {0} -o comm="
        lines = self.output_of(script.format(self.program.pid)).splitlines()
        return Counter(re.sub(r"\d+", "", line) for line in lines)

    def output_of(self, script):
        return self.session.call("sh", "-c", script, check=False).decode()

    # Kills

    def kill(self, times):
        for _ in range(times):
            self.save()
            threading.Timer(self.random.uniform(0, 3), self.started.process.kill).start()
            try:
                while True:
                    self.random.choice(self.USES)(self)
            except Exception:  # of any kind once the program has gone
                if self.started.running():
                    raise
            assert self.started.process.returncode == -9, "it crashed"
            self.expect_nothing_left()
            self.start()
            self.expect_saved(*self.saved)
        print("kills:", times)

    def expect_nothing_left(self):
        """No grab, no process of the program or a companion, nothing on stderr."""
        self.screen.release()
        self.screen.let_go(*TOGGLE, "w")
        root, modes = self.screen.root, (X.GrabModeAsync, X.GrabModeAsync)
        pointer = lambda: root.grab_pointer(False, 0, *modes, X.NONE, X.NONE, X.CurrentTime)
        wait_until(lambda: pointer() == X.GrabSuccess, "the pointer free")
        self.screen.display.ungrab_pointer(X.CurrentTime)
        keyboard = lambda: root.grab_keyboard(False, *modes, X.CurrentTime)
        wait_until(lambda: keyboard() == X.GrabSuccess, "the keyboard free")
        self.screen.display.ungrab_keyboard(X.CurrentTime)
        self.expect_end()

    def expect_end(self, *errors):
        folder, program = str(self.session.folder), self.session.executable
        folders = lambda: self.output_of(f"pwdx $(pgrep -f '^{program}')")
        wait_until(lambda: folder not in folders(), "no process left")
        assert not (lines := unexpected_errors(self.started, *errors)), lines


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("program", type=Path)
    arguments.add_argument("--minutes", type=float, default=60)
    arguments.add_argument("--kills", type=int, default=0)
    arguments.add_argument("--seed", type=int, default=random.randrange(1_000_000))
    options = arguments.parse_args()
    print("seed:", options.seed, flush=True)
    for is_day in (True, False):
        session = Session(options.program.resolve())
        try:
            soak = Soak(session, options.seed)
            if is_day:
                soak.day(options.minutes)
            else:
                soak.kill(options.kills)
            end(session.server)
            soak.expect_end("perchly: The X11 connection broke .*", BUS_RESTARTED)
        finally:
            with contextlib.suppress(ConnectionClosedError):
                session.stop()


if __name__ == "__main__":
    main()

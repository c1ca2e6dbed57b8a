"""A second start, commands and the desktop reach the running program."""

import os
import signal
import time
from pathlib import Path

from gi.repository import GLib
from perchly_session.accessibility import call, connect
from perchly_session.case import NO_BUS, ON_X, OPEN, WORKSPACE, SessionCase
from perchly_session.waiting import wait_until

COMPLETIONS = Path(__file__).parents[2] / "Packaging/completions"
NO_ANSWER = "perchly: another instance is running, but it does not answer: .*"


class RestartTest(SessionCase):
    def start_again(self, status=0):
        """Starts the program again, which must end by itself."""
        second = self.session.run(wait=False)
        self.assertEqual(second.process.wait(20), status, second.errors())
        return second

    def test_second_start_shows_the_running_shelf(self):
        self.expected_errors = (NO_BUS, NO_ANSWER)  # eight simultaneous starts are slow
        for bus in (True, False):
            with self.subTest(bus=bus):
                self.start_session(bus=bus)
                programs = [self.session.run(wait=False) for _ in range(8)]
                running = lambda: [program for program in programs if program.running()]
                wait_until(lambda: len(running()) == 1 and running()[0].panel(), "one shelf")
                self.program = running()[0]
                self.program.kill()
                self.run_program()
                self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/no-bus"
                self.start_again()
                self.expect_open()
                self.assertTrue(self.program.running())

    def test_hanging_instance_delays_a_second_start_briefly(self):
        self.expected_errors = (NO_ANSWER,)
        self.start()
        os.kill(self.program.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.program.pid, signal.SIGCONT)
        began = time.monotonic()
        second = self.start_again(status=1)
        self.assertLess(time.monotonic() - began, 3)
        self.assertRegex(second.errors(), NO_ANSWER)

    def test_command_starts_the_program(self):
        self.start_session(bus=False)
        self.tell("quit", says="not running")
        variable = "DISPLAY" if ON_X else "WAYLAND_DISPLAY"
        display = self.session.environment.pop(variable)
        self.tell("toggle", status=1, says="needs a display")
        self.session.environment[variable] = display
        self.tell("toggle")
        pid = int(self.session.call("pgrep", "-f", f"^{self.session.executable} toggle"))
        if ON_X:
            focused = lambda: [self.screen.focus()] == [w.id for w in self.screen.windows_of(pid)]
            wait_until(focused, "the shelf with the keyboard")
        wait_until(lambda: self.screen.frame(pid) == OPEN, "the shelf open")
        self.tell("quit")
        wait_until(lambda: not os.path.exists(f"/proc/{pid}"), "the program gone")

    def test_commands_reach_the_program(self):
        self.start()
        (self.session.folder / "a b.txt").touch()
        self.tell("hold", "a b.txt", "https://example.org/")
        self.tell("hold", "a b.txt", "missing", status=1, says="“missing” is not a file")
        for name in ("workspace", "player", "focus", "dock"):
            words = self.tell(name, "?", status=2, says="one of these: ").split(": ")[-1]
            words = words.strip().strip(".").replace(",", "")
            for shell in COMPLETIONS.iterdir():
                self.assertIn(words, shell.read_text(), shell)
            for section in words.split() if name == "workspace" else ():
                self.tell("workspace", section)
                self.tree.find("Tools", "combo box", section.title())
        self.tell("workspace", "files")
        wait_until(lambda: self.tree.rows() == ["a b.txt", "https://example.org/"], "both held")
        self.tell("launch", "99", status=1, says="no entry “99”")
        self.tell("focus", "pause", status=1, says="No focus session")
        self.tell("player", "next", status=1, says="Nothing is playing")
        self.screen.key("Escape")
        self.expect_closed(WORKSPACE)
        self.tell("toggle")
        self.expect_open()
        self.expect_keyboard()
        self.tell("hide")
        self.expect_pill()

    def test_desktop_actions_reach_the_program(self):
        self.start()
        program = (connect(self.session.bus_address), "org.perchly.Perchly", "/org/perchly/Perchly")
        interface = "org.freedesktop.Application"

        def activate(action, *parameters):
            values = [GLib.Variant("s", parameter) for parameter in parameters]
            call(*program, f"{interface}.ActivateAction", "(sava{sv})", action, values, {})

        activate("workspace", "files")
        self.window(WORKSPACE)
        call(*program, f"{interface}.Open", "(asa{sv})", ["file:///etc"], {})
        wait_until(lambda: self.tree.rows() == ["etc"], "a held folder")
        with self.assertRaisesRegex(GLib.Error, "no command “explode”"):
            activate("explode")
        self.screen.key("Escape")
        self.expect_closed(WORKSPACE)
        activate("focus-start")
        self.tell("focus", "stop")
        call(*program, f"{interface}.Activate", "(a{sv})", {})
        self.expect_open()
        activate("quit")
        wait_until(lambda: not self.program.running(), "the program gone")

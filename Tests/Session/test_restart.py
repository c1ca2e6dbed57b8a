"""Restarts keep what the person set; a second start, and the desktop, reach the first."""

import itertools
import os
import signal
import time

from gi.repository import GLib

from perchly_session.accessibility import call, connect
from perchly_session.case import NO_BUS, SessionCase, main
from perchly_session.waiting import wait_until

DAY = 24 * 60 * 60
NO_ANSWER = "perchly: another instance is running, but it does not answer: .*"


class RestartTest(SessionCase):
    def start_again(self):
        """A second start, which must end by itself."""
        second = self.session.run(wait=False)
        self.assertEqual(second.process.wait(20), 0, second.errors())
        return second

    def test_a_restart_keeps_everything(self):
        kept = {
            "shelfTheme": "Ocean",
            "shelfAccent": "Orange",
            "compactMode": True,
            "focusDay": time.time() // DAY * DAY,  # the session's time zone is UTC
            "focusSessions": 3,
            "focusTotalMinutes": 75,
            "aKeyOfALaterVersion": "kept",
        }
        self.start(kept | {"openOnHover": False})
        self.screen.drag(self.on_pill(), (1277, 300))
        self.screen.move_to(*self.away())
        docked = self.compact_frame("right", (799 - 300) / 800)
        self.expect_frame(docked, "the strip at the right edge")
        before = self.session.preferences()
        self.assertEqual(before | kept, before)
        self.assertIn(self.program.stop(), (0, -15))
        self.run_program()
        self.expect_frame(docked, "the strip in its place again")
        self.assertEqual(self.session.preferences(), before)

    def test_a_second_start_shows_the_first_ones_shelf(self):
        self.expected_errors = (NO_BUS,)
        for first_has_bus, second_has_bus in itertools.product((True, False), repeat=2):
            with self.subTest(first=first_has_bus, second=second_has_bus):
                self.start_session()
                bus = self.session.bus_address

                def let_reach_bus(can):
                    address = bus if can else f"unix:path={self.session.folder}/no-bus"
                    self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = address

                let_reach_bus(first_has_bus)
                self.run_program()
                self.program.kill()  # which does not stand in the way
                self.run_program()
                let_reach_bus(second_has_bus)
                self.start_again()
                self.expect_frame(self.expanded_frame(), "the first one's shelf")
                self.assertTrue(self.program.running())

    def test_one_of_many_simultaneous_starts_wins(self):
        self.expected_errors = (NO_BUS, NO_ANSWER)  # eight starts make one another slow
        for bus in (True, False):
            with self.subTest(bus=bus):
                session = self.start_session(bus=bus)
                programs = [session.run(wait=False) for _ in range(8)]
                wait_until(lambda: sum(p.running() for p in programs) == 1, "one left")
                wait_until(lambda: any(p.panel() for p in programs), "its shelf")
                self.assertEqual(sum(p.running() for p in programs), 1)

    def test_a_first_that_hangs_holds_the_second_up_shortly(self):
        self.expected_errors = (NO_ANSWER,)
        self.start()
        os.kill(self.program.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.program.pid, signal.SIGCONT)
        began = time.monotonic()
        second = self.start_again()
        self.assertLess(time.monotonic() - began, 3)
        self.assertRegex(second.errors(), NO_ANSWER)

    def test_a_runtime_folder_that_others_may_write_is_not_trusted(self):
        wrong = "perchly: QStandardPaths: wrong permissions on runtime directory .*/everybodys, .*"
        unset = "perchly: QStandardPaths: XDG_RUNTIME_DIR not set, .*"
        self.expected_errors = (NO_BUS, wrong, unset)
        self.start_session(bus=False)
        folder = self.session.folder / "everybodys"
        folder.mkdir()
        folder.chmod(0o777)
        self.session.environment["XDG_RUNTIME_DIR"] = str(folder)
        self.run_program()
        self.assertEqual(list(folder.glob("perchly*")), [])
        self.session.environment["XDG_RUNTIME_DIR"] = ""
        self.start_again()
        self.expect_frame(self.expanded_frame(), "the first one's shelf")

    def test_the_desktops_actions_reach_the_program(self):
        self.start()
        bus = connect(self.session.bus_address)

        def ask(method, signature, *arguments):
            name, path = "org.perchly.Perchly", "/org/perchly/Perchly"
            values = GLib.Variant(signature, arguments)
            call(bus, name, path, "org.freedesktop.Application", method, values)

        for action, title in (
            ("workspace", "Perchly Workspace"),
            ("mixer", "Perchly Volume Mixer"),
            ("settings", "Perchly Settings"),
        ):
            ask("ActivateAction", "(sava{sv})", action, [], {})
            wait_until(lambda: self.program.window(title), title)
        ask("ActivateAction", "(sava{sv})", "quit", [], {})
        ask("Open", "(asa{sv})", ["file:///etc"], {})
        self.keeps_frame(self.compact_frame(), "the pill", 0.3)
        ask("Activate", "(a{sv})", {})
        self.expect_frame(self.expanded_frame(), "the shelf")


if __name__ == "__main__":
    main()

"""A second start, and the desktop, reach the running program."""

import os
import signal
import time

from perchly_session.accessibility import call, connect
from perchly_session.case import NO_BUS, PILL, SessionCase
from perchly_session.waiting import wait_until

NO_ANSWER = "perchly: another instance is running, but it does not answer: .*"


class RestartTest(SessionCase):
    def start_again(self):
        """Starts the program again, which must end by itself."""
        second = self.session.run(wait=False)
        self.assertEqual(second.process.wait(20), 0, second.errors())
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
        second = self.start_again()
        self.assertLess(time.monotonic() - began, 3)
        self.assertRegex(second.errors(), NO_ANSWER)

    def test_desktop_actions_reach_the_program(self):
        self.start()
        program = (connect(self.session.bus_address), "org.perchly.Perchly", "/org/perchly/Perchly")
        interface = "org.freedesktop.Application"

        def activate(action):
            call(*program, f"{interface}.ActivateAction", "(sava{sv})", action, [], {})

        for action in ("Workspace", "Volume Mixer", "Settings"):
            activate(action.rpartition(" ")[2].lower())
            self.window(f"Perchly {action}")
        activate("quit")  # ignored: only the user may quit
        call(*program, f"{interface}.Open", "(asa{sv})", ["file:///etc"], {})
        self.keeps_frame(PILL, "the pill", 0.3)
        call(*program, f"{interface}.Activate", "(a{sv})", {})
        self.expect_open()

"""Files and links dropped from another program."""

import os
import subprocess
import time

from perchly_session.case import SessionCase, main
from perchly_session.waiting import wait_until

SOURCE = (200, 600)


class DroppingTest(SessionCase):
    def start_beside_a_source(self):
        self.start()
        self.source = subprocess.Popen(
            [os.environ["PERCHLY_DRAG_SOURCE"]],
            env=self.session.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            text=True,
        )
        self.addCleanup(self.source.wait)
        self.addCleanup(self.source.kill)
        wait_until(lambda: self.screen.windows_of(self.source.pid), "the source's window")

    def drag_to(self, *places):
        """Drags from the source by way of the places; the last one is where it is let go."""
        self.screen.move_to(*SOURCE)
        self.screen.press()
        for place in places:
            self.screen.move_to(*place, pause=0.01)
            time.sleep(0.3)
        self.screen.release()
        return self.source.stdout.readline().strip()

    def test_what_is_dropped_is_held_and_stays_where_it_was(self):
        for name, places in (
            ("on the pill", [(640, 20), (642, 17)]),
            ("on the open shelf", [(640, 17), (640, 200), (644, 204)]),
        ):
            with self.subTest(name):
                self.start_beside_a_source()
                self.assertEqual(self.drag_to(*places), "copy")
                self.screen.move_to(640, 100)
                self.screen.move_to(642, 100)
                self.program.accessibility().find("3 held")
                self.screen.move_to(*self.away())
                self.program.accessibility().find("File shelf · 3 held")


if __name__ == "__main__":
    main()

"""What the person set stays set: over restarts, second starts, bad files and kills."""

import json
import random
import subprocess
import time

from perchly_session.case import SessionCase, main
from perchly_session.waiting import wait_until

DAY = 24 * 60 * 60
KILLS = 120


class RestartTest(SessionCase):
    def today(self):
        """The start of today as the session's programs see it: their time zone is UTC."""
        return time.time() // DAY * DAY

    def start_again(self):
        return subprocess.run(
            [self.session.executable],
            env=self.session.environment,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            timeout=20,
        )

    def test_a_restart_keeps_everything(self):
        kept = {
            "shelfTheme": "Ocean",
            "shelfAccent": "Orange",
            "compactMode": True,
            "focusDay": self.today(),
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

    def test_totals_of_another_day_are_cleared(self):
        self.start({"focusDay": self.today() - DAY, "focusSessions": 3, "focusTotalMinutes": 75})

        def cleared():
            stored = self.session.preferences()
            return (stored["focusSessions"], stored["focusTotalMinutes"]) == (0, 0)

        wait_until(cleared, "the totals of yesterday cleared")
        self.assertEqual(self.session.preferences()["focusDay"], self.today())

    def test_a_second_start_shows_the_first_ones_shelf(self):
        for bus in (True, False):
            with self.subTest(bus=bus):
                self.start(bus=bus)
                self.expect_frame(self.compact_frame(), "the pill")
                second = self.start_again()
                self.assertEqual(second.returncode, 0, second.stderr)
                self.expect_frame(self.expanded_frame(), "the first one's shelf")
                self.assertTrue(self.program.running())

    def test_a_killed_program_does_not_stand_in_the_way(self):
        for bus in (True, False):
            with self.subTest(bus=bus):
                self.start(bus=bus)
                self.program.kill()
                self.run_program()
                self.expect_frame(self.compact_frame(), "the pill of the new program")

    def test_a_file_that_is_not_ours_is_set_aside(self):
        for content in ('{"shelfEdge": "left", "shelf', "[1, 2, 3]", "", "\0\0\0\0"):
            with self.subTest(content=content):
                self.start_session()
                file = self.session.preferences_file
                file.parent.mkdir(parents=True)
                file.write_text(content)
                self.run_program()
                self.expect_frame(self.compact_frame(), "the pill as by default")
                self.screen.drag(self.on_pill(), (4, 400))
                wait_until(
                    lambda: self.session.preferences().get("shelfEdge") == "left",
                    "new preferences stored",
                )
                if content:
                    kept = [f.read_text() for f in file.parent.iterdir() if f.is_file()]
                    self.assertIn(content, kept)

    def test_values_of_the_wrong_type_read_as_the_defaults(self):
        wrong = {
            "shelfEdge": 5,
            "shelfEdgePosition": "low",
            "displayIndex": "2",
            "shelfScale": "big",
            "openOnHover": "no",
            "hoverDelay": True,
            "shelfTheme": 3,
            "shelfOpacity": "half",
            "compactMode": "yes",
            "leftWidget": False,
        }
        self.start(wrong)
        self.expect_frame(self.compact_frame(), "the pill")
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open")
        self.screen.move_to(*self.away())
        self.expect_frame(self.compact_frame(), "the shelf closed")
        stored = self.session.preferences()
        self.assertEqual(stored | wrong, stored)

    def test_a_kill_in_mid_write_loses_nothing(self):
        """Each drag stores three values; the program is killed at any moment after the release.
        What was there before the drag, or what the drag stored, must be there afterwards."""
        random.seed(7)
        self.start_session()
        self.session.store(
            shelfEdge="top", shelfEdgePosition=0.5, openOnHover=False, quickNote="mine " * 4000
        )
        torn = []
        moved = 0
        for number in range(KILLS):
            program = self.run_program()
            x, y, width, height = program.frame()
            self.screen.move_to(x + width // 2, 17, step=2000)
            before = self.session.preferences()
            self.screen.press()
            self.screen.move_by(8 if number % 2 else -8, 0)
            self.screen.release(rest=random.uniform(0, 0.03))
            program.kill()
            try:
                after = self.session.preferences()
            except json.JSONDecodeError as problem:
                torn.append((number, str(problem)))
                continue
            moved += after["shelfEdgePosition"] != before["shelfEdgePosition"]
            changed = {key for key in after if after[key] != before.get(key)}
            lost = {key for key in before if key not in after}
            if lost or changed - {"shelfEdgePosition", "displayIndex", "shelfEdge"} - FOCUS_KEYS:
                torn.append((number, changed, lost))
        self.assertEqual(torn, [])
        self.assertGreater(moved, KILLS // 10, "no kill came after a write")
        self.assertLess(moved, KILLS, "no kill came before a write")
        self.run_program()
        folder = self.session.preferences_file.parent
        wait_until(lambda: len(list(folder.iterdir())) <= 2, "the temporary files swept")


FOCUS_KEYS = {"focusDay", "focusSessions", "focusTotalMinutes"}

if __name__ == "__main__":
    main()

"""The shelf opens under the pointer and closes when the pointer has left."""

import time

from perchly_session.case import SessionCase, main
from perchly_session.waiting import wait_until

EARLY = 0.08  # the part by which a timer that saves wake-ups may be early, and our own slack
SETTLING = 0.5  # the window keeps the open size for the closing animation


class HoverTest(SessionCase):
    def open_by_hovering(self):
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open under the pointer")

    def seconds_to_close(self):
        """Leaves the open shelf in one movement; returns when it had closed and when its window
        had settled, in seconds from then."""
        self.screen.move_to(640, 515)
        self.assertEqual(self.program.frame(), self.expanded_frame())
        self.screen.move_by(0, 30)
        left = time.monotonic()
        wait_until(lambda: self.program.outline() == self.compact_frame(), "the shelf closed")
        closed = time.monotonic() - left
        self.expect_frame(self.compact_frame(), "the window small again")
        return closed, time.monotonic() - left

    def test_the_pill_hangs_at_the_top_centre_and_takes_no_keyboard(self):
        self.start_session()
        other = self.other_window().take_focus()
        self.run_program()
        self.expect_frame(self.compact_frame(), "the pill")
        self.open_by_hovering()
        self.screen.key("a")
        wait_until(lambda: other.typed() == ["a"], "the key typed into the other window")

    def test_the_topmost_pixels_belong_to_the_pill(self):
        self.start()
        self.screen.move_to(300, 0)
        self.keeps_frame(self.compact_frame(), "the pill with the pointer beside it", 0.3)
        self.screen.move_to(640, 0, step=400)
        self.expect_frame(self.expanded_frame(), "the shelf open")

    def test_it_closes_after_the_usual_delay(self):
        self.start()
        self.open_by_hovering()
        closed, settled = self.seconds_to_close()
        for measured, wanted in ((closed, 0.35), (settled, 0.35 + SETTLING)):
            self.assertGreater(measured, wanted * (1 - EARLY))
            self.assertLess(measured, wanted + 1.0)

    def jump_away(self):
        self.screen.root.warp_pointer(640, 740)
        self.screen.display.sync()
        self.expect_frame(self.compact_frame(), "the shelf closed")

    def test_a_pointer_that_jumps_away_is_noticed(self):
        self.start()
        for milliseconds in range(0, 32, 4):  # while the shelf is opening
            self.screen.move_by(0, 20 - self.screen.pointer()[1])
            time.sleep(milliseconds / 1000)
            self.jump_away()
        for y in (20, 300, 510):  # on the header, on a card, below what is shown
            with self.subTest(y=y):
                self.open_by_hovering()
                self.screen.move_to(640, y)
                time.sleep(0.4)
                self.assertEqual(self.program.frame(), self.expanded_frame())
                self.jump_away()

    def test_an_open_shelf_wakes_nobody(self):
        self.start()
        self.open_by_hovering()
        self.screen.move_to(640, 200)
        wait_until(self.program.rests, "the shelf at rest")
        before = self.program.wake_ups()
        time.sleep(2)
        self.assertLess(self.program.wake_ups() - before, 6)


if __name__ == "__main__":
    main()

"""The shelf opens under the pointer and closes when the pointer has left."""

import time

from perchly_session.case import SessionCase, main
from perchly_session.waiting import wait_until


class HoverTest(SessionCase):
    def open_by_hovering(self):
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open under the pointer")

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

    def test_a_pointer_that_jumps_away_is_noticed(self):
        self.start()
        self.open_by_hovering()
        time.sleep(0.4)
        self.screen.root.warp_pointer(640, 740)
        self.screen.display.sync()
        self.expect_frame(self.compact_frame(), "the shelf closed")


if __name__ == "__main__":
    main()

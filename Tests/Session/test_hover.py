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

    def test_the_first_movement_onto_the_pill_opens(self):
        self.start()
        compact = self.compact_frame()
        self.screen.move_to(640, 34)
        self.keeps_frame(compact, "the pill with the pointer one pixel below it", 0.4)
        self.screen.move_by(0, -1)
        self.expect_frame(self.expanded_frame(), "the shelf open")

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
        self.assertGreater(closed, 0.35 - EARLY * 0.35)
        self.assertLess(closed, 0.35 + 1.0)
        self.assertGreater(settled, (0.35 + SETTLING) * (1 - EARLY))
        self.assertLess(settled, 0.35 + SETTLING + 1.0)

    def test_a_stored_delay_is_used(self):
        self.start({"hoverDelay": 1.5})
        self.open_by_hovering()
        closed, _ = self.seconds_to_close()
        self.assertGreater(closed, 1.5 - EARLY * 1.5)
        self.assertLess(closed, 1.5 + 1.0)

    def test_it_stays_open_when_the_pointer_comes_back_in_time(self):
        self.start({"hoverDelay": 1.0})
        self.open_by_hovering()
        for _ in range(3):
            self.screen.move_to(640, 540)
            self.keeps_frame(self.expanded_frame(), "open with the pointer outside", 0.3)
            self.screen.move_to(640, 500)
            self.keeps_frame(self.expanded_frame(), "open with the pointer back", 0.9)

    def test_without_open_on_hover_only_a_click_opens(self):
        self.start({"openOnHover": False})
        self.screen.move_to(*self.on_pill())
        self.screen.move_by(5, 5)
        self.keeps_frame(self.compact_frame(), "the pill under the pointer", 0.6)
        self.screen.click(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf opened by the click")

    def test_a_screen_reader_hears_the_pill_and_the_toolbar(self):
        self.start()
        tree = self.program.accessibility()
        tree.find("Perchly · Ready")
        self.open_by_hovering()
        for name in ("Settings", "Search", "Capture", "Mixer", "Workspace", "Focus", "Quit"):
            with self.subTest(button=name):
                self.assertEqual(tree.find(name).role, "push button")
        nodes = [node for node in tree.application().walk() if node.role == "push button"]
        self.assertEqual([n.extents for n in nodes if n.showing and not n.name], [])


if __name__ == "__main__":
    main()

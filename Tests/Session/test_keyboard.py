"""Keyboard mode: the shelf takes the keyboard and gives it back to the window that had it."""

import time

from perchly_session.case import TOGGLE, SessionCase, main
from perchly_session.waiting import wait_until


class KeyboardTest(SessionCase):
    def start_beside_another_window(self, **options):
        self.start_session(**options)
        self.other = self.other_window(rect=(100, 600, 300, 120)).take_focus()
        self.run_program()

    def expect_open_with_keyboard(self):
        self.expect_frame(self.expanded_frame(), "the shelf open")
        wait_until(
            lambda: self.screen.focus() == self.program.panel().id, "the shelf with the keyboard"
        )

    def expect_closed_and_keyboard_back(self):
        wait_until(self.other.has_focus, "the other window with the keyboard")
        self.expect_frame(self.compact_frame(), "the shelf closed")
        self.other.typed()
        self.screen.key("a")
        wait_until(lambda: self.other.typed() == ["a"], "the key typed into the other window")

    def test_the_chord_opens_and_either_key_closes(self):
        self.start_beside_another_window()
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        self.screen.move_to(*self.on_pill())
        self.screen.move_to(*self.away())
        self.keeps_frame(self.expanded_frame(), "open with the pointer elsewhere", 1.0)
        self.screen.key("b")
        for closing in (("Escape",), TOGGLE):
            self.screen.key(*closing)
            self.expect_closed_and_keyboard_back()
            self.screen.key(*TOGGLE)
            self.expect_open_with_keyboard()

    def test_a_click_on_the_header_toggles(self):
        self.start_beside_another_window()
        self.screen.click(*self.on_pill())
        self.expect_open_with_keyboard()
        self.screen.move_to(*self.away())
        self.keeps_frame(self.expanded_frame(), "open with the pointer elsewhere", 0.8)
        self.screen.click(640, 17)
        wait_until(self.other.has_focus, "the other window with the keyboard")
        # The pointer is still on the pill, so the shelf is open again by hovering at its next
        # movement and closes by itself when the pointer leaves.
        self.screen.move_to(*self.away())
        self.expect_closed_and_keyboard_back()

    def test_escape_means_the_other_window_unless_the_shelf_has_the_keyboard(self):
        self.start_beside_another_window()
        third = self.other_window("Third program", (700, 600, 300, 120)).take_focus()
        self.other.take_focus()
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open by hovering")
        self.screen.key("Escape")
        wait_until(lambda: self.other.typed() == ["Escape"], "Escape typed into the other window")
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        self.screen.click(850, 660)
        wait_until(third.has_focus, "the third window with the keyboard after a click")
        self.screen.key("Escape")
        wait_until(lambda: third.typed() == ["Escape"], "Escape typed into the third window")
        self.keeps_frame(self.expanded_frame(), "the shelf open without the keyboard", 0.5)
        self.screen.key(*TOGGLE)
        self.expect_frame(self.compact_frame(), "the shelf closed")
        self.assertTrue(third.has_focus(), "the keyboard was taken from the window in use")

    def test_without_a_window_manager_the_keyboard_comes_back_too(self):
        self.start_beside_another_window(window_manager=None)
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        self.screen.move_to(250, 660)
        for wheel_button in (4, 5):
            self.screen.press(wheel_button)
            self.screen.release(wheel_button)
        time.sleep(0.4)
        self.assertEqual(self.screen.focus(), self.program.panel().id, "scrolling took the keyboard")
        self.screen.key("Escape")
        self.expect_closed_and_keyboard_back()

    def test_a_window_closed_meanwhile_is_no_trouble(self):
        self.start_beside_another_window()
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        self.other.close()
        time.sleep(0.3)  # the window manager looks for another window meanwhile
        self.expect_open_with_keyboard()
        self.screen.key("Escape")
        self.expect_frame(self.compact_frame(), "the shelf closed")
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()


if __name__ == "__main__":
    main()

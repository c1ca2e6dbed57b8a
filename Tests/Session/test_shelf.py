"""The shelf opens and closes by pointer and keyboard, and leaves the keyboard to other windows."""

import time
import unittest
from pathlib import Path

from Xlib import X

from perchly_session.accessibility import FOCUSED
from perchly_session.case import (
    AWAY, NO_BUS, ON_X, OPEN, PILL, SEARCH, TOGGLE, WORKSPACE, SessionCase, on_x_only,
)
from perchly_session.screen import Screen
from perchly_session.waiting import wait_until, wait_while

LOCK_KEYS = {"Caps_Lock": X.LockMask, "Num_Lock": X.Mod2Mask}


class ShelfTest(SessionCase):
    def start_beside_other_window(self, **options):
        self.start_session(**options)
        self.other = self.other_window((100, 600, 300, 120)).take_focus()
        self.run_program()
        self.expect_pill()

    def expect_open_with_keyboard(self):
        self.expect_open()
        self.expect_keyboard()

    def expect_closed_and_keyboard_back(self):
        self.other.expect_focus()
        self.expect_pill()
        self.other.typed()
        self.screen.key("a")
        self.other.expect_typed("a")

    # Hovering

    def test_hovering_opens_without_taking_the_keyboard(self):
        self.start_beside_other_window()
        self.screen.move_to(300, 0)
        self.keeps_frame(PILL, "the pill with the pointer beside it", 0.3)
        self.screen.move_to(640, 0, step=400)  # the top row of pixels
        self.expect_open()
        self.screen.key("a")
        self.other.expect_typed("a")
        self.screen.move_to(640, 200)
        wait_until(self.program.rests, "the shelf at rest")
        before = self.program.wake_ups()
        time.sleep(2)
        self.assertLess(self.program.wake_ups() - before, 6)
        maps = Path(f"/proc/{self.program.pid}/maps").read_text()
        self.assertNotIn("libLLVM", maps, "drivers that it does not need")

    # The keyboard

    def test_chord_opens_and_chord_or_escape_closes(self):
        self.start_beside_other_window()
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        self.screen.move_to(*self.on_pill())
        self.screen.move_to(*AWAY)
        self.keeps_frame(OPEN, "open with the pointer elsewhere", 1.0)
        for closing in (("Escape",), TOGGLE):
            self.screen.key(*closing)
            self.expect_closed_and_keyboard_back()
            self.screen.key(*TOGGLE)
            self.expect_open_with_keyboard()
        self.other.close()
        time.sleep(0.3)  # the window manager may look for another active window
        self.expect_open_with_keyboard()
        self.screen.key("Escape")
        self.expect_pill()
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()

    def test_escape_goes_to_the_window_with_the_keyboard(self):
        self.start_beside_other_window()
        third = self.other_window((700, 600, 300, 120)).take_focus()
        self.other.take_focus()
        self.hover()
        self.screen.key("Escape")
        self.other.expect_typed("Escape")
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        self.screen.click(850, 660)
        if not ON_X:
            self.expect_pill()  # a press elsewhere only closes it
            self.screen.click(850, 660)
        third.expect_focus()
        self.expect_pill()
        self.screen.key("Escape")
        third.expect_typed("Escape")
        self.assertEqual(self.screen.focus(), third.id, "the keyboard was taken from its user")

    @unittest.skipIf(ON_X, "about Wayland")
    def test_shelf_closes_if_a_menu_has_the_keyboard(self):
        self.start_beside_other_window()
        self.screen.click(200, 650, button=3)
        self.tell("toggle")
        wait_until(lambda: self.program.frame() != PILL, "the shelf opening")
        self.expect_pill()

    @on_x_only
    def test_keyboard_returns_without_bus_and_window_manager(self):
        self.expected_errors = (NO_BUS,)
        self.start_beside_other_window(bus=False, window_manager=None)
        self.hover()
        self.leave()
        self.screen.key(*TOGGLE)
        self.expect_open_with_keyboard()
        for wheel_button in (4, 5):
            self.screen.click(250, 660, wheel_button)
        panel = self.program.panel().id
        wait_while(lambda: self.screen.focus() == panel, "the keyboard after scrolling", 0.4)
        self.screen.key("Escape")
        self.expect_closed_and_keyboard_back()
        self.assertEqual(len(self.program.errors().splitlines()), 1)

    # The chords

    @on_x_only
    def test_chord_ignores_lock_keys_but_not_modifiers(self):
        self.start_beside_other_window()
        for key, bit in LOCK_KEYS.items():
            self.screen.key(key)
            wait_until(lambda: self.screen.root.query_pointer().mask & bit, f"{key} on")
            self.screen.key(*TOGGLE)
            self.expect_open()
            self.screen.key(*TOGGLE)
            self.expect_pill()
        self.screen.key("Shift_L", *TOGGLE)
        self.keeps_frame(PILL, "the pill", 0.5)
        self.other.typed()
        self.screen.hold(*TOGGLE)
        time.sleep(1.2)  # long enough for key repeat
        self.screen.let_go(*TOGGLE)
        self.expect_open()
        self.assertNotIn(self.screen.code("space"), self.other.typed())

    @on_x_only
    def test_another_program_keeps_its_chord(self):
        self.start_session()
        other = self.other_window()
        root, mode = other.display.screen().root, X.GrabModeAsync
        modifiers = X.ControlMask | X.Mod1Mask
        for key in ("space", "j"):
            root.grab_key(self.screen.code(key), modifiers, True, mode, mode)
        other.display.sync()
        self.run_program()
        self.screen.key(*TOGGLE)
        wait_until(lambda: other.events(X.KeyPress), "the key press in the other program")
        self.keeps_frame(PILL, "the pill", 0.5)
        self.screen.key(*SEARCH)
        self.window(WORKSPACE)
        self.screen.key("Control_L", "comma")
        self.window("Perchly Settings")
        self.click("Preferences", "radio button")
        field = "Toggle shelf", "push button"
        while not (found := self.tree.look_for(*field)) or not found.has(FOCUSED):
            self.screen.key("Tab")
        self.screen.key("Return")
        self.screen.key("Control_L", "Alt_L", "j")
        self.tree.find("Could not register Ctrl+Alt+J. Another app may use that shortcut.")

    @on_x_only
    def test_chords_follow_the_keyboard_layout(self):
        self.start()
        self.session.call("setxkbmap", "us", "-variant", "dvorak")
        hands = Screen(self.screen.name)

        def opens():  # after the program has read the layout
            hands.key(*SEARCH)
            return self.program.window(WORKSPACE)

        wait_until(opens, "the workspace", interval=0.2)

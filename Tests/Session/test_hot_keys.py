"""The two chords that work wherever the person is."""

import subprocess
import time

from Xlib import X

from perchly_session.case import TOGGLE, SessionCase, main
from perchly_session.other_programs import HotKeyHolder
from perchly_session.screen import Screen
from perchly_session.waiting import wait_until, wait_while

SEARCH = ("Control_L", "Alt_L", "k")
LOCK_KEYS = {"Caps_Lock": X.LockMask, "Num_Lock": X.Mod2Mask}


class HotKeyTest(SessionCase):
    def workspace(self):
        return self.program.window("Perchly Workspace")

    def test_locks_do_not_matter_and_other_modifiers_do(self):
        self.start()
        for key, bit in LOCK_KEYS.items():
            self.screen.key(key)
            wait_until(lambda: self.screen.locks() & bit, f"{key} on")
            self.screen.key(*TOGGLE)
            self.expect_frame(self.expanded_frame(), "the shelf open")
            self.screen.key(*TOGGLE)
            self.expect_frame(self.compact_frame(), "the shelf closed")
        self.screen.key("Shift_L", *TOGGLE)
        self.keeps_frame(self.compact_frame(), "the pill", 0.5)

    def test_a_chord_held_by_another_program_stays_its_own(self):
        self.start_session()
        holder = HotKeyHolder(self.screen, "space")
        self.addCleanup(holder.close)
        self.run_program()
        self.screen.key(*TOGGLE)
        wait_until(lambda: holder.presses() == 1, "the press with the other program")
        self.keeps_frame(self.compact_frame(), "the pill", 0.5)
        self.screen.key(*SEARCH)
        wait_until(self.workspace, "the workspace")

    def test_a_held_chord_counts_once_and_reaches_no_other_window(self):
        self.start_session()
        other = self.other_window().take_focus()
        self.run_program()
        self.screen.hold(*TOGGLE)
        time.sleep(1.2)  # the server repeats a held key by now
        self.screen.let_go(*TOGGLE)
        self.expect_frame(self.expanded_frame(), "the shelf open")
        self.assertNotIn("space", other.typed())

    def test_the_chord_stays_held_while_a_keyboard_announces_itself(self):
        self.start()
        code = self.screen.code("space")
        keysyms = self.screen.display.get_keyboard_mapping(code, 1)
        for _ in range(5):
            self.screen.display.change_keyboard_mapping(code, keysyms)
            self.screen.display.sync()
            held = lambda: self.screen.is_held("space", X.ControlMask | X.Mod1Mask)
            wait_while(held, "the chord the program's", 0.15, interval=0)

    def test_the_chords_follow_the_keyboard_layout(self):
        self.start()
        command = ["setxkbmap", "us", "-variant", "dvorak"]
        subprocess.run(command, env=self.session.environment, check=True)
        hands = Screen(self.screen.name)
        self.addCleanup(hands.close)

        def opens():  # until the program has heard of the layout
            hands.key(*SEARCH)
            return self.workspace()

        wait_until(opens, "the workspace", interval=0.2)


if __name__ == "__main__":
    main()

"""The two chords that work wherever the person is."""

import subprocess

from Xlib import X

from perchly_session.case import SessionCase, main
from perchly_session.other_programs import HotKeyHolder
from perchly_session.screen import Screen
from perchly_session.waiting import wait_until

TOGGLE = ("Control_L", "Alt_L", "space")
SEARCH = ("Control_L", "Alt_L", "k")
LOCK_KEYS = {"Caps_Lock": X.LockMask, "Num_Lock": X.Mod2Mask}


class HotKeyTest(SessionCase):
    def expect_workspace(self):
        return wait_until(lambda: self.program.window("Perchly Workspace"), "the workspace window")

    def set_locks(self, wanted):
        for key, bit in LOCK_KEYS.items():
            if bool(self.screen.locks() & bit) != (key in wanted):
                self.screen.key(key)
        bits = sum(LOCK_KEYS[key] for key in wanted)
        wait_until(lambda: self.screen.locks() == bits, f"the locks {wanted}")

    def test_both_chords_work_whatever_is_locked(self):
        self.start()
        for wanted in ((), ("Caps_Lock",), ("Num_Lock",), ("Caps_Lock", "Num_Lock")):
            with self.subTest(locks=wanted):
                self.set_locks(wanted)
                self.screen.key(*TOGGLE)
                self.expect_frame(self.expanded_frame(), "the shelf open")
                self.screen.key(*SEARCH)
                workspace = self.expect_workspace()
                self.expect_frame(self.compact_frame(), "the shelf closed for the workspace")
                self.screen.close_window(workspace)
                wait_until(
                    lambda: not self.program.window("Perchly Workspace"), "the workspace closed"
                )
        self.set_locks(())

    def test_a_toggle_held_by_another_program_stays_its_own(self):
        self.start_session()
        holder = HotKeyHolder(self.screen, "space")
        self.addCleanup(holder.close)
        self.run_program()
        self.screen.key(*TOGGLE)
        wait_until(lambda: holder.presses() == 1, "the press with the other program")
        self.keeps_frame(self.compact_frame(), "the pill", 0.5)
        self.screen.key(*SEARCH)
        self.expect_workspace()

    def test_a_search_chord_held_by_another_program_leaves_the_toggle(self):
        self.start_session()
        holder = HotKeyHolder(self.screen, "k")
        self.addCleanup(holder.close)
        self.run_program()
        self.screen.key(*SEARCH)
        wait_until(lambda: holder.presses() == 1, "the press with the other program")
        self.screen.key(*TOGGLE)
        self.expect_frame(self.expanded_frame(), "the shelf open")
        self.assertIsNone(self.program.window("Perchly Workspace"))

    def test_the_chords_follow_a_change_of_the_keyboard_layout(self):
        self.start()
        subprocess.run(
            ["setxkbmap", "-layout", "us", "-variant", "dvorak"],
            env=self.session.environment,
            check=True,
        )
        hands = Screen(self.screen.name)
        self.addCleanup(hands.close)

        def opens():
            hands.key(*SEARCH)
            return self.program.window("Perchly Workspace")

        wait_until(opens, "the workspace by the new place of its key", interval=0.2)

    def test_the_chords_reach_no_other_window(self):
        self.start_session()
        other = self.other_window().take_focus()
        self.run_program()
        self.screen.key(*TOGGLE)
        self.expect_frame(self.expanded_frame(), "the shelf open")
        self.assertNotIn("space", other.typed())


if __name__ == "__main__":
    main()

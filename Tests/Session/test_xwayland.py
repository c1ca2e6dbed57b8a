"""The shelf on compositors without layer shell, through XWayland, beside a window of Wayland. On KWin
also natively."""

import unittest

from perchly_session.case import WINDOW_MANAGER, SessionCase
from perchly_session.hands import TOGGLE
from perchly_session.waiting import wait_until
from perchly_session.xwayland import OtherWindow


class XWaylandTest(SessionCase):
    expected_errors = ("perchly: internal error: .* called on mapped window",)  # of Qt

    def start_beside_other_window(self):
        self.start_session()
        self.other = OtherWindow(self.session).show()
        self.addCleanup(self.other.close)

    @unittest.skipUnless(WINDOW_MANAGER == "mutter", "needs input")
    def test_shelf_opens_closes_and_says_what_is_missing(self):
        self.start_beside_other_window()
        self.run_program()
        for _ in range(2):
            self.hover()
            self.screen.move_by(0, 700)  # in one jump, which X does not see
            self.expect_pill()
            self.screen.key(*TOGGLE)
            self.expect_open()
            self.expect_keyboard()
            self.other.expect_focus(False)
            self.screen.key("a")
            self.assertEqual(self.other.typed(), [])
            self.screen.key("Escape")
            self.expect_pill()
            self.other.expect_focus()
            self.screen.key("a")
            self.other.expect_typed("a")
        self.tell("workspace", "files")
        self.tree.find("Perchly cannot register keys here. Bind one to “perchly toggle” in the "
                       "settings of your desktop.")
        self.tell("capture")
        self.tree.find("The screen could not be captured.")

    @unittest.skipUnless(WINDOW_MANAGER == "kwin_wayland", "about KWin")
    def test_keyboard_mode_ends_without_the_keyboard(self):
        self.start_beside_other_window()
        self.session.environment["PERCHLY_WINDOW_SYSTEM"] = "x11"
        self.run_program()
        self.tell("toggle")
        self.expect_open()
        self.expect_pill()
        self.other.expect_focus()

    @unittest.skipUnless(WINDOW_MANAGER == "kwin_wayland", "about KWin")
    def test_native_shelf_gives_the_keyboard_back(self):
        self.start_beside_other_window()
        self.session.run(wait=False)
        socket = self.session.folder / "runtime/perchly.socket"
        wait_until(socket.exists, "the program ready for commands")
        for _ in range(2):
            self.tell("toggle")
            self.other.expect_focus(False)
            self.tell("toggle")
            self.other.expect_focus()

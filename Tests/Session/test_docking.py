"""The shelf docks at an edge of any display and accepts dropped files."""

import unittest

from Xlib import Xatom

from perchly_session.case import AWAY, ON_X, PILL, SEARCH, WORKSPACE, SessionCase
from perchly_session.other_programs import DragPartner
from perchly_session.waiting import wait_until


class DockingTest(SessionCase):
    expected_errors = ("perchly: Creating a fake screen in order for Qt not to crash",)

    def show_dock(self, top=0, bottom=0):
        """Reserves one edge of the screen; returns a function that ends that."""
        if not ON_X:
            return self.screen.show_bar("top" if top else "bottom", top + bottom)
        dock = self.other_window((0, 800 - bottom if bottom else 0, 1280, top + bottom), kind="DOCK")
        strut = [0, 0, top, bottom, 0, 0, 0, 0, 0, 1279, 0, 1279]
        dock.change("_NET_WM_STRUT_PARTIAL", Xatom.CARDINAL, strut)
        dock.show()
        return dock.close

    def test_shelf_docks_where_dropped_and_stays_after_a_restart(self):
        kept = {"shelfTheme": "Ocean", "shelfAccent": "Orange", "aKeyOfALaterVersion": "kept"}
        self.start(kept | {"openOnHover": False})
        self.screen.key(*SEARCH)
        self.window(WORKSPACE)
        pill = self.on_pill()
        self.screen.move_to(*pill)
        self.screen.key("Escape")  # closing the window does not end the drag
        self.screen.drag(pill, (4, 500))
        self.screen.move_to(*AWAY)
        self.expect_frame((0, 441, 34, 120), "the strip at the left edge")
        self.expect_stored(shelfEdge="left", **kept)
        before = self.session.preferences()
        self.program.stop()
        self.run_program()
        self.expect_frame((0, 441, 34, 120), "the strip in its place again")
        self.assertEqual(self.session.preferences(), before)
        self.screen.click(*self.on_pill())
        self.expect_frame((0, 287, 694, 429), "the shelf open, flush with the edge")
        self.screen.drag((8, 500), (640, 3))
        self.expect_pill()
        self.assertFalse(self.program.has_keyboard())

    def test_quick_drag_uses_press_and_release_positions(self):
        self.start({"openOnHover": False})
        self.screen.move_to(600, 20)
        self.screen.fling((600, 20), (937, 170), (1275, 320), then=(700, 700))
        self.expect_frame((1246, 261, 34, 120), "the strip at the right edge")

    def test_shelf_follows_display_and_dock_changes(self):
        right_half = (640, 0, 640, 800)
        stored = {"shelfEdge": "right", "shelfEdgePosition": 0.0, "displayIndex": 1}
        self.start_session()
        self.session.add_monitor(0, (0, 0, 640, 800))
        self.session.add_monitor(1, right_half)
        self.session.store(**stored)
        self.run_program()
        self.expect_frame((1246, 680, 34, 120), "the strip on the second display")
        self.screen.key(*SEARCH)
        x, _, width, _ = self.window(WORKSPACE).rect
        if ON_X:  # elsewhere the compositor chooses
            self.assertGreater(x + width / 2, 800)
        self.screen.key("Escape")
        if ON_X:
            self.session.call("xrandr", "--delmonitor", "monitor1")
            self.expect_frame((606, 680, 34, 120), "the strip on the first display")
            self.screen.move_to(*self.on_pill())
            wait_until(lambda: self.program.frame()[2] > 600, "the shelf open there")
            self.screen.move_to(320, 740)
            self.expect_stored(**stored)
            self.session.add_monitor(1, right_half)
            self.expect_frame((1246, 680, 34, 120), "the strip back on the second display")
        hide_dock = self.show_dock(bottom=200)
        self.expect_frame((1246, 480, 34, 120), "the strip above the dock")
        hide_dock()
        self.expect_frame((1246, 680, 34, 120), "the strip in the corner")

    def test_shelf_hangs_below_a_bar_or_over_it(self):
        self.start()
        hide_bar = self.show_dock(top=40)
        self.expect_frame((495, 40, 290, 34), "the pill below the bar")
        self.tell("settings")
        self.window("Perchly Settings")
        self.click("Preferences", "radio button")
        self.click("Over panels", "check box")
        self.expect_pill()
        self.tell("dock", "left")
        self.expect_frame((0, 340, 34, 120), "the strip in the middle of the display")
        self.click("Over panels", "check box")
        self.expect_frame((0, 360, 34, 120), "the strip in the middle of the free area")
        hide_bar()
        self.expect_frame((0, 340, 34, 120), "the strip without a bar")

    @unittest.skipIf(ON_X, "about Wayland")
    def test_shelf_outlives_its_displays(self):
        self.start_session(size=(640, 800), removable_outputs=True)
        first, second = (self.screen.add_output(n, (640 * n, 0, 640, 800)) for n in range(2))
        stored = {"shelfEdge": "right", "displayIndex": 1, "displayConnector": "WL-3"}
        self.session.store(shelfEdgePosition=0.0, openOnHover=False, **stored)
        self.run_program()
        self.expect_frame((1246, 680, 34, 120), "the strip on the display with the index")
        self.screen.move_to(*self.on_pill())
        self.screen.press()
        self.screen.move_to(900, 300)
        self.screen.remove_output(second)
        self.expect_frame((606, 680, 34, 120), "the drag over, on the display that is left")
        self.screen.release()
        self.expect_stored(**stored)
        self.screen.remove_output(first)
        self.screen.add_output(0, (640, 0, 640, 800))
        self.expect_frame((1246, 680, 34, 120), "the strip on a new display")
        self.screen.add_output(1, (0, 0, 640, 800))
        self.screen.click(1263, 740)
        self.expect_frame((640, 404, 640, 396), "the shelf open at its connector")
        self.screen.add_output(2, (1280, 0, 640, 800))
        wait_until(self.program.rests, "the display noticed")
        self.screen.click(1600, 400)
        self.expect_frame((1246, 680, 34, 120), "the shelf closed by a press on a new display")

    def test_scale_two_doubles_all_sizes(self):
        self.start(scale=2)
        self.expect_frame((350, 0, 580, 68), "the pill")
        self.assertEqual(self.tree.find("Perchly · Ready").extents, (350, 0, 580, 68))
        self.screen.move_to(640, 60)
        # The display is 640 x 400 points, which limits the open shelf.
        self.expect_frame((24, 0, 1234, 800), "the shelf open on the whole display")
        self.click("Mixer")
        self.window("Perchly Volume Mixer")

    def test_dropped_files_and_links_are_held(self):
        self.start()
        self.assertEqual(self.program.frame(), PILL)
        for count, url, places in (
            (1, "file:///etc/hosts", [(640, 20), (642, 17)]),
            (2, "https://example.org/page", [(640, 17), (640, 200), (644, 204)]),
        ):
            partner = DragPartner(self.session, url)
            self.assertEqual(partner.drag_to(*places), "copy")
            self.screen.move_to(640, 100)
            self.screen.move_to(642, 100)
            self.tree.find(f"{count} held")
            partner.close()  # the drop reads from it
            self.screen.move_to(*AWAY)
            self.tree.find(f"File shelf · {count} held")

"""The program uses the desktop's services and works without any of them."""

import os
import shutil
import socket
import time
from pathlib import Path

from perchly_session.case import (
    NO_BUS, ON_X, SEARCH, TOGGLE, WINDOW_MANAGER, WORKSPACE, SessionCase, on_x_only,
)
from perchly_session.waiting import wait_until, wait_while

# Qt 6.8 looks for panels only on the first session bus.
QT_FOLLOWS_BUS = int(os.environ["PERCHLY_QT_MINOR"]) < 8

SYMBOLIC_ICON = Path(__file__).parents[2] / "Packaging/org.perchly.Perchly-symbolic.svg"
OTHER = (0x30, 0x50, 0xA0) if ON_X else (0, 255, 0)
DIMMED = (0x0F, 0x18, 0x2C) if ON_X else (3, 68, 4)


class SurroundingsTest(SessionCase):
    def expect_hover_and_chord(self):
        self.expect_pill()
        self.hover()
        self.leave()
        self.screen.key(*TOGGLE)
        self.expect_open()
        self.screen.key(*TOGGLE)
        self.expect_pill()

    def expect_above(self, other):
        panel = self.program.panel
        above = lambda: panel() and (not ON_X or self.screen.is_above(panel().id, other.id))
        wait_until(above, "the shelf above the other window")

    # Missing and broken services

    @on_x_only
    def test_icon_appears_in_a_tray_without_a_bus(self):
        self.expected_errors = (NO_BUS,)
        self.start(bus=False)
        tray = self.session.spawn("trayer", "--edge", "bottom")

        def docked():
            windows = self.screen.windows_of(tray.pid)
            return any(self.screen.contains(w.id, self.program.pid) for w in windows)

        wait_until(docked, "the icon in the tray")

    def test_silent_bus_delays_nothing(self):
        self.expected_errors = (NO_BUS,)
        self.start_session()
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(str(self.session.folder / "silent"))
            silent.listen()
            address = f"unix:path={self.session.folder}/silent"
            self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = address
            self.run_program()
            self.expect_hover_and_chord()
            self.assertRegex(self.program.errors(), NO_BUS)

    def test_missing_display_is_reported(self):
        self.expected_errors = ("perchly: no display: .*",)
        self.start_session()
        self.session.environment |= {"DISPLAY": ":9999", "WAYLAND_DISPLAY": "missing"}
        program = self.session.run(wait=False)
        wait_until(program.errors, "a message about the display")
        wait_while(program.running, "the program without a display", 0.5)
        self.tell("capture", status=1, says="without a display")

    def test_status_icon_matches_the_panel(self):
        for installed in (False, True):
            with self.subTest(installed=installed):
                self.start_session()
                if installed:
                    icons = self.session.data_folder("icons/hicolor/symbolic/apps")
                    shutil.copy(SYMBOLIC_ICON, icons)
                self.run_program()
                # A panel may start late or restart.
                for restarts_bus in (False, False, True) if QT_FOLLOWS_BUS else (False, False):
                    if restarts_bus:
                        self.session.restart_bus()
                    item = self.session.start_status_watcher()
                    self.assertEqual(len(item.menu()), 6)
                    icon = item.property("IconName")
                    self.assertEqual(icon, SYMBOLIC_ICON.stem if installed else "")
                    self.assertTrue(item.property("IconPixmap"))  # for panels without themes
                    if self.session.is_wayland:  # where programs cannot place menus
                        item.click("Activate")
                        self.expect_open()
                        item.click("ContextMenu")
                        self.expect_pill()
                    item.close()

    def test_windows_fit_a_small_display(self):
        self.start(size=(800, 480))
        self.screen.key(*SEARCH)
        _, y, _, height = self.window(WORKSPACE).rect
        self.assertGreater(y, 0, "the title bar is above the display")
        self.assertLessEqual(y + height, 480)

    # Compositors

    def test_window_below_shows_through_with_a_compositor(self):
        self.start_session()
        other = self.other_window(state="FULLSCREEN").take_focus()
        self.session.store(shelfOpacity=0.5)
        self.run_program()
        self.expect_pill()
        self.session.start_compositor()
        self.expect_hover_and_chord()
        corner = lambda: self.screen.shows(OTHER, 495, 33, 60)
        wait_until(corner, "the other window in the pill's corner")
        between_texts = lambda: self.screen.shows(DIMMED, 645, 17, 6)
        wait_until(between_texts, "the other window through the shelf")
        for point in ((471, 10), (640, 36)):  # on the shelf's shadow
            self.leave()
            self.screen.click(*point)
            wait_until(other.pressed, f"the click at {point} in the window below")

    def test_scaled_cards_have_no_seams(self):
        self.start({"shelfScale": 0.93})
        self.screen.move_to(*self.on_pill())
        self.expect_frame((333, 0, 614, 399), "the shelf open")
        self.assertEqual(self.tree.find("Your shelf").extents[2], round(620 * 0.93))
        x, _, width, _ = self.program.frame()

        def cards():
            """Counts the runs of the cards' colour in the row just below the upper corners."""
            pixels = self.screen.screenshot((x, round(50 * 0.93), width, 1)).getdata()
            is_card = [max(map(abs, (r - 17, g - 18, b - 19))) < 2 for r, g, b in pixels]
            return sum(a and not b for a, b in zip(is_card, is_card[1:]))

        wait_until(lambda: cards() == 3, "three cards without seams")

    # Stacking

    def test_shelf_stays_above_full_screen_windows(self):
        self.start()
        window = self.other_window(state="FULLSCREEN").show()
        self.expect_above(window)
        self.program.stop()
        self.run_program()
        self.expect_above(window)
        self.expect_hover_and_chord()

    @on_x_only
    def test_shelf_stays_above_windows_that_move_or_grow(self):
        for manager in {WINDOW_MANAGER, WINDOW_MANAGER.replace("xfwm4", "xfwm4 compositor")}:
            with self.subTest(manager):
                self.start(window_manager=manager)
                dragged = self.other_window().take_focus()
                self.screen.drag((300, 308), (300, 5))
                self.expect_above(dragged)
                self.screen.key(*SEARCH)
                own = self.window(WORKSPACE)
                self.screen.maximize(own.id)
                self.expect_above(own)
                later = self.other_window((600, 0, 120, 300), managed=False).show()
                time.sleep(0.3)  # so that only the opening can raise the shelf
                self.screen.move_to(*self.on_pill())
                self.expect_above(later)

    @on_x_only
    def test_shelf_stays_below_screen_locks_and_notifications(self):
        self.start()
        beside_pill = self.other_window((850, 0, 400, 90), kind="NOTIFICATION", managed=False)
        beside_pill.show()
        other = self.other_window((300, 0, 400, 200)).take_focus()
        self.expect_above(other)  # and, with xfwm4, above the notification
        other.window.unmap()
        other.display.sync()
        parent = lambda: self.screen.resource(other.id).query_tree().parent
        wait_until(lambda: parent().id == self.screen.root.id, "its frame gone")
        self.screen.key(*TOGGLE)
        self.expect_open()
        self.assertTrue(self.screen.is_above(beside_pill.id, self.program.panel().id))
        self.screen.key(*TOGGLE)
        self.expect_pill()
        for rect, kind in (((0, 0, 1280, 800), "NORMAL"), ((600, 0, 120, 300), "NOTIFICATION")):
            with self.subTest(kind):
                upper = self.other_window(rect, kind=kind, managed=False).show()
                other.take_focus()  # now above the pill
                upper.window.raise_window()  # as a screen lock does
                upper.display.sync()
                self.screen.key(*TOGGLE)
                self.expect_open()
                self.expect_above(other)
                self.assertTrue(self.screen.is_above(upper.id, self.program.panel().id))
                self.screen.key(*TOGGLE)
                self.expect_pill()
                upper.close()

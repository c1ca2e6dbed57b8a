"""The program runs with what the desktop has and does without what it has not."""

import shutil
import socket
import time
from pathlib import Path

from perchly_session.case import NO_BUS, TOGGLE, SessionCase, default_window_manager, main
from perchly_session.picture import near
from perchly_session.waiting import wait_until, wait_while

SYMBOLIC_ICON = Path(__file__).parents[2] / "Packaging/org.perchly.Perchly-symbolic.svg"
OTHER_BLUE = (0x30, 0x50, 0xA0)


class SurroundingsTest(SessionCase):
    def expect_hover_and_chord(self):
        self.expect_frame(self.compact_frame(), "the pill")
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open by hovering")
        self.screen.move_to(*self.away())
        self.expect_frame(self.compact_frame(), "the shelf closed")
        self.screen.key(*TOGGLE)
        self.expect_frame(self.expanded_frame(), "the shelf open by the chord")
        self.screen.key(*TOGGLE)
        self.expect_frame(self.compact_frame(), "the shelf closed by the chord")

    def test_without_a_bus_and_a_window_manager(self):
        self.expected_errors = (NO_BUS,)
        self.start(bus=False, window_manager=None)
        self.expect_hover_and_chord()
        wait_while(self.program.running, "the program", 1.0)
        self.assertEqual(len(self.program.errors().splitlines()), 1)  # said once

    def test_with_a_compositor_the_corners_show_what_lies_below(self):
        compositor = "xfwm4" if default_window_manager() == "xfwm4" else "picom"
        self.start_session(compositor=compositor)
        other = self.other_window(rect=(300, 0, 700, 700), state="_NET_WM_STATE_FULLSCREEN")
        other.take_focus()
        self.run_program()
        self.expect_frame(self.compact_frame(), "the pill")
        x, _, width, height = self.compact_frame()
        wait_until(
            lambda: near(self.screen.screenshot().pixel(x, height - 1), OTHER_BLUE, 60),
            "the other window in the pill's corner",
        )
        self.expect_hover_and_chord()

    def test_a_click_beside_the_pill_belongs_to_the_window_below(self):
        self.start_session(compositor="picom", window_manager="openbox")
        other = self.other_window(state="_NET_WM_STATE_FULLSCREEN").take_focus()
        self.session.store(openOnHover=False)
        self.run_program()
        x, y, width, height = self.compact_frame()
        for point in ((x - 3, 10), (x + width + 2, 10), (640, height + 2)):
            other.clicks()
            self.screen.click(*point)
            wait_until(lambda: other.clicks() == 1, f"the click at {point} below")

    def test_a_compositor_may_come_and_go(self):
        self.start(window_manager="openbox")
        self.session.compositor = "picom"
        self.session.start_compositor()
        self.expect_hover_and_chord()

    def is_above(self, other):
        order = self.screen.stacking()
        panel = self.screen.top_level(self.program.panel().id)
        return order.index(panel) > order.index(self.screen.top_level(other.id))

    def test_above_full_screen_windows(self):
        for there_before in (True, False):
            with self.subTest(there_before=there_before):
                self.start_session()
                windows = []
                if there_before:
                    first = self.other_window(state="_NET_WM_STATE_FULLSCREEN")
                    windows.append(first.take_focus())
                self.run_program()
                self.expect_frame(self.compact_frame(), "the pill")
                # Nothing but its own coming tells of this one.
                later = self.other_window("Later", state="_NET_WM_STATE_FULLSCREEN")
                windows.append(later.show())
                for window in windows:
                    wait_until(lambda: self.is_above(window), "the pill above each of them")
                self.expect_hover_and_chord()

    def test_above_windows_that_move_or_grow(self):
        for compositor in {None, default_window_manager()} - {"openbox"}:
            with self.subTest(compositor=compositor):
                self.start(compositor=compositor)
                dragged = self.other_window().take_focus()
                self.screen.drag((300, 308), (300, 5))
                wait_until(lambda: self.is_above(dragged), "the pill above a dragged window")
                self.screen.key("Control_L", "Alt_L", "k")
                own = wait_until(lambda: self.program.window("Perchly Workspace"), "the workspace")
                self.screen.maximize(own.id)
                wait_until(lambda: self.is_above(own), "the pill above its own window")
                later = self.other_window(rect=(600, 0, 120, 300), managed=False).show()
                time.sleep(0.3)  # so that only the opening raises the shelf
                self.screen.move_to(*self.on_pill())
                wait_until(lambda: self.is_above(later), "the open shelf above all of them")

    def test_below_screen_locks_and_menus(self):
        self.start()
        other = self.other_window(rect=(300, 0, 400, 200))
        for rect, kind in (((0, 0, 1280, 800), "NORMAL"), ((600, 0, 120, 300), "POPUP_MENU")):
            with self.subTest(kind):
                upper = self.other_window(rect=rect, managed=False)
                upper.set_type(kind)
                upper.show()
                other.take_focus()  # and comes to lie over the pill
                self.screen.move_to(*self.on_pill())
                time.sleep(0.3)
                self.assertFalse(self.is_above(upper))
                upper.close()
                wait_until(lambda: self.is_above(other), "the shelf above an ordinary window")

    def test_a_place_for_status_items_may_come_later_and_anew(self):
        self.start()
        for _ in range(2):
            watcher = self.session.start_status_watcher()
            self.assertEqual(len(self.session.status_item().menu()), 6)
            watcher.kill()
            watcher.wait()

    def test_the_status_icon_shows_on_any_panel(self):
        for installed in (False, True):
            with self.subTest(installed=installed):
                self.start_session(status_watcher=True)
                if installed:
                    data = Path(self.session.environment["XDG_DATA_HOME"])
                    icons = data / "icons/hicolor/symbolic/apps"
                    icons.mkdir(parents=True)
                    shutil.copy(SYMBOLIC_ICON, icons)
                self.run_program()
                item = self.session.status_item()
                name = SYMBOLIC_ICON.stem if installed else ""
                self.assertEqual(item.property("IconName"), name)
                # For panels that know no names: light on dark.
                pictures = {width: bytes(data) for width, _, data in item.property("IconPixmap")}
                pixels = pictures[22]
                opaque = [pixels[i : i + 4] for i in range(0, len(pixels), 4) if pixels[i] > 200]
                self.assertGreater(sum(max(pixel[1:]) < 64 for pixel in opaque), 100)
                self.assertGreater(sum(min(pixel[1:]) > 200 for pixel in opaque), 10)

    def test_without_a_bus_the_icon_is_docked_in_a_tray(self):
        self.expected_errors = (NO_BUS,)
        self.start(bus=False)
        tray = self.session.spawn("trayer", "--edge", "bottom")

        def docked():
            windows = self.screen.windows_of(tray.pid)
            return any(self.screen.holds(window.id, self.program.pid) for window in windows)

        wait_until(docked, "the icon in the tray")

    def test_without_a_display_it_runs_and_says_so(self):
        self.expected_errors = ("perchly: no X display: .*",)
        self.start_session(window_manager=None)
        self.session.environment["DISPLAY"] = ":9999"
        program = self.session.run(wait=False)
        wait_until(program.errors, "a word about the display")
        wait_while(program.running, "the program without a display", 0.5)
        self.assertIn(program.stop(), (0, -15), program.errors())

    def test_a_bus_that_never_answers_holds_nothing_up(self):
        self.expected_errors = (NO_BUS,)
        self.start_session(bus=False)
        silent = socket.socket(socket.AF_UNIX)
        silent.bind(str(self.session.folder / "silent"))
        silent.listen()
        self.addCleanup(silent.close)
        address = f"unix:path={self.session.folder}/silent"
        self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.run_program()
        self.expect_hover_and_chord()
        self.assertRegex(self.program.errors(), NO_BUS)
        self.session.run(wait=False)  # finds the first without the bus
        self.expect_frame(self.expanded_frame(), "the first one's shelf")

    def test_windows_stay_in_reach_on_a_small_display(self):
        self.start(size=(800, 480))
        self.screen.key("Control_L", "Alt_L", "k")
        window = wait_until(lambda: self.program.window("Perchly Workspace"), "the workspace")
        self.assertGreater(window.y, 0, "the title bar is above the display")
        self.assertLessEqual(window.y + window.height, 480)


if __name__ == "__main__":
    main()

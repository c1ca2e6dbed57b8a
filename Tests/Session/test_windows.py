"""The status item and the program's windows, used beside other programs."""

import signal

from PIL import Image

from perchly_session.accessibility import ENABLED, FOCUSED, SELECTED
from perchly_session.case import (
    AWAY, ON_X, OPEN, SEARCH, TOGGLE, WORKSPACE, SessionCase, on_x_only,
)
from perchly_session.other_programs import DragPartner, copy, pasted
from perchly_session.session import entries
from perchly_session.waiting import wait_until, wait_while

MENU = [
    ("Show shelf", None),
    ("Volume Mixer…", None),
    ("Search…", None),
    ("Workspace…", None),
    ("Settings…", [["Control", ","]]),
    ("Quit Perchly", [["Control", "Q"]]),
]
WINDOWS = {
    "Workspace…": (WORKSPACE, 660, 570),
    "Settings…": ("Perchly Settings", 660, 600),
    "Volume Mixer…": ("Perchly Volume Mixer", 600, 480),
    "Search…": (WORKSPACE, 660, 570),
}
NO_SOUND = "Needs PipeWire, which is not running."
NO_MEETINGS = "No meetings in the next seven days."
NO_CALENDARS = "Calendar access is off. Press “Connect Calendar” to turn it on."
COPIED = "Copied. Paste into your app with Ctrl+V."
URLS = [
    "file:///etc/hosts", "file:///tmp/a%20%25%0A%23%C3%A4%D7%90",
    "https://example.org/%C3%A4?b=1#c", "ftp://example.org/file",
]
DROP = {
    "urls": URLS[:3],
    "text": "/etc/hosts\n/tmp/a %\n#äא\nhttps://example.org/%C3%A4?b=1#c",
    "may copy": True,
    "may move": False,
}
MENU_COLOUR = (28, 29, 33)
OCEAN = (5, 20, 36)
COLOURS = {"Red": (200, 0, 0), "Blue": (0, 0, 200)}


class WindowTest(SessionCase):
    def has_menu(self, x, y):
        """Whether a menu of the shelf is open with that corner."""
        if not ON_X:
            return self.screen.shows(MENU_COLOUR, x + 3, y + 3, 0)
        menu = self.program.window("perchly")
        return menu and menu.rect[:2] == (x, y)

    def expect_menu(self, x, y):
        wait_until(lambda: self.has_menu(x, y), f"a menu at {x}, {y}")

    def test_status_item_opens_windows_and_quits(self):
        self.start()
        item = self.session.start_status_watcher()
        self.assertEqual([entry[1:] for entry in item.menu()], MENU)
        for entry, (title, *size) in WINDOWS.items():
            with self.subTest(entry=entry):
                self.screen.key(*TOGGLE)
                self.expect_open()
                item.choose(entry)
                window = self.window(title)
                first = window.id
                self.expect_pill()
                self.assertEqual(window.rect[2:], (*size,))
                if ON_X:
                    resource = self.screen.resource(first)
                    self.assertIn("perchly", resource.get_wm_class())  # as in the desktop entry
                    self.assertGreater(len(self.screen.property(resource, "_NET_WM_ICON")), 16 * 16)
                for put_away in (self.screen.close_window, self.screen.minimize):
                    # The window may be visible before all of its requests are sent.
                    wait_until(self.program.rests, "the program at rest", interval=0)
                    put_away(window.id)
                    self.expect_closed(title)
                    item.choose(entry)
                    window = self.window(title)
                    self.assertTrue(window.id == first or not ON_X)
                if entry == "Volume Mixer…":
                    self.tree.find(NO_SOUND)
                self.screen.key("Escape")
                self.expect_closed(title)
        item.choose("Quit Perchly")
        self.assertEqual(self.program.process.wait(10), 0)

    def test_shelf_has_menus(self):
        self.start()
        self.hover()
        self.assertFalse(self.tree.find("Previous icons", "push button").has(ENABLED))
        self.screen.click(640, 17, button=3)
        self.expect_menu(640, 17)
        self.screen.move_to(*AWAY)
        self.keeps_frame(OPEN, "the shelf open under its menu", 1)
        self.screen.key("Escape")
        wait_until(lambda: not self.has_menu(640, 17), "the menu closed")
        self.expect_pill()
        self.screen.key(*TOGGLE)
        self.expect_keyboard()
        self.assertTrue(self.tree.find("Perchly · Ready", "push button").has(FOCUSED))
        clock = self.tree.find("Pin Clock", "push button")
        while not clock.has(FOCUSED):
            self.screen.key("Tab")
        self.screen.key("Shift_L", "F10")
        _, y, _, height = clock.extents
        self.expect_menu(clock.centre[0], y + height)
        self.screen.key("Down")
        self.screen.key("Return")
        self.tree.expect_gone("Pin Clock", "push button")
        self.expect_keyboard()

    @on_x_only
    def test_icons_follow_the_desktops_theme(self):
        self.start_session()
        entry = self.session.install("Paint", "true")
        entry.write_text(entry.read_text() + "Icon=paint\n")
        for theme, colour in COLOURS.items():
            folder = self.session.home / ".icons" / theme
            folder.mkdir(parents=True)
            index = f"[Icon Theme]\nName={theme}\nDirectories=apps\n[apps]\nSize=48\n"
            (folder / "index.theme").write_text(index)
            (folder / "apps").mkdir()
            Image.new("RGB", (48, 48), colour).save(folder / "apps" / "paint.png")
        self.session.store(shelfLibrary=entries(entry))
        settings = self.session.folder / "xsettings"
        choose = lambda theme: settings.write_text(f'Net/IconThemeName "{theme}"\n')
        choose("Red")
        desktop = self.session.spawn("xsettingsd", "-c", settings)
        self.run_program()
        self.hover()
        x, y, width, _ = self.tree.find("Paint", "push button").extents
        for theme in ("Red", "Blue"):
            choose(theme)
            desktop.send_signal(signal.SIGHUP)
            shown = lambda: self.screen.shows(COLOURS[theme], x + width // 2, y + 33)
            wait_until(shown, f"the icon of the theme {theme}")

    def test_settings_apply_at_once(self):
        self.start_session(size=(2080, 800))
        self.session.add_monitor(0, (0, 0, 1280, 800))
        self.session.add_monitor(1, (1280, 0, 800, 600))
        self.run_program()
        self.screen.key(*TOGGLE)
        self.expect_keyboard()
        self.screen.key("Control_L", "comma")
        self.window("Perchly Settings")
        self.click("Preferences", "radio button")
        wait_until(lambda: self.tree.find("Preferences", "radio button").has(FOCUSED), "its focus")
        self.click("Theme", "combo box")
        self.click("Ocean", "list item")
        self.click("Display", "combo box")
        self.click("monitor1" if ON_X else "HEADLESS-2", "list item")
        self.expect_frame((1535, 0, 290, 34), "the shelf on the other display")
        x, y, width, height = self.program.frame()
        ocean = lambda: self.screen.shows(OCEAN, x + width // 2, y + height - 4, 0)
        wait_until(ocean, "the shelf in the colour of the theme")

    def test_files_are_dropped_on_the_window_and_dragged_out(self):
        self.start(size=(2400, 1000))  # room for the drag partner
        self.open_workspace("Files")
        partner = DragPartner(self.session, *URLS)
        x, y = self.tree.find("Drop here").centre
        self.assertEqual(partner.drag_to((x - 10, y), (x, y)), "copy")
        self.tree.find("hosts", "list item")
        self.assertEqual(self.tree.rows(), ["hosts", "a % #äא", URLS[2]])
        self.click("Copy path / link", subject="hosts")
        self.tree.find(COPIED)
        self.assertEqual(pasted(self.session), "/etc/hosts")
        self.assertEqual(partner.drag_from(self.tree.find("Drag all 3").centre), DROP)
        x, y, _, _ = self.tree.find("hosts", "list item").extents
        row, below, before = (x + 200, y + 14), (x + 200, y + 54), partner.output()
        self.screen.move_to(*row)
        self.screen.fling(below, then=below)  # a drag started after the release would not end
        wait_until(self.program.rests, "the program at rest")
        self.screen.move_to(*partner.PLACE)
        wait_while(lambda: partner.output() == before, "no drag after the release", 0.3)
        show_other_section = lambda: self.tell("workspace", "clipboard")  # destroys the row
        self.assertEqual(partner.drag_from(row, show_other_section)["urls"], URLS[:1])

    def test_copies_of_other_programs_are_kept_and_pasted_there(self):
        self.start()
        self.open_workspace("Clipboard")
        self.click("Enable clipboard history for this session", "check box")
        for text in ("tea", "milk"):
            copy(self.session, text)
            self.tree.find(text, "list item")
        self.click("Copy", subject="tea")
        wait_until(lambda: pasted(self.session) == "tea", "the older copy pasted")

    def test_search_launches_an_application(self):
        self.start_session()
        trace = self.session.folder / "trace"
        self.session.install("Zebra", f"touch {trace}")
        self.run_program()
        self.screen.key(*SEARCH)
        self.window(WORKSPACE)
        self.screen.type_text("zeb")
        row = self.tree.find("Zebra", "list item")
        self.assertTrue(row.has(SELECTED))
        self.screen.key("Down")
        wait_until(lambda: self.tree.find("Zebra", "push button").has(FOCUSED), "its focus")
        self.assertFalse(row.has(FOCUSED))
        self.screen.key("Return")
        wait_until(trace.exists, "the application")

    def test_shortcut_runs(self):
        self.start_session()
        trace = self.session.folder / "trace"
        script = self.session.data_folder("perchly/shortcuts") / "Make tea.sh"
        script.write_text(f"#!/bin/sh\necho x >> {trace}\n")
        script.chmod(0o755)
        self.run_program()
        self.open_workspace("Shortcuts")
        self.click("Run", subject="Make tea")
        self.tree.find("Finished: Make tea")
        self.assertEqual(trace.read_text(), "x\n")

    def test_meetings_are_shown_only_with_consent(self):
        self.start_session()
        (self.session.home / ".calendars" / "work").mkdir(parents=True)
        self.run_program()
        self.open_workspace("Meetings")
        for answer, text in (("Allow", NO_MEETINGS), ("Stop Reading", NO_CALENDARS)):
            self.click("Connect Calendar")
            self.window("Calendars")
            self.click(answer)
            self.window(WORKSPACE)
            self.tree.find(text)

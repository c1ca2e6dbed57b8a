"""The status item, the toolbar and the program's three windows."""

from perchly_session.case import SessionCase, main
from perchly_session.waiting import wait_until

MENU = [
    "Show shelf",
    "Volume Mixer…",
    "Search…",
    "Workspace…",
    "Settings…",
    "Quit Perchly",
]
WORKSPACE = ("Perchly Workspace", 660, 570)
SETTINGS = ("Perchly Settings", 660, 600)
MIXER = ("Perchly Volume Mixer", 600, 480)


class WindowTest(SessionCase):
    def start_with_status_item(self, **options):
        self.start(status_watcher=True, **options)
        self.item = self.session.status_item()

    def open_shelf(self):
        self.screen.key("Control_L", "Alt_L", "space")
        self.expect_frame(self.expanded_frame(), "the shelf open")

    def expect_window(self, title, width, height):
        window = wait_until(lambda: self.program.window(title), title)
        self.assertEqual((window.width, window.height), (width, height))
        wait_until(lambda: self.screen.focus() == window.id, f"{title} with the keyboard")
        self.expect_frame(self.compact_frame(), "the shelf closed")
        return window

    def press(self, name):
        self.program.accessibility().find(name, "push button").press()

    def test_the_status_item_has_its_six_entries(self):
        self.start_with_status_item()
        self.assertEqual([title for _, title, _ in self.item.menu()], MENU)
        shortcuts = {title: keys for _, title, keys in self.item.menu() if keys}
        self.assertEqual(
            shortcuts, {"Settings…": [["Control", ","]], "Quit Perchly": [["Control", "Q"]]}
        )

    def test_the_status_item_opens_each_window_with_its_title_and_size(self):
        self.start_with_status_item()
        for entry, window in (
            ("Workspace…", WORKSPACE),
            ("Settings…", SETTINGS),
            ("Volume Mixer…", MIXER),
            ("Search…", WORKSPACE),
        ):
            with self.subTest(entry=entry):
                self.open_shelf()
                self.item.choose(entry)
                self.expect_window(*window)

    def test_a_closed_window_is_shown_again(self):
        self.start_with_status_item()
        for entry, window in (
            ("Workspace…", WORKSPACE),
            ("Settings…", SETTINGS),
            ("Volume Mixer…", MIXER),
        ):
            with self.subTest(entry=entry):
                self.item.choose(entry)
                first = self.expect_window(*window)
                self.item.choose(entry)
                self.screen.close_window(first)
                wait_until(lambda: not self.program.window(window[0]), "the window closed")
                self.item.choose(entry)
                self.assertEqual(self.expect_window(*window).id, first.id)
                titles = [w.title for w in self.program.windows()]
                self.assertEqual(titles.count(window[0]), 1)

    def test_show_shelf_opens_it_until_the_pointer_has_been_there(self):
        self.start_with_status_item()
        self.item.choose("Show shelf")
        self.expect_frame(self.expanded_frame(), "the shelf open")
        self.screen.move_to(640, 300)
        self.screen.move_to(*self.away())
        self.expect_frame(self.compact_frame(), "the shelf closed by the hover rules")

    def test_quit_ends_the_program(self):
        self.start_with_status_item()
        self.item.choose("Quit Perchly")
        wait_until(lambda: not self.program.running(), "the end")
        self.assertEqual(self.program.stop(), 0, self.program.errors())

    def test_the_toolbar_opens_the_windows(self):
        self.start()
        for button, window in (
            ("Mixer", MIXER),
            ("Workspace", WORKSPACE),
            ("Settings", SETTINGS),
            ("Search", WORKSPACE),
        ):
            with self.subTest(button=button):
                self.open_shelf()
                self.press(button)
                self.expect_window(*window)

    def test_a_click_on_a_toolbar_button_works_like_its_press(self):
        self.start({"openOnHover": True})
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open")
        button = self.program.accessibility().find("Mixer", "push button")
        self.screen.click(*button.centre)
        self.expect_window(*MIXER)

    def test_the_toolbar_runs_the_focus_timer(self):
        self.start({"focusMinutes": 3})
        self.open_shelf()
        self.press("Focus")
        tree = self.program.accessibility()
        tree.find("End focus", "push button")
        self.screen.key("Escape")
        self.expect_frame(self.compact_frame(), "the shelf closed")
        running = [f"Focus · 02:{second}" for second in range(30, 60)] + ["Focus · 03:00"]
        wait_until(
            lambda: any(node.name in running for node in tree.application().walk()),
            "the remaining time on the pill",
        )
        self.open_shelf()
        self.press("End focus")
        tree.find("Focus", "push button")
        self.screen.key("Escape")
        tree.find("Perchly · Ready")

    def test_the_quit_button_ends_the_program(self):
        self.start()
        self.open_shelf()
        self.press("Quit")
        wait_until(lambda: not self.program.running(), "the end")
        self.assertEqual(self.program.stop(), 0, self.program.errors())


if __name__ == "__main__":
    main()

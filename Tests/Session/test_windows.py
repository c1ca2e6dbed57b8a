"""The status item, the toolbar and the program's three windows."""

from perchly_session.case import TOGGLE, SessionCase, main
from perchly_session.waiting import wait_until

MENU = [
    ("Show shelf", None),
    ("Volume Mixer…", None),
    ("Search…", None),
    ("Workspace…", None),
    ("Settings…", [["Control", ","]]),
    ("Quit Perchly", [["Control", "Q"]]),
]
WORKSPACE = ("Perchly Workspace", 660, 570)
SETTINGS = ("Perchly Settings", 660, 600)
MIXER = ("Perchly Volume Mixer", 600, 480)


class WindowTest(SessionCase):
    def start_with_status_item(self, **options):
        self.start(status_watcher=True, **options)
        self.item = self.session.status_item()

    def open_shelf(self):
        self.screen.key(*TOGGLE)
        self.expect_frame(self.expanded_frame(), "the shelf open")

    def expect_window(self, title, width, height):
        window = wait_until(lambda: self.program.window(title), title)
        self.assertEqual((window.width, window.height), (width, height))
        wait_until(lambda: self.screen.focus() == window.id, f"{title} with the keyboard")
        self.expect_frame(self.compact_frame(), "the shelf closed")
        return window

    def test_the_status_item_opens_each_window_and_opens_it_again(self):
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
                first = self.expect_window(*window)
                names, icon = self.screen.task_bar_facts(first)
                self.assertIn("perchly", names)  # as the desktop entry says
                self.assertGreater(icon, 16 * 16)
                for put_away in (self.screen.close_window, self.screen.minimize):
                    # Its window may be there before it has sent all that belongs to showing it.
                    wait_until(self.program.rests, "the program at rest", interval=0)
                    put_away(first)
                    wait_until(lambda: not self.program.window(window[0]), "the window away")
                    self.item.choose(entry)
                    self.assertEqual(self.expect_window(*window).id, first.id)

    def test_the_status_item_lists_its_entries_and_quits(self):
        self.start_with_status_item()
        self.assertEqual([entry[1:] for entry in self.item.menu()], MENU)
        self.item.choose("Quit Perchly")
        wait_until(lambda: not self.program.running(), "the end")
        self.assertEqual(self.program.stop(), 0, self.program.errors())


if __name__ == "__main__":
    main()

"""The settings window, used by name with the keyboard alone, and what the shelf makes of it."""

from pathlib import Path

from perchly_session.case import TOGGLE, SessionCase, main
from perchly_session.waiting import wait_until

TITLE = "Perchly Settings"
SECTIONS = ["My shelf", "Apps", "Preferences"]
OCEAN = (5, 20, 36)


class SettingsTest(SessionCase):
    def open_settings(self, preferences=None, **options):
        self.start(preferences, **options)
        self.tree = self.program.accessibility()
        self.show()

    def show(self):
        self.screen.key(*TOGGLE)
        wait_until(lambda: self.screen.focus() == self.program.panel().id, "the shelf's keyboard")
        self.screen.key("Control_L", "comma")
        self.window = wait_until(lambda: self.program.window(TITLE), TITLE)
        wait_until(lambda: self.screen.focus() == self.window.id, "the window with the keyboard")

    def choose_section(self, name):
        distance = SECTIONS.index(name) - SECTIONS.index(self.go_to(*SECTIONS))
        self.press_keys(*["Right" if distance > 0 else "Left"] * abs(distance))
        wait_until(lambda: self.tree.focused().name == name, f"the section {name}")

    def press_keys(self, *keys):
        for key in keys:
            self.screen.key(key)

    def background(self):
        x, y, width, height = self.program.frame()
        return self.screen.screenshot().pixels(x + width // 2, y + height - 4, 1, 1)[0]

    def test_preferences_change_the_shelf_at_once(self):
        monitors = [(0, 0, 1280, 800), (1280, 0, 800, 600)]
        self.open_settings(size=(2080, 800), monitors=monitors)
        self.choose_section("Preferences")
        self.go_to("Theme")
        self.press_keys("space", "Down", "Down", "Return")
        wait_until(lambda: self.background() == OCEAN, "the shelf in the colour of the sea")
        self.go_to("Display")
        self.press_keys("Down", "Down", "Return")
        second = monitors[1]
        self.expect_frame(self.compact_frame(area=second), "the shelf on the other display")
        self.go_to("Screen edge")
        self.press_keys("space", "Down", "Return")
        self.expect_frame(self.compact_frame("left", area=second), "the shelf at the left edge")
        self.go_to("Reset position to top center")
        self.press_keys("Return")
        self.expect_frame(self.compact_frame(area=second), "the shelf at the top again")
        self.go_to("Shelf size")
        self.press_keys("End")
        wait_until(lambda: self.session.preferences()["shelfScale"] == 1.2, "the largest size")
        self.press_keys("Escape")
        wait_until(lambda: not self.program.window(TITLE), "the window closed")
        self.screen.key(*TOGGLE)
        wait_until(lambda: self.program.frame()[2] == 792, "the shelf 1.2 times as wide")

    def test_entries_are_hidden_and_rearranged(self):
        self.open_settings()
        window = self.screen.display.create_resource_object("window", self.window.id)
        hints = window.get_wm_normal_hints()
        self.assertEqual((hints.min_width, hints.min_height), (620, 540))
        self.go_to("Hide", subject="Music")
        self.press_keys("space")
        self.go_to("Move later", subject="Quick note")
        self.press_keys("space")
        self.press_keys("Escape")
        wait_until(lambda: not self.program.window(TITLE), "the window closed")
        first = self.window.id
        self.screen.key(*TOGGLE)
        for name in ("Pin Clock", "Pin Focus timer", "Pin Calendar", "Pin Quick note"):
            self.tree.find(name)
        self.assertIsNone(self.tree.look_for("Pin Music"))
        self.screen.key(*TOGGLE)
        self.show()
        self.assertEqual(self.window.id, first)


if __name__ == "__main__":
    main()

"""The cards and the strip on the open shelf, used by hand, by keys and through assistive programs."""

import json
import time
from pathlib import Path

from perchly_session.case import TOGGLE, SessionCase, main
from perchly_session.players import ScriptedPlayer
from perchly_session.waiting import wait_until


class CardsTest(SessionCase):
    def open_shelf(self):
        """Opens it by hovering, with the pointer where nothing reacts to it."""
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open")
        self.find = self.program.accessibility().find
        self.find("Quit")

    def click(self, name, role="push button"):
        self.screen.click(*self.find(name, role).centre)

    def menu_buttons(self):
        """The buttons that change the left and the right card."""
        found = self.program.accessibility().every(
            lambda node: node.name == "Change pinned widget" and node.role == "push button" and node
        )
        return sorted(found, key=lambda node: node.centre)

    def stored(self, key):
        return self.session.preferences().get(key)

    def expect_stored(self, key, value):
        wait_until(lambda: self.stored(key) == value, f"{key} {value!r}, not {self.stored(key)!r}")

    def applications(self, count):
        """That many entries of the strip, and the files that show which of them were launched."""
        folder = Path(self.session.environment["XDG_DATA_HOME"]) / "applications"
        folder.mkdir(parents=True, exist_ok=True)
        entries, traces = [], []
        for number in range(count):
            launcher = folder / f"application{number}.desktop"
            traces.append(self.session.folder / f"launched{number}")
            launcher.write_text(
                "[Desktop Entry]\nType=Application\nName=A\n"
                f'Exec=sh -c "env >{traces[-1]}"\nIcon=no-such-picture\n'
            )
            entry = {"id": str(launcher), "name": f"App {number}", "path": str(launcher)}
            entries.append(entry | {"visible": True, "favorite": False})
        self.session.store(shelfLibrary={"data": json.dumps(entries), "encoding": "utf-8"})
        return traces

    # Choosers

    def test_a_chooser_holds_the_shelf_open_until_it_ends(self):
        self.start_session()
        other = self.other_window(rect=(100, 600, 300, 120)).take_focus()
        self.run_program()
        self.open_shelf()
        self.click("Pin Clock")
        self.find("Pin on left")
        self.screen.move_to(*self.away())
        self.keeps_frame(self.expanded_frame(), "open with the pointer elsewhere", 1.5)
        self.screen.key("Escape")
        wait_until(
            lambda: not self.program.accessibility().look_for("Pin on left"), "the chooser closed"
        )
        wait_until(other.has_focus, "the other window with the keyboard")
        self.assertEqual(other.typed(), [])
        self.screen.move_by(3, 0)
        self.expect_frame(self.compact_frame(), "the shelf closed")

    def test_a_click_in_another_window_ends_a_chooser(self):
        self.start_session()
        other = self.other_window(rect=(100, 600, 300, 120)).take_focus()
        self.run_program()
        self.open_shelf()
        self.screen.click(*self.menu_buttons()[1].centre)
        self.find("Quick note", "push button")
        self.screen.click(200, 660)
        wait_until(other.has_focus, "the other window with the keyboard")
        self.screen.move_by(3, 0)
        self.expect_frame(self.compact_frame(), "the shelf closed")

    # The note

    def open_note(self, **preferences):
        self.start_session()
        self.other = self.other_window(rect=(100, 600, 300, 120)).take_focus()
        self.session.store(leftWidget="Quick note", **preferences)
        self.run_program()
        self.open_shelf()
        x, y, _, _ = self.program.frame()
        self.screen.click(x + 100, y + 34 + 12 + 60)
        wait_until(
            lambda: self.screen.focus() == self.program.panel().id, "the shelf with the keyboard"
        )

    def test_a_typed_note_survives_a_kill(self):
        self.open_note()
        self.screen.type_text("tea and\nmilk")
        self.expect_stored("quickNote", "tea and\nmilk")
        note = self.stored("quickNote")
        self.program.kill()
        self.run_program()
        self.open_shelf()
        self.assertEqual(self.stored("quickNote"), note)
        self.assertEqual(self.other.typed(), [])

    def test_the_keyboard_goes_back_when_the_shelf_closes(self):
        self.open_note(quickNote="old ")
        self.screen.type_text("a")
        self.screen.move_to(*self.away())
        self.expect_frame(self.compact_frame(), "the shelf closed")
        wait_until(self.other.has_focus, "the other window with the keyboard")
        self.screen.key("b")
        wait_until(lambda: self.other.typed() == ["b"], "the key typed into the other window")
        self.assertNotIn("b", self.stored("quickNote"))

    def test_an_alert_takes_no_key_from_the_note(self):
        self.open_note()
        player = ScriptedPlayer(self.session, behaviour="refuses")
        self.find("Pause", "push button").press()
        player.expect("Pause")
        for _ in range(30):  # while the failure comes up
            self.screen.type_text(" a")
            time.sleep(0.04)
        self.expect_stored("quickNote", " a" * 30)
        self.find("Media controls unavailable")
        self.click("OK")
        wait_until(lambda: not self.program.accessibility().look_for("OK"), "the alert gone")
        self.screen.type_text("b")
        self.expect_stored("quickNote", " a" * 30 + "b")

    # The strip

    def test_an_entry_is_launched_by_click_and_digit(self):
        self.start_session()
        traces = self.applications(2)
        self.run_program()
        self.open_shelf()
        self.click("App 0")
        wait_until(traces[0].exists, "the application started")
        environment = wait_until(traces[0].read_text, "its environment")
        self.assertNotIn("QT_QPA", environment, "the program's own choices")
        self.screen.key(*TOGGLE)
        wait_until(lambda: self.screen.focus() == self.program.panel().id, "the keyboard")
        self.assertFalse(traces[1].exists())
        self.screen.key("Super_L", "2")
        wait_until(traces[1].exists, "the application started by its digit")

    # Names

    def test_everything_has_a_name(self):
        for left, right in (("Clock", "Focus timer"), ("Music", "Quick note"), ("Calendar", "Clock")):
            with self.subTest(left=left, right=right):
                self.start({"leftWidget": left, "rightWidget": right})
                self.open_shelf()
                for card in (left, right, "Activity", "Your shelf"):
                    self.find(card, "panel")
                tree = self.program.accessibility()
                roles = ("push button", "label", "text")
                nameless = tree.every(lambda node: node.role in roles and not node.name)
                self.assertEqual(nameless, [], tree.outline())
                self.program.stop()


if __name__ == "__main__":
    main()

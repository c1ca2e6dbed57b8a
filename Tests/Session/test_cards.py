"""The cards and the strip on the open shelf, and the media players that they follow."""

from perchly_session.case import AWAY, ON_X, OPEN, TOGGLE, SessionCase
from perchly_session.other_programs import ScriptedPlayer
from perchly_session.session import entries
from perchly_session.waiting import wait_until

REFUSED = "Player could not receive this playback command."


class CardsTest(SessionCase):
    def open_beside_other_window(self, **preferences):
        self.start_session()
        self.other = self.other_window((100, 600, 300, 120)).take_focus()
        self.session.store(**preferences)
        self.run_program()
        self.hover()
        self.tree.find("Quit")

    def open_note(self):
        self.open_beside_other_window(leftWidget="Quick note")
        self.screen.click(410, 106)
        self.expect_keyboard()

    def test_chooser_keeps_the_shelf_open(self):
        self.open_beside_other_window()
        for end in (lambda: self.screen.key("Escape"), lambda: self.screen.click(200, 660)):
            self.hover()
            self.click("Pin Clock")
            self.tree.find("Pin on left")
            self.screen.move_to(*AWAY)
            self.keeps_frame(OPEN, "open with the pointer elsewhere", 1.5)
            end()
            self.other.expect_focus()
            self.assertEqual(self.other.typed(), [])
            self.screen.move_by(3, 0)
            self.expect_pill()

    def test_note_survives_a_kill_and_returns_the_keyboard(self):
        self.open_note()
        self.screen.type_text("tea and\nmilk")
        self.expect_stored(quickNote="tea and\nmilk")
        self.screen.move_to(*AWAY)
        self.keeps_frame(OPEN, "the shelf open while the note is typed", 1)
        self.screen.key("Escape")
        self.expect_pill()
        self.other.expect_focus()
        self.screen.key("b")
        self.other.expect_typed("b")
        self.program.kill()
        self.run_program()
        self.hover()
        self.expect_stored(quickNote="tea and\nmilk")

    def test_alert_does_not_take_keys_from_the_note(self):
        self.open_note()
        player = ScriptedPlayer(self.session, behaviour="refuses")
        self.tree.find("Pause", "push button").press()
        player.expect("Pause")
        self.screen.type_text(" a" * 40)  # while the alert appears
        self.expect_stored(quickNote=" a" * 40)
        self.assertEqual(self.tree.find("Media controls unavailable").description, REFUSED)
        self.click("OK")
        self.tree.expect_gone("OK")
        self.screen.type_text("b")
        self.expect_stored(quickNote=" a" * 40 + "b")

    def test_failures_are_told_and_quick_presses_all_count(self):
        self.open_beside_other_window(leftWidget="Music", shelfLibrary=entries("/Gone.desktop"))
        for button, alert in (("Gone", "Launch failed"), ("Play", "Media controls unavailable")):
            self.click(button)
            self.tree.find(alert)
            self.click("OK")
            self.tree.expect_gone("OK")
        player = ScriptedPlayer(self.session)
        self.tree.find("Song", "label")
        self.screen.move_to(*self.tree.find("Next track", "push button").centre)
        for _ in range(3):
            self.screen.press()
            self.screen.release()
        for _ in range(3):
            player.expect("Next")
        self.tree.find("Next", "label")
        player.close()
        self.tree.find("Ready when you are", "label")

    def test_click_and_digit_launch_entries(self):
        self.start_session()
        traces = [self.session.folder / f"launched{number}" for number in range(2)]
        command = 'sh -c "echo loud; echo loud >&2; env >{}"'  # on outputs of its own
        paths = [self.session.install(t.name, command.format(t)) for t in traces]
        self.session.store(shelfLibrary=entries(*paths))
        self.run_program()
        self.hover()
        self.click("launched0")
        wait_until(lambda: traces[0].exists() and traces[0].read_text(), "the application started")
        environment = traces[0].read_text()
        self.assertNotIn("QT_QPA", environment, "Perchly's own environment")
        self.assertEqual("XDG_ACTIVATION_TOKEN=" in environment, not ON_X)
        self.screen.key(*TOGGLE)
        self.expect_keyboard()
        self.assertFalse(traces[1].exists())
        self.screen.key("Super_L", "2")
        wait_until(traces[1].exists, "the application started by its digit")

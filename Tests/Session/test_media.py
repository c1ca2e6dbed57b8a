"""Players of all kinds followed and commanded by the whole program."""

import re

from perchly_session.case import SessionCase, main
from perchly_session.players import Mpv, ScriptedPlayer
from perchly_session.waiting import wait_until

IGNORED = (
    "Player did not apply this media command. The tab may be closed, buffering, or unable to "
    "accept remote controls. Open the player and try again."
)
REFUSED = "Player could not receive this playback command."


class MediaTest(SessionCase):
    def find(self, name, role=None):
        return self.program.accessibility().find(name, role)

    def open_shelf(self):
        self.screen.move_to(*self.on_pill())
        self.expect_frame(self.expanded_frame(), "the shelf open")

    def close_shelf(self):
        self.screen.move_to(*self.away())
        self.expect_frame(self.compact_frame(), "the shelf closed")

    def click(self, name):
        """A control of the activity card, once it takes clicks."""
        self.screen.click(*self.find(name, "push button").centre)

    def test_a_real_player_is_followed_paused_and_let_go(self):
        self.start()
        player = Mpv(self.session, "Silence")
        self.find("Silence · Playing")
        self.open_shelf()
        self.find("mpv · Playing")
        self.click("Pause")
        self.find("mpv · Paused")
        self.click("Play")
        self.find("mpv · Playing")
        player.stop()
        self.close_shelf()
        self.find("Perchly · Ready")

    def test_a_pause_keeps_the_player_although_another_plays(self):
        self.start()
        Mpv(self.session, "First")
        self.open_shelf()
        self.find("mpv · Playing")
        second = ScriptedPlayer(self.session)
        self.find("Singer · Player · Playing")
        self.click("Pause")
        second.expect("Pause")
        self.find("Singer · Player · Paused")
        self.click("Play")
        second.expect("Play")
        self.find("Singer · Player · Playing")
        self.assertIsNone(self.program.accessibility().look_for("OK"))

    def test_every_failure_is_said_until_it_has_been_read(self):
        self.start()
        for behaviour, text in (("ignores", IGNORED), ("refuses", REFUSED)):
            with self.subTest(behaviour):
                player = ScriptedPlayer(self.session, behaviour=behaviour)
                self.find("Song · Playing")
                self.open_shelf()
                self.click("Pause")
                player.expect("Pause")
                alert = self.find("Media controls unavailable")
                self.assertEqual(text, alert.description)
                self.find("OK").press()
                wait_until(
                    lambda: not self.program.accessibility().look_for("OK"), "the alert gone"
                )
                player.stop()
                self.close_shelf()
                self.find("Perchly · Ready")

    def test_hostile_titles_and_mute_players_leave_the_shelf_at_work(self):
        self.start()
        title = 'x" & do shell script "touch gone\u202e\U0001f600\u0007' + "W" * 5000
        hostile = ScriptedPlayer(self.session, metadata={"xesam:title": ["s", title]})
        wait_until(
            lambda: self.program.accessibility().every(
                lambda node: re.match('x" & do shell script.* · Playing$', node.name)
            ),
            "the hostile title in the pill",
        )
        self.open_shelf()
        self.click("Next track")
        hostile.expect("Next")
        hostile.stop()
        ScriptedPlayer(self.session, behaviour="silent")
        self.close_shelf()
        self.find("Perchly · Ready")


if __name__ == "__main__":
    main()

"""The mixer window with a separate sound system."""

from perchly_session.case import SessionCase
from perchly_session.sound import Sound

EMPTY = "No apps playing audio. Start music or a video, then refresh."
NAME = "mpv Media Player"


class MixerTest(SessionCase):
    def test_program_is_turned_down_muted_and_released(self):
        self.start_session()
        self.sound = Sound(self.session)
        item = self.session.start_status_watcher()
        self.run_program()
        item.choose("Volume Mixer…")
        self.window("Perchly Volume Mixer")
        self.tree.find(EMPTY)
        self.sound.play_tone()
        self.sound.expect_level(1, "the tone as the player plays it")
        self.enable_at_half()
        self.click("Toggle mute")
        self.sound.expect_level(0, "silence")
        self.click("Toggle mute")
        self.sound.expect_level(0.5, "the tone at half its level again")
        self.click("Release")
        self.sound.expect_level(1, "the player's own output")
        self.enable_at_half()
        self.program.kill()
        self.sound.expect_level(1, "the player's own output after a kill")

    def enable_at_half(self):
        self.tree.find(NAME, "list item")
        self.click("Enable")
        self.click(f"{NAME} volume", "slider")
        self.sound.expect_level(0.5, "the tone at half its level")

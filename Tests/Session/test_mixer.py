"""The mixer window on a sound system of its own."""

import signal
import time

from perchly_session.case import SessionCase, main
from perchly_session.sound import Sound
from perchly_session.waiting import wait_until

EMPTY = "No apps playing audio. Start music or a video, then refresh."
REQUIRED = "Requires macOS 14.2 or later."
OUTPUT_CHANGED = (
    "Output device changed. App audio was restored; enable mixing again for this output."
)
NAME = "pw-cat"


class MixerTest(SessionCase):
    def start_with_sound(self):
        self.start_session(status_watcher=True)
        self.sound = Sound(self.session)
        self.addCleanup(self.sound.end)
        self.run_program()

    def open_mixer(self):
        self.session.status_item().choose("Volume Mixer…")
        wait_until(lambda: self.program.window("Perchly Volume Mixer"), "the mixer window")
        self.tree = self.program.accessibility()

    def press(self, name):
        self.tree.find(name, "push button").press()

    def enable(self):
        self.tree.find(NAME, "list item")
        self.press("Enable")
        self.tree.find(f"{NAME} volume", "slider")

    def click_slider(self, share):
        x, y, width, height = self.tree.find(f"{NAME} volume", "slider").extents
        self.screen.click(x + round(9 + share * (width - 18)), y + height // 2)

    def test_a_process_is_turned_down_muted_and_given_back(self):
        self.start_with_sound()
        self.open_mixer()
        self.tree.find(EMPTY)
        self.sound.play()
        self.sound.expect_level(1, "the tone as the player plays it")
        self.enable()
        self.sound.expect_level(1, "the tone at the same loudness")
        self.assertTrue(self.sound.route_nodes())
        self.click_slider(0.5)
        self.sound.expect_level(0.5, "the tone at half its level")
        self.press("Toggle mute")
        self.sound.expect_level(0, "silence")
        self.press("Toggle mute")
        self.sound.expect_level(0.5, "the tone at half its level again")
        self.press("Release")
        self.sound.expect_level(1, "the player's own output")
        wait_until(lambda: not self.sound.route_nodes(), "nothing left of the route")

    def test_the_player_gets_its_output_back_however_the_program_ends(self):
        for ending in (signal.SIGTERM, signal.SIGKILL):
            with self.subTest(ending=ending.name):
                self.start_with_sound()
                self.open_mixer()
                self.sound.play()
                self.enable()
                self.click_slider(0.5)
                self.sound.expect_level(0.5, "the tone at half its level")
                self.program.process.send_signal(ending)
                status = self.program.process.wait(10)
                self.assertEqual(status, 0 if ending == signal.SIGTERM else -ending)
                self.sound.expect_level(1, "the player's own output")
                wait_until(lambda: not self.sound.route_nodes(), "nothing left of the route")

    def test_another_output_ends_the_routes_with_a_message(self):
        self.start_with_sound()
        self.open_mixer()
        self.sound.play()
        self.enable()
        self.go_to("Toggle mute")
        self.sound.choose_output("second")
        self.tree.find(OUTPUT_CHANGED)
        wait_until(lambda: self.tree.focused().name == "Enable", "the keyboard in the same row")
        self.sound.expect_level(1, "the tone from the other output", "second")

    def test_without_a_sound_system_the_window_says_what_is_missing(self):
        self.start(status_watcher=True)
        self.open_mixer()
        self.tree.find(REQUIRED)
        self.tree.find(EMPTY)
        self.press("Refresh")
        time.sleep(2.5)
        self.tree.find(REQUIRED)


if __name__ == "__main__":
    main()

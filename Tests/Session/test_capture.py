"""Captures of a part of the screen, and previews of files."""

import json
import socket
import subprocess
import time

from perchly_session.accessibility import Accessibility
from perchly_session.case import ON_X, OPEN, PILL, TOGGLE, WORKSPACE, SessionCase, on_x_only
from perchly_session.other_programs import moving_picture
from perchly_session.waiting import wait_until

GREEN = (0, 128, 0)
DIMMED = (0, 140, 0)  # the desktop on sway


class CaptureTest(SessionCase):
    def ask_for_capture(self):
        self.screen.key(*TOGGLE)
        wait_until(lambda: self.program.frame()[2] == OPEN[2], "the shelf open")
        wait_until(self.program.rests, "its buttons at rest")
        self.click("Capture")

    def has_overlay(self):
        if ON_X:
            return bool(self.windows_of("screencapture"))
        return self.screen.shows(DIMMED, 10, 500)

    def test_capture_is_held_and_previewed(self):
        self.start(size=(1600, 900))
        self.ask_for_capture()
        wait_until(self.has_overlay, "the overlay")
        self.screen.move_to(800, 10, step=50)
        if ON_X:
            self.keeps_frame((655, *PILL[1:]), "closed under the overlay", 0.7)
        self.screen.drag((300, 300), (499, 399))
        self.window(WORKSPACE)
        (name,) = wait_until(self.tree.rows, "the capture among the files")
        self.click("Preview", subject=name)
        title = lambda: [window.title for window in self.windows_of("preview")]
        wait_until(lambda: title() == [name], "the preview")
        preview = self.windows_of("preview")[0]
        wait_until(lambda: self.screen.focus() == preview.id, "the preview with the keyboard")
        self.screen.key("space")
        wait_until(lambda: title() == [], "the preview closed")
        self.window(WORKSPACE)
        self.ask_for_capture()
        wait_until(self.has_overlay, "the overlay again")
        self.program.kill()
        wait_until(lambda: not self.has_overlay(), "the overlay gone, too")


class PreviewTest(SessionCase):
    def ask(self, toggle=False):
        request = {"items": self.urls, "index": 0, "toggle": toggle}
        self.preview.stdin.write(json.dumps(request).encode() + b"\n")
        self.preview.stdin.flush()

    def windows(self):
        return self.screen.windows_of(self.preview.pid)

    def expect_no_window(self, why):
        wait_until(lambda: not self.windows(), why)

    def shows(self, title, colour=None):
        """Waits for the window with that title and, if given, that colour in its middle."""

        def there():
            window = next(iter(self.windows()), None)
            if not window or window.title != title or self.screen.focus() != window.id:
                return False
            x, y, width, height = window.rect
            if y + height > self.screen.height:
                return False  # still being moved in by the window manager
            middle = x + width // 2, y + height // 2 - 40
            return not colour or self.screen.shows(colour, *middle, 30)

        wait_until(there, f"{title} in {colour}", timeout=20)

    @on_x_only
    def test_preview_switches_files_and_survives_minimising(self):
        self.start_session()
        video = moving_picture(self.session.folder / "video.mp4")
        text, broken = b"a line of text\n" * 100, b"\x00" * 5000
        contents = {"a.mp4": video, "b.mp4": broken, "c.txt": text, "d.mp4": video, "e.mp4": video}
        for name, content in contents.items():
            (self.session.folder / name).write_bytes(content)
        self.urls = [(self.session.folder / name).as_uri() for name in contents]
        network = socket.create_server(("127.0.0.1", 0))
        network.setblocking(False)
        self.addCleanup(network.close)
        self.session.environment["PULSE_SERVER"] = "tcp:%s:%d" % network.getsockname()
        program = f"{self.session.executable}-preview"
        self.preview = self.session.spawn(program, stdin=subprocess.PIPE)
        self.ask()
        self.shows("a.mp4", GREEN)  # plays although there is no audio output
        for title in ("b.mp4", "c.txt"):
            self.screen.key("Right")
            self.shows(title)
        self.screen.key("Right")
        self.screen.key("Right")
        self.shows("e.mp4", GREEN)
        self.screen.key("space")
        self.expect_no_window("the preview closed")
        self.ask()
        self.shows("a.mp4", GREEN)
        window = self.windows()[0].id
        for show in (lambda: self.screen.activate(window), lambda: self.ask(toggle=True)):
            self.screen.minimize(window)
            self.expect_no_window("the preview minimised")
            time.sleep(0.3)  # until the preview has noticed
            show()
            self.shows("a.mp4", GREEN)
        tree = Accessibility(self.session.bus_address, self.preview.pid)
        named = tree.every(lambda node: node.name == "a.mp4")
        self.assertEqual(len(named), 2, "the window and its picture")
        self.screen.show_desktop(1)
        self.expect_no_window("another desktop")
        self.ask(toggle=True)
        self.shows("a.mp4", GREEN)
        self.ask(toggle=True)
        self.expect_no_window("the preview closed")
        with self.assertRaises(BlockingIOError, msg="it reached the network"):
            network.accept()

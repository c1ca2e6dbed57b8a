"""Capturing a part of the screen into the tray, and looking at what is held."""

import json
import subprocess
import time

from perchly_session.accessibility import Accessibility
from perchly_session.case import TOGGLE, SessionCase, main
from perchly_session.picture import near
from perchly_session.players import moving_picture
from perchly_session.waiting import wait_until, wait_while

TITLE = "Perchly Workspace"
GREEN = (0, 128, 0)


class CaptureTest(SessionCase):
    def begin(self, **options):
        self.start(size=(1600, 900), **options)
        self.tree = self.program.accessibility()
        self.screen.key(*TOGGLE)
        self.tree.find("Capture", "push button").press()
        wait_until(self.overlay, "the overlay")

    def overlay(self):
        """The number of the capturing process once its window is there."""
        name = f"{self.session.executable}-screencapture"
        found = subprocess.run(["pgrep", "-f", f"^{name}"], capture_output=True, text=True)
        return any(self.screen.windows_of(int(number)) for number in found.stdout.split())

    def workspace(self):
        return wait_until(lambda: self.program.window(TITLE), TITLE)

    def captured(self):
        """The name of the capture in the list of files, or None."""
        names = self.tree.every(lambda node: node.role == "list item" and node.name)
        return next((name for name in names if name.startswith("Perchly-")), None)

    def test_a_capture_is_held_and_previewed(self):
        self.begin()
        # The shelf stays closed under the overlay, though the pointer passes it.
        self.screen.move_to(800, 10, step=50)
        wait_while(lambda: self.program.outline()[3] < 100, "the closed shelf", 0.7)
        self.screen.drag((300, 300), (499, 399))
        workspace = self.workspace()
        name = wait_until(self.captured, "the capture among the files")
        self.assertTrue(name.endswith(".png"), name)
        wait_until(lambda: self.screen.focus() == workspace.id, "the workspace's keyboard")
        self.go_to("Preview", subject=name)
        self.screen.key("space")
        preview = wait_until(lambda: self.preview(name), "the preview")
        wait_until(lambda: self.screen.focus() == preview.id, "the preview's keyboard")
        self.screen.key("space")
        wait_until(lambda: not self.preview(name), "the preview closed")
        wait_until(lambda: self.screen.focus() == workspace.id, "the workspace's keyboard")
        self.screen.key("Left")  # to the row itself
        self.screen.key("space")
        wait_until(lambda: self.preview(name), "the preview of the row")

    def preview(self, name):
        found = subprocess.run(
            ["pgrep", "-f", f"^{self.session.executable}-preview"], capture_output=True, text=True
        )
        windows = [w for n in found.stdout.split() for w in self.screen.windows_of(int(n))]
        return next((window for window in windows if window.title == name), None)

    def test_escape_leaves_nothing_and_the_workspace_comes_back(self):
        self.begin()
        self.screen.key("Escape")
        self.workspace()
        wait_until(lambda: not self.overlay(), "the overlay gone")
        self.assertIsNone(self.captured())


class PreviewTest(SessionCase):
    def look_at(self, files):
        """Starts the preview with files of these names and contents, on the first of them."""
        for name, content in files.items():
            (self.session.folder / name).write_bytes(content)
        self.urls = [(self.session.folder / name).as_uri() for name in files]
        self.preview = subprocess.Popen(
            [f"{self.session.executable}-preview"],
            env=self.session.environment,
            stdin=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
        )
        self.addCleanup(self._end_preview, self.preview)
        self.addCleanup(self.preview.stdin.close)
        self.ask()

    def _end_preview(self, preview):
        try:
            preview.wait(10)
        finally:
            preview.kill()

    def ask(self, toggle=False):
        request = {"items": self.urls, "index": 0, "toggle": toggle}
        self.preview.stdin.write(json.dumps(request).encode() + b"\n")
        self.preview.stdin.flush()

    def shows(self, title, colour=None):
        """Waits for the window of that title, with that colour in its middle if one is given."""

        def there():
            windows = self.screen.windows_of(self.preview.pid)
            if not windows or windows[0].title != title or self.screen.focus() != windows[0].id:
                return False
            x, y, width, height = windows[0].rect
            if y + height > self.screen.height:
                return False  # the window manager lets it fly in
            middle = self.screen.screenshot().pixel(x + width // 2, y + height // 2 - 40)
            return colour is None or near(middle, colour, 30)

        wait_until(there, f"{title} in {colour}", timeout=20)

    def test_what_plays_comes_and_goes_at_once(self):
        self.start_session()
        video = moving_picture(self.session.folder / "video.mp4")
        self.look_at(
            {
                "a.mp4": video,
                "b.mp4": b"x" * 5000,
                "c.mp4": video[:2000],
                "d.txt": b"a line of text\n" * 100,
                "e.mp4": video,
                "f.mp4": video,
                "g.pdf": b"%PDF-1.4 none",
            }
        )
        self.shows("a.mp4", GREEN)  # beyond its first picture, though nothing takes its sound
        for title in ("b.mp4", "c.mp4", "d.txt"):
            self.screen.key("Right")
            self.shows(title)
        for _ in range(3):
            self.screen.key("Right")
        self.shows("g.pdf")
        self.screen.key("Left")
        self.shows("f.mp4", GREEN)
        self.screen.key("space")
        wait_until(lambda: not self.screen.windows_of(self.preview.pid), "the preview closed")
        self.assertIsNone(self.preview.poll())

    def test_a_preview_out_of_sight_is_not_closed(self):
        self.start_session()
        self.look_at({"a.mp4": moving_picture(self.session.folder / "video.mp4")})
        self.shows("a.mp4", GREEN)
        window = self.screen.windows_of(self.preview.pid)[0]
        self.screen.minimize(window)
        wait_until(lambda: not self.screen.windows_of(self.preview.pid), "it minimised")
        self.screen.activate(window.id)
        self.shows("a.mp4", GREEN)
        self.screen.minimize(window)
        wait_until(lambda: not self.screen.windows_of(self.preview.pid), "it minimised")
        time.sleep(0.3)  # until it has heard of it
        self.ask(toggle=True)  # who asks for what is out of sight wants to see it
        self.shows("a.mp4", GREEN)
        tree = Accessibility(self.session.bus_address, self.preview.pid)
        named = tree.every(lambda node: node.name == "a.mp4")
        self.assertEqual(len(named), 2, "the window and its picture")
        self.screen.show_desktop(1)
        wait_until(lambda: not self.screen.windows_of(self.preview.pid), "another desktop")
        self.ask(toggle=True)
        self.shows("a.mp4", GREEN)
        self.ask(toggle=True)
        wait_until(lambda: not self.screen.windows_of(self.preview.pid), "the preview closed")


if __name__ == "__main__":
    main()

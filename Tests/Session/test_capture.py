"""Capturing a part of the screen into the tray, and looking at what is held."""

import subprocess

from perchly_session.case import SessionCase, main
from perchly_session.waiting import wait_until, wait_while

TOGGLE = ("Control_L", "Alt_L", "space")
TITLE = "Perchly Workspace"


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
        for node in self.tree.application().walk():
            if node.role == "list item" and node.name.startswith("Perchly-") and node.showing:
                return node.name
        return None

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


if __name__ == "__main__":
    main()

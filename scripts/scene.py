"""scene.py PROGRAM FOLDER [sway]: plays a scene with Perchly on a virtual display, of X or of sway, and
leaves every picture of docs/ in the folder."""

import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "Tests" / "Session"))

from desk import CLIPS, HELD_FILE, HELD_LINKS, MEETINGS, TITLE, Desk  # noqa: E402
from perchly_session.case import User  # noqa: E402
from perchly_session.other_programs import copy  # noqa: E402
from perchly_session.session import Session  # noqa: E402
from perchly_session.waiting import wait_until  # noqa: E402

SIZE = (1280, 960)
MARGIN = 40
WIDE_MARGIN = 120
WORKSPACE_HEIGHT = 690
CLOSED_WIDTHS = (290, 34)
OPEN_WIDTH = 660
OPEN_WIDTH_AT_SIDE = 694
REST_SECONDS = 0.3
VOLUMES = (0.8, 0.4)
DARK = 60  # sum of red, green and blue; the wallpaper is lighter
FREE_PLACE = (1200, 930)


class Scene(User):
    """Uses the program as a user does, with pointer and keyboard."""

    def __init__(self, session, desk, folder):
        self._desk = desk
        self._folder = folder
        self._session = session
        self.pictures = set()
        self._status_item = session.start_status_watcher()
        self.screen = session.screen
        self.program = session.run()
        self.tree = self.program.accessibility()

    def play(self):
        self.tree.find(f"{TITLE} · Playing")
        self.picture("pill", self.around_shelf(WIDE_MARGIN))
        self.show_workspace()
        self.show_shelf()
        self.show_docked()
        self.show_settings()
        self.show_mixer()

    def show_workspace(self):
        window = self.open_workspace("Meetings")
        self.tree.find(MEETINGS[0][0], "list item")
        self.choose_section("Files")
        self.hold_files()
        self.choose_section("Clipboard")
        self.click("Enable clipboard history for this session", "check box")
        for clip in CLIPS:
            copy(self._session, clip)
            self.tree.find(clip, "list item")
        copy(self._session, self._desk.photo.read_bytes(), "image/png")
        self.tree.find("Copied image", "list item")
        self.click("Search copied text", "text")
        self.window_picture("clipboard", window)
        self.choose_section("Search")
        self.screen.type_text("office")
        window = self.resize(window, WORKSPACE_HEIGHT)
        self.tree.find(HELD_LINKS[0], "list item")
        self.window_picture("workspace", window)
        self.close(window)

    def hold_files(self):
        self.click("Add files…", "push button")
        dialog = self.window("Add files")
        self.screen.type_text(f"{self._desk.held_file}\n")
        self.expect_closed(dialog.title)
        self.tree.find(HELD_FILE, "list item")
        for link in HELD_LINKS:
            self.click("https://…", "text")
            self.screen.type_text(f"{link}\n")
            self.tree.find(link, "list item")

    def show_shelf(self):
        self.open_shelf(OPEN_WIDTH)
        self.picture("shelf", self.around_shelf())
        self.leave_shelf()

    def show_docked(self):
        self.screen.drag(self.on_pill(), (3, 640))
        self.leave_shelf()
        self.open_shelf(OPEN_WIDTH_AT_SIDE)
        self.click("Focus", "push button")
        self.tree.find("End focus", "push button")
        x, y, width, _ = self.program.frame()
        self.screen.move_to(x + width // 2, y + 20)  # off the button
        self.picture("docked", self.around_shelf())
        self.leave_shelf()

    def show_settings(self):
        self._status_item.choose("Settings…")
        window = self.window("Perchly Settings")
        self.window_picture("settings", window)
        self.close(window)

    def show_mixer(self):
        self._desk.play_in_browser()
        self._status_item.choose("Volume Mixer…")
        wait_until(lambda: len(self.tree.rows()) == 2, "two programs in the mixer", 30)
        self._status_item.choose("Volume Mixer…")  # in front of the browser
        window = self.window("Perchly Volume Mixer")
        for name, share in zip(self.tree.rows(), VOLUMES):
            self.click("Enable", "push button", name)
            x, y, width, height = self.tree.find(f"{name} volume", "slider").extents
            self.screen.click(x + round(share * width), y + height // 2)
        self.screen.move_to(*FREE_PLACE)
        self.window_picture("mixer", window)

    # Helpers

    def resize(self, window, height):
        self.screen.resize_window(window.id, height)
        resized = lambda: self.program.window(window.title).rect[3] == height
        wait_until(resized, "the new height")
        return self.program.window(window.title)

    def close(self, window):
        self.screen.key("Control_L", "w")
        self.expect_closed(window.title)

    def open_shelf(self, open_width):
        self.screen.move_to(*self.on_pill())
        wait_until(lambda: self.program.frame()[2] == open_width, "the shelf open")

    def leave_shelf(self):
        self.screen.move_to(*FREE_PLACE)
        wait_until(lambda: self.program.frame()[2] in CLOSED_WIDTHS, "the shelf closed")

    def around_shelf(self, margin=MARGIN):
        x, y, width, height = self.program.frame()
        left, top = max(0, x - margin), max(0, y - margin)
        return left, top, x + width + margin - left, y + height + margin - top

    def window_picture(self, name, window):
        def is_painted():
            return sum(self.screen.screenshot(window.rect).getpixel((4, 4))) < DARK

        wait_until(is_painted, f"{window.title} painted")
        self.picture(name, window.rect)

    def picture(self, name, rect):
        """Takes a picture of a part of the screen once it is still, apart from a blinking caret."""
        self._desk.show_wallpaper()
        picture, since = None, time.monotonic()

        def at_rest():
            nonlocal picture, since
            last, picture = picture, self.screen.screenshot(rect)
            if picture != last:
                since = time.monotonic()
            return time.monotonic() - since > REST_SECONDS

        wait_until(at_rest, f"{name} at rest", interval=0.05)
        path = self._folder / f"{name}.png"
        picture.save(path)
        self._desk.hide_wallpaper()
        self.pictures.add(path.name)
        print(f"  {path}")


def main():
    program, folder = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    session = Session(program, sys.argv[3] if len(sys.argv) > 3 else "openbox", size=SIZE)
    try:
        session.start_compositor()
        session.screen.move_to(*FREE_PLACE, step=200)
        desk = Desk(session)
        desk.play_track()
        print("The pictures:")
        scene = Scene(session, desk, folder)
        scene.play()
        if errors := scene.program.errors():
            sys.exit(f"Perchly wrote to stderr:\n{errors}")
        wanted = {picture.name for picture in (ROOT / "docs").glob("*.png")}
        if missing := wanted - scene.pictures:
            sys.exit(f"no step of the scene takes {missing}")
    except AssertionError:
        failure = Path(tempfile.gettempdir()) / "perchly-scene-failure.png"
        session.screen.screenshot().save(failure)
        print(f"screenshot: {failure}", file=sys.stderr)
        raise
    finally:
        session.stop()


if __name__ == "__main__":
    main()

"""scene.py PROGRAM FOLDER: plays a scene with Perchly on a virtual display and leaves pictures of it
in the folder."""

import sys
import time
from pathlib import Path

from Xlib import X

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "Tests" / "Session"))

from desk import CLIPS, HELD_FILE, HELD_LINKS, MEETINGS, TITLE, Desk  # noqa: E402
from perchly_session.picture import Picture  # noqa: E402
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
DARK = 60  # red, green and blue; the wallpaper is lighter
FREE_PLACE = (1200, 930)


class Scene:
    """Goes through the program as a user does, by pointer and keyboard."""

    def __init__(self, session, desk, folder):
        self._desk = desk
        self._folder = folder
        self._screen = session.screen
        self._session = session
        self._program = session.run()
        self._tree = self._program.accessibility()

    def play(self):
        self._tree.find(f"{TITLE} · Playing")
        self.picture("pill", self.around_shelf(WIDE_MARGIN))
        self.show_workspace()
        self.show_shelf()
        self.show_docked()
        self.show_settings()
        self.show_mixer()

    def show_workspace(self):
        self._screen.key("Control_L", "Alt_L", "k")
        window = self.window("Perchly Workspace")
        self.choose_section("Meetings")
        self._tree.find(MEETINGS[0][0], "list item")
        self.choose_section("Files")
        self.hold_files()
        self.choose_section("Clipboard")
        self.click("Enable clipboard history for this session", "check box")
        for clip in CLIPS:
            self._desk.copy(clip)
            self._tree.find(clip, "list item")
        self._desk.copy(self._desk.photo.read_bytes(), "image/png")
        self._tree.find("Copied image", "list item")
        self.click("Search copied text", "text")
        self.window_picture("clipboard", window)
        self.choose_section("Search")
        self._screen.type_text("office")
        window = self.resize(window, WORKSPACE_HEIGHT)
        self._tree.find(HELD_LINKS[0], "list item")
        self.window_picture("workspace", window)
        self.close(window)

    def hold_files(self):
        self.click("Add files…", "push button")
        dialog = self.window("Add files")
        self._screen.type_text(f"{self._desk.held_file}\n")
        wait_until(lambda: not self._program.window(dialog.title), "the dialog closed")
        self._tree.find(HELD_FILE, "list item")
        for link in HELD_LINKS:
            self.click("https://…", "text")
            self._screen.type_text(f"{link}\n")
            self._tree.find(link, "list item")

    def show_shelf(self):
        self.open_shelf(OPEN_WIDTH)
        self.picture("shelf", self.around_shelf())
        self.leave_shelf()

    def show_docked(self):
        x, y, width, height = self._program.frame()
        self._screen.drag((x + width // 2, y + height // 2), (3, 640))
        self.leave_shelf()
        self.open_shelf(OPEN_WIDTH_AT_SIDE)
        self.click("Focus", "push button")
        self._tree.find("End focus", "push button")
        x, y, width, _ = self._program.outline()
        self._screen.move_to(x + width // 2, y + 20)  # off the button
        self.picture("docked", self.around_shelf())
        self.leave_shelf()

    def show_settings(self):
        self._session.status_item().choose("Settings…")
        window = self.window("Perchly Settings")
        self.window_picture("settings", window)
        self.close(window)

    def show_mixer(self):
        self._desk.play_in_browser()
        self._session.status_item().choose("Volume Mixer…")
        wait_until(lambda: len(self.mixer_rows()) == 2, "two programs in the mixer", 30)
        self._session.status_item().choose("Volume Mixer…")  # in front of the browser
        window = self.window("Perchly Volume Mixer")
        for name, share in zip(self.mixer_rows(), VOLUMES):
            self.click("Enable", "push button", name)
            x, y, width, height = self.find(f"{name} volume", "slider").extents
            self._screen.click(x + round(share * width), y + height // 2)
        self._screen.move_to(*FREE_PLACE)
        self.window_picture("mixer", window)

    def errors(self):
        return self._program.errors()

    def mixer_rows(self):
        rows = self._tree.find("Apps playing audio", "list").children
        return [row.name for row in rows if row.role == "list item" and row.showing]

    # Helpers

    def find(self, name, role, subject=None):
        """The element on the screen; for that entry, if several have the name."""

        def matches(node):
            return (node.name, node.role) == (name, role) and node.showing and (
                subject in (None, node.description)
            )

        nodes = self._tree.application().walk
        return wait_until(lambda: next(filter(matches, nodes()), None), f"{role} {name}")

    def click(self, name, role, subject=None):
        self._screen.click(*self.find(name, role, subject).centre)

    def choose_section(self, name):
        self.click("Tools", "combo box")
        self.click(name, "list item")
        wait_until(lambda: self._tree.find("Tools", "combo box").description == name, name)

    def window(self, title):
        window = wait_until(lambda: self._program.window(title), title)
        wait_until(lambda: self._screen.focus() == window.id, f"{title} with the keyboard")
        return window

    def resize(self, window, height):
        resource = self._screen.display.create_resource_object("window", window.id)
        resource.configure(height=height)
        self._screen.display.sync()
        wait_until(lambda: self._program.window(window.title).height == height, "the new height")
        return self._program.window(window.title)

    def close(self, window):
        self._screen.key("Control_L", "w")
        wait_until(lambda: not self._program.window(window.title), f"{window.title} closed")

    def open_shelf(self, open_width):
        x, y, width, height = self._program.frame()
        self._screen.move_to(x + width // 2, y + height // 2)
        wait_until(lambda: self._program.frame()[2] == open_width, "the shelf open")

    def leave_shelf(self):
        self._screen.move_to(*FREE_PLACE)
        wait_until(lambda: self._program.frame()[2] in CLOSED_WIDTHS, "the shelf closed")

    def around_shelf(self, margin=MARGIN):
        x, y, width, height = self._program.outline()
        left, top = max(0, x - margin), max(0, y - margin)
        return left, top, x + width + margin - left, y + height + margin - top

    def window_picture(self, name, window):
        def is_painted():
            return sum(self._screen.screenshot().pixel(window.x + 4, window.y + 4)) < DARK

        wait_until(is_painted, f"{window.title} painted")
        self.picture(name, window.rect)

    def picture(self, name, rect):
        """Takes the picture of a part of the screen at rest; a caret may blink."""
        pixels, since = None, time.monotonic()

        def at_rest():
            nonlocal pixels, since
            last, pixels = pixels, self._screen.root.get_image(*rect, X.ZPixmap, 0xFFFFFFFF).data
            if pixels != last:
                since = time.monotonic()
            return time.monotonic() - since > REST_SECONDS

        wait_until(at_rest, f"{name} at rest", interval=0.05)
        path = self._folder / f"{name}.png"
        Picture(*rect[2:], bytes(pixels)).save(path)
        print(f"  {path}")


def main():
    program, folder = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    session = Session(program, compositor="picom", status_watcher=True, size=SIZE)
    try:
        session.start()
        session.screen.move_to(*FREE_PLACE, step=200)
        desk = Desk(session)
        desk.play_track()
        print("The pictures:")
        scene = Scene(session, desk, folder)
        scene.play()
        if errors := scene.errors():
            sys.exit(f"Perchly wrote to stderr:\n{errors}")
    finally:
        session.stop()


if __name__ == "__main__":
    main()

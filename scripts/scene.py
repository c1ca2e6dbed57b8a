"""scene.py PROGRAM FOLDER: plays a short scene with Perchly on a virtual display and leaves pictures
of it in the folder."""

import sys
from pathlib import Path

from Xlib import Xatom

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "Tests" / "Session"))

from perchly_session.session import Session  # noqa: E402
from perchly_session.waiting import wait_until  # noqa: E402

TOP = (0x2B, 0x4C, 0x6F)
BOTTOM = (0xC9, 0x8F, 0x7A)


def paint_background(screen):
    """A sunrise, where compositors and window managers look for the desktop's picture."""
    picture = screen.root.create_pixmap(screen.width, screen.height, screen.root.get_geometry().depth)
    pen = picture.create_gc()
    for y in range(screen.height):
        part = y / screen.height
        red, green, blue = (round(a + (b - a) * part) for a, b in zip(TOP, BOTTOM))
        pen.change(foreground=red << 16 | green << 8 | blue)
        picture.fill_rectangle(pen, 0, y, screen.width, 1)
    screen.root.change_attributes(background_pixmap=picture)
    for name in ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID"):
        screen.root.change_property(screen.atom(name), Xatom.PIXMAP, 32, [picture.id])
    screen.root.clear_area()
    screen.display.sync()


class Scene:
    def __init__(self, session, folder):
        self._session = session
        self._folder = folder
        self._screen = session.screen
        self._program = session.run()
        self._number = 0

    def play(self):
        self.picture("pill")
        x, y, width, height = self._program.frame()
        self._screen.move_to(x + width // 2, y + height // 2)
        self.wait_for_width(660)
        self.picture("open-under-the-pointer")
        self._screen.move_to(640, 760)
        self.wait_for_width(290)
        self._screen.key("Control_L", "Alt_L", "space")
        self.wait_for_width(660)
        self.picture("keyboard-mode")
        self._screen.key("Escape")
        self.wait_for_width(290)
        self._screen.drag((x + width // 2, y + height // 2), (3, 400))
        self._screen.move_to(640, 760)
        self.wait_for_width(34)
        self.picture("docked-left")
        self._screen.move_to(17, 400)
        self.wait_for_width(694)
        self.picture("docked-left-open")

    def wait_for_width(self, width):
        wait_until(lambda: self._program.frame()[2] == width, f"the shelf {width} pixels wide")

    def picture(self, name):
        """Takes the picture once the screen is at rest."""
        self._number += 1
        last = []

        def at_rest():
            last.append(self._screen.screenshot())
            return len(last) > 5 and last[-1].same_as(last[-6])

        wait_until(at_rest, "the screen at rest", interval=0.06)
        path = self._folder / f"{self._number}-{name}.png"
        last[-1].save(path)
        print(f"  {path}")


def main():
    program, folder = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    session = Session(program, window_manager="openbox", compositor="picom")
    try:
        session.start()
        paint_background(session.screen)
        session.screen.move_to(640, 760, step=200)
        print("The pictures:")
        Scene(session, folder).play()
    finally:
        session.stop()


if __name__ == "__main__":
    main()

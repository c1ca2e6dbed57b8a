"""Programs that files and links are dragged out of, and into."""

import json
import os
import select
import subprocess
import time

from .waiting import wait_until


class _Partner:
    """A running program of the tests', with one window."""

    def __init__(self, session, variable, *arguments):
        self._screen = session.screen
        self.process = subprocess.Popen(
            [os.environ[variable], *arguments],
            env=session.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            bufsize=0,
        )
        wait_until(lambda: self._screen.windows_of(self.process.pid), "the partner's window")

    def close(self):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()

    def _drag(self, start, *places):
        """Drags from the start by way of the places, lets go when the partner says that the drag is
        accepted, and returns what it says then."""
        self._screen.move_to(*start)
        self._screen.press()
        for place in places:
            self._screen.move_to(*place, pause=0.01)
            time.sleep(0.3)
        line = self._line()
        self._screen.release()
        while line == "accepted":
            line = self._line()
        return line

    def _line(self):
        readable, _, _ = select.select([self.process.stdout], [], [], 10)
        return self.process.stdout.readline().decode().strip() if readable else ""


class DragSource(_Partner):
    """Another program that offers these addresses, or else two files, a web link and another link,
    to copy or to move."""

    PLACE = (200, 600)

    def __init__(self, session, *addresses):
        super().__init__(session, "PERCHLY_DRAG_SOURCE", *addresses)

    def drag_to(self, *places):
        """Drags by way of the places; returns "copy" or "move", or "nothing" if they were not taken."""
        return self._drag(self.PLACE, *places)


class DropTarget(_Partner):
    """Another program that takes what is dragged into its window."""

    PLACE = (800, 600)

    def __init__(self, session):
        super().__init__(session, "PERCHLY_DROP_TARGET")

    def drag_from(self, start):
        """Drags from the start into the window; gives what came, with the keys "formats", "urls",
        "text", "may copy" and "may move"."""
        x, y = self.PLACE
        return json.loads(self._drag(start, (start[0] + 20, start[1] + 10), (x - 20, y), (x, y)))

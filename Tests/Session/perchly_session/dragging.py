"""Programs that files and links are dragged out of, and into."""

import json
import os
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
            text=True,
        )
        wait_until(lambda: self._screen.windows_of(self.process.pid), "the partner's window")

    def close(self):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()

    def _line(self):
        return self.process.stdout.readline().strip()


def drag(screen, start, *places):
    """Drags from the start by way of the places, resting at each; lets go at the last one."""
    screen.move_to(*start)
    screen.press()
    for place in places:
        screen.move_to(*place, pause=0.01)
        time.sleep(0.3)
    screen.release()


class DragSource(_Partner):
    """Another program that offers these addresses, or else two files, a web link and another link,
    to copy or to move."""

    PLACE = (200, 600)

    def __init__(self, session, *addresses):
        super().__init__(session, "PERCHLY_DRAG_SOURCE", *addresses)

    def drag_to(self, *places):
        """Drags by way of the places; "copy" or "move" when they were taken, else "nothing"."""
        drag(self._screen, self.PLACE, *places)
        return self._line()


class DropTarget(_Partner):
    """Another program that takes what is dragged into its window."""

    PLACE = (800, 600)

    def __init__(self, session):
        super().__init__(session, "PERCHLY_DROP_TARGET")

    def drag_from(self, start):
        """Drags from the start into the window; gives what came, with the keys "formats", "urls",
        "text", "may copy" and "may move"."""
        x, y = self.PLACE
        drag(self._screen, start, (start[0] + 20, start[1] + 10), (x - 20, y), (x, y))
        return json.loads(self._line())

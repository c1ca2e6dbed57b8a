"""installed.py PROGRAM PICTURE: starts an installed Perchly in a session of its own and leaves a
picture of the screen. Fails if no shelf is shown or anything is printed. PROGRAM may also be a script
that starts it."""

import re
import sys
from pathlib import Path

from Xlib.error import BadWindow

TREE = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TREE / "Tests" / "Session"))

from perchly_session.session import Session  # noqa: E402
from perchly_session.waiting import wait_until, wait_while  # noqa: E402

START_SECONDS = 30.0
REST_SECONDS = 1.0
BUS_MESSAGE = r"dbus-daemon\[.*"  # of a bus that the script starts


def main():
    program, picture = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    session = Session(program)
    try:
        running = session.run(wait=False)

        def shelf():
            try:
                windows = session.screen.root.query_tree().children
                return any(window.get_wm_name() == "Perchly" for window in windows)
            except BadWindow:  # one closed meanwhile
                return False

        wait_until(lambda: shelf() or not running.running(), "the shelf", START_SECONDS)
        if running.running():
            wait_while(running.running, "the program running", REST_SECONDS)
            session.screen.screenshot().save(picture)
        errors = [e for e in running.errors().splitlines() if not re.fullmatch(BUS_MESSAGE, e)]
        if errors or not running.running():
            sys.exit("\n".join([f"{program} failed or printed:", *errors]))
        print(f"{program} shows its shelf: {picture}")
    finally:
        session.stop()


if __name__ == "__main__":
    main()

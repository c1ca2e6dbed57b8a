"""Other programs that copy and paste."""

import subprocess
from pathlib import Path

OWNER = Path(__file__).resolve().parents[2] / "Linux" / "Clipboard" / "selection_owner.py"


class ClipboardOwner:
    """Another program's copy: offers such as "UTF8_STRING=text", and no others."""

    def __init__(self, session, *offers):
        self.process = subprocess.Popen(
            [OWNER, *offers],
            env=session.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            text=True,
        )
        line = self.process.stdout.readline().strip()
        assert line == "owns", line

    def close(self):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()


def pasted(session):
    """The text that another program gets when it pastes."""
    command = ["xclip", "-selection", "clipboard", "-out", "-target", "UTF8_STRING"]
    paste = subprocess.run(command, env=session.environment, capture_output=True, timeout=10)
    return paste.stdout.decode()

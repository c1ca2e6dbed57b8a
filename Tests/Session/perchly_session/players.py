"""Media players on the session's bus."""

import json
import subprocess
import sys
import wave
from pathlib import Path

SCRIPTED_PLAYER = Path(__file__).parents[2] / "ScriptHost" / "scripted_player.py"
MPV_PLUGIN = "/usr/lib/mpv-mpris/mpris.so"


def moving_picture(file):
    """Three seconds: a moment in red, then in green, with a tone."""
    picture = "av://lavfi:color=c=red:s=64x48:r=10:d=0.3,tpad=stop_duration=2.7:color=green"
    options = ["--no-config", "--really-quiet", "--audio-file=av://lavfi:sine=d=3"]
    coders = ["--ovc=mpeg4", "--oac=aac"]
    subprocess.run(["mpv", *options, picture, *coders, f"--o={file}"], check=True, timeout=20)
    return file.read_bytes()


class Mpv:
    """The real player, silent, at the start of an hour of silence."""

    def __init__(self, session, title):
        path = session.folder / f"{title}.wav"
        with wave.open(str(path), "wb") as sound:
            sound.setnchannels(1)
            sound.setsampwidth(1)
            sound.setframerate(8000)
            sound.writeframes(b"\x80" * 8000 * 3600)
        options = ["--no-config", "--no-terminal", "--no-video", "--ao=null"]
        self._process = session.spawn(
            "mpv", *options, f"--force-media-title={title}", f"--script={MPV_PLUGIN}", str(path)
        )

    def stop(self):
        self._process.terminate()
        self._process.wait(10)


class ScriptedPlayer:
    """A player that does what it is told to; Tests/ScriptHost/scripted_player.py says what that
    can be."""

    def __init__(self, session, **script):
        self._process = session.spawn(
            sys.executable, "-B", str(SCRIPTED_PLAYER), "scripted", json.dumps(script),
            stdout=subprocess.PIPE,
        )
        self.expect("ready")

    def expect(self, word):
        """Waits for the next thing that reaches the player, and returns its arguments."""
        line = self._process.stdout.readline().decode().split()
        if not line or line[0] != word:
            raise AssertionError(f"the player was asked {line}, not {word}")
        return line[1:]

    def stop(self):
        self._process.kill()
        self._process.wait()
        self._process.stdout.close()

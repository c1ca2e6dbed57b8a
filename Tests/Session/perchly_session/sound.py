"""A sound system in a session: PipeWire with a silent output, and a program that plays."""

import array
import subprocess
from pathlib import Path

from .other_programs import MPV
from .session import end
from .waiting import wait_until

OUTPUT = """context.objects = [ { factory = adapter args = {
    factory.name = support.null-audio-sink node.name = output media.class = Audio/Sink
    audio.position = [ FL FR ] priority.session = 1000 object.linger = true } } ]"""
BYTES_PER_SECOND = 48000 * 2 * 4
TONE = "0.25*sin(960*PI*t)"
PEAK = 0.25


class Sound:
    """A sound system; start it before the program. Ends with the session."""

    def __init__(self, session):
        self._session = session
        folder = session.home / ".config" / "pipewire" / "pipewire.conf.d"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "output.conf").write_text(OUTPUT)
        self.start()

    def start(self):
        self._servers = [self._session.spawn("pipewire")]
        socket = Path(self._session.environment["XDG_RUNTIME_DIR"]) / "pipewire-0"
        wait_until(socket.exists, "the sound server")
        self._servers += map(self._session.spawn, ("wireplumber", "pipewire-pulse"))
        default = ("pw-metadata", "-n", "default", "0", "default.audio.sink")
        has_output = lambda: b'"output"' in self._session.call(*default, check=False)
        wait_until(has_output, "the sound system", 20)

    def stop(self):
        for server in reversed(self._servers):
            end(server)

    def play_tone(self):
        self._session.spawn(*MPV, "--ao=pipewire", f"av://lavfi:aevalsrc={TONE}|{TONE}")

    def level(self):
        """The output's current peak, relative to that of the tone."""
        command = ["pw-record", "--target", "output", "-P", "{ stream.capture.sink=true }"]
        command += ["--format", "f32", "--rate", "48000", "--channels", "2", "-"]
        recorder = self._session.spawn(*command, stdout=subprocess.PIPE)
        try:
            recorded = recorder.stdout.read(BYTES_PER_SECOND // 2)[-BYTES_PER_SECOND // 4 :]
        finally:
            recorder.kill()
            recorder.wait()
        return max(map(abs, array.array("f", recorded))) / PEAK

    def expect_level(self, wanted, what):
        wait_until(lambda: abs(self.level() - wanted) < 0.02, what, 20)

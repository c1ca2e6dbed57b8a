"""A sound system in a session: PipeWire with two silent outputs, and programs that play."""

import array
import json
import math
import subprocess
import sys
import wave
from pathlib import Path

from .waiting import wait_until

OUTPUT = """{{ factory = adapter args = {{
    factory.name = support.null-audio-sink node.name = {name} media.class = Audio/Sink
    audio.position = [ FL FR ] priority.session = {priority} object.linger = true }} }}"""
RATE = 48000
SECONDS = 60
TONE = 0.25


class Sound:
    """Start it before the program. Everything ends with the session."""

    def __init__(self, session):
        self._session = session
        self._tone = session.folder / "tone.wav"
        self._players = []
        folder = Path(session.environment["XDG_CONFIG_HOME"]) / "pipewire" / "pipewire.conf.d"
        folder.mkdir(parents=True, exist_ok=True)
        outputs = [
            OUTPUT.format(name="first", priority=2000),
            OUTPUT.format(name="second", priority=1000),
        ]
        objects = "\n".join(outputs)
        (folder / "outputs.conf").write_text(f"context.objects = [ {objects} ]\n")
        self._write_tone()
        session.spawn("pipewire")
        socket = Path(session.environment["XDG_RUNTIME_DIR"]) / "pipewire-0"
        wait_until(socket.exists, "the sound server")
        session.spawn("wireplumber")
        session.spawn("pipewire-pulse")
        wait_until(lambda: self.default_output() == "first", "the sound system", 20)

    def play(self, *options):
        """A program that plays a tone; ends with the session."""
        player = subprocess.Popen(
            ["pw-play", *options, str(self._tone)],
            env=self._session.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        self._players.append(player)
        return player

    def end(self):
        for player in self._players:
            player.kill()
            player.wait()

    def choose_output(self, name):
        value = json.dumps({"name": name})
        key = "default.configured.audio.sink"
        self._told("pw-metadata", "-n", "default", "0", key, value, "Spa:String:JSON")
        wait_until(lambda: self.default_output() == name, f"the output {name}")

    def default_output(self):
        said = self._told("pw-metadata", "-n", "default", "0", "default.audio.sink")
        return next((name for name in ("first", "second") if f'"{name}"' in said), None)

    def route_nodes(self):
        """The names of the nodes that routes consist of."""
        lines = self._told("pw-dump").splitlines()
        return [line.strip() for line in lines if '"node.name": "perchly.' in line]

    def level(self, output="first"):
        """The loudest sample that an output plays now, as a share of the tone's."""
        file = self._session.folder / "recorded.raw"
        properties = "{ stream.capture.sink=true }"
        with open(file, "wb") as output_file:
            recorder = subprocess.Popen(
                ["pw-record", "--target", output, "-P", properties, "--format", "f32"]
                + ["--rate", str(RATE), "--channels", "2", "-"],
                env=self._session.environment,
                stdin=subprocess.DEVNULL,
                stdout=output_file,
                stderr=subprocess.DEVNULL,
            )
        try:
            wait_until(lambda: file.stat().st_size > RATE * 8 // 2, "half a second recorded")
        finally:
            recorder.kill()
            recorder.wait()
        content = file.read_bytes()[-RATE * 8 // 4 :]
        samples = array.array("f", content[: len(content) // 8 * 8])
        return max(map(abs, samples)) / TONE

    def expect_level(self, wanted, what, output="first"):
        wait_until(lambda: abs(self.level(output) - wanted) < 0.02, what, 20)

    def _write_tone(self):
        period = [round(32767 * TONE * math.sin(math.tau * at / 100)) for at in range(100)]
        samples = array.array("h", [sample for sample in period for _ in range(2)])
        if sys.byteorder == "big":
            samples.byteswap()
        with wave.open(str(self._tone), "wb") as tone:
            tone.setnchannels(2)
            tone.setsampwidth(2)
            tone.setframerate(RATE)
            tone.writeframes(samples.tobytes() * (RATE * SECONDS // 100))

    def _told(self, *command):
        return subprocess.run(
            command,
            env=self._session.environment,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            text=True,
            timeout=20,
            check=False,
        ).stdout

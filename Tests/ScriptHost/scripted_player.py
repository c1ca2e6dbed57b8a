#!/usr/bin/python3
"""A media player that does what real ones do not do on demand.

Usage: scripted_player.py NAME JSON. The JSON object may hold "properties" (of the player interface,
merged over a playing track), "metadata" (merged over its metadata; null leaves a key out),
"identity", "entry", "flurry" (change signals for one change), and "behaviour": "obeys", "refuses" (an error to every command),
"ignores", "silent" (answers nothing at all), or "late" (answers after "delay" seconds). Values are
given as [SIGNATURE, VALUE]. It writes "ready" once it is on the bus and then every command that reached it.
"""

import json
import sys
import time

from gi.repository import Gio, GLib

PATH = "/org/mpris/MediaPlayer2"
ROOT = "org.mpris.MediaPlayer2"
PLAYER = "org.mpris.MediaPlayer2.Player"

TRACK = {
    "xesam:title": ["s", "Song"],
    "xesam:artist": ["as", ["Singer"]],
    "mpris:length": ["x", 200_000_000],
    "mpris:trackid": ["o", "/track/1"],
}
PROPERTIES = {
    "PlaybackStatus": ["s", "Playing"],
    "Position": ["x", 100_000_000],
    "CanPlay": ["b", True],
    "CanPause": ["b", True],
    "CanGoNext": ["b", True],
    "CanGoPrevious": ["b", True],
    "CanSeek": ["b", True],
    "CanControl": ["b", True],
}


def merged(base, changes):
    values = {**base, **changes}
    return {key: value for key, value in values.items() if value is not None}


def variants(values):
    return {key: GLib.Variant(*value) for key, value in values.items()}


class ScriptedPlayer:
    def __init__(self, name, script):
        self.script = script
        self.behaviour = script.get("behaviour", "obeys")
        self.properties = merged(PROPERTIES, script.get("properties", {}))
        self.metadata = merged(TRACK, script.get("metadata", {}))
        self.loop = GLib.MainLoop()
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        # Objects that answer properties themselves: GIO would hold values to their interface's types.
        self.bus.add_filter(self.on_message)
        Gio.bus_own_name_on_connection(
            self.bus, f"org.mpris.MediaPlayer2.{name}", Gio.BusNameOwnerFlags.NONE,
            lambda *_: self.tell("ready"), None
        )

    @staticmethod
    def tell(text):
        sys.stdout.write(text + "\n")
        sys.stdout.flush()

    def on_message(self, _bus, message, incoming):
        if not incoming or message.get_path() != PATH:
            return message
        if message.get_message_type() != Gio.DBusMessageType.METHOD_CALL:
            return message
        if self.behaviour == "silent":
            return None
        if self.behaviour == "late" and message.get_interface() == PLAYER:
            time.sleep(self.script["delay"])
        reply = self.answer(message)
        self.bus.send_message(reply, Gio.DBusSendMessageFlags.NONE)
        return None

    def answer(self, message):
        member, body = message.get_member(), message.get_body()
        arguments = body.unpack() if body else ()
        if member == "GetAll":
            reply = message.new_method_reply()
            values = self.root() if arguments[0] == ROOT else self.player()
            reply.set_body(GLib.Variant.new_tuple(values))
            return reply
        if message.get_interface() != PLAYER:
            return message.new_method_error_literal("org.freedesktop.DBus.Error.UnknownMethod", "no")
        self.tell(" ".join([member, *map(str, arguments)]))
        if self.behaviour == "refuses":
            return message.new_method_error_literal("org.example.Refused", "I would rather not")
        if self.behaviour != "ignores":
            self.obey(member, arguments)
        return message.new_method_reply()

    def root(self):
        values = {}
        if self.script.get("identity", "Player") is not None:
            values["Identity"] = GLib.Variant("s", self.script.get("identity", "Player"))
        values["DesktopEntry"] = GLib.Variant("s", self.script.get("entry", ""))
        return GLib.Variant("a{sv}", values)

    def player(self):
        values = variants(self.properties)
        values.setdefault("Metadata", GLib.Variant("a{sv}", variants(self.metadata)))
        return GLib.Variant("a{sv}", values)

    def obey(self, member, arguments):
        before = json.dumps(self.properties)
        playing = self.properties["PlaybackStatus"][1] == "Playing"
        states = {"Play": "Playing", "Pause": "Paused", "PlayPause": "Paused" if playing else "Playing"}
        if member in states:
            self.properties["PlaybackStatus"] = ["s", states[member]]
        elif member == "Seek":
            self.properties["Position"] = ["x", self.properties["Position"][1] + arguments[0]]
        elif member == "SetPosition":
            self.properties["Position"] = ["x", arguments[1]]
        else:
            self.metadata["xesam:title"] = ["s", member]
        if json.dumps(self.properties) != before or member in ("Next", "Previous"):
            # Partial, as many players do it.
            for _ in range(self.script.get("flurry", 1)):
                self.bus.emit_signal(
                    None, PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                    GLib.Variant("(sa{sv}as)", (PLAYER, {}, ["Metadata"])),
                )


if __name__ == "__main__":
    ScriptedPlayer(sys.argv[1], json.loads(sys.argv[2])).loop.run()

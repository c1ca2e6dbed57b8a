#!/usr/bin/python3
"""A media player with the state and behaviour that a test sets.

Usage: scripted_player.py NAME JSON. The JSON object may hold "properties" (of the player interface,
merged over a playing track), "metadata" (merged over its metadata), "identity", and "behaviour":
"obeys", "refuses" (an error to every command), or "silent" (answers nothing at all). Values are
given as [SIGNATURE, VALUE]; null leaves a key out. It prints "ready" once it is on the bus, and then
every command that it receives.
"""

import json
import sys

from gi.repository import Gio, GLib

PATH = "/org/mpris/MediaPlayer2"
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
    **{f"Can{what}": ["b", True] for what in ("Play", "Pause", "GoNext", "GoPrevious", "Seek")},
}


def variants(values):
    return {key: GLib.Variant(*value) for key, value in values.items() if value is not None}


class ScriptedPlayer:
    def __init__(self, name, script):
        self.behaviour = script.get("behaviour", "obeys")
        self.root = {"Identity": script.get("identity", ["s", "Player"])}
        self.properties = PROPERTIES | script.get("properties", {})
        self.metadata = TRACK | script.get("metadata", {})
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        # A filter, as GIO would check the values of registered objects.
        self.bus.add_filter(self.on_message)
        Gio.bus_own_name_on_connection(
            self.bus, f"org.mpris.MediaPlayer2.{name}", Gio.BusNameOwnerFlags.NONE,
            lambda *_: print("ready", flush=True), None
        )

    def on_message(self, _bus, message, incoming):
        is_call = message.get_message_type() == Gio.DBusMessageType.METHOD_CALL
        if not incoming or not is_call or message.get_path() != PATH:
            return message
        if self.behaviour != "silent":
            self.bus.send_message(self.answer(message), Gio.DBusSendMessageFlags.NONE)
        return None

    def answer(self, message):
        member, body = message.get_member(), message.get_body()
        arguments = body.unpack() if body else ()
        reply = message.new_method_reply()
        if member == "GetAll":
            values = variants(self.root)
            if arguments[0] == PLAYER:
                values = variants(self.properties)
                values["Metadata"] = GLib.Variant("a{sv}", variants(self.metadata))
            reply.set_body(GLib.Variant("(a{sv})", (values,)))
            return reply
        print(member, *arguments, flush=True)
        if self.behaviour == "refuses":
            return message.new_method_error_literal("org.example.Refused", "No")
        self.obey(member, arguments)
        return reply

    def obey(self, member, arguments):
        if member in ("Play", "Pause"):
            status = "Playing" if member == "Play" else "Paused"
            self.properties["PlaybackStatus"] = ["s", status]
        elif member == "Seek":
            self.properties["Position"] = ["x", self.properties["Position"][1] + arguments[0]]
        elif member == "SetPosition":
            self.properties["Position"] = ["x", arguments[1]]
        else:
            self.metadata["xesam:title"] = ["s", member]
        for _ in range(5):  # many players send several partial signals per change
            self.bus.emit_signal(
                None, PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                GLib.Variant("(sa{sv}as)", (PLAYER, {}, ["Metadata"])),
            )


if __name__ == "__main__":
    player = ScriptedPlayer(sys.argv[1], json.loads(sys.argv[2]))
    GLib.MainLoop().run()

#!/usr/bin/python3
# A program that owns the clipboard:
#   selection_owner.py [OPTION …] TARGET=TEXT | TARGET@FILE | TARGET:SIZE …
# Takes the clipboard and prints "owns", and "asked TARGET" on each request.
# Options: --increments=BYTES  sends longer data in parts of this size, and prints "gave" after the last
#          --dies-after=PARTS  is killed after that many parts
#          --mute=TARGET       never answers a request for it
#          --kills=TARGET      closes the X connection of a program that requests it
#          --primary=          takes the primary selection instead
#          --manager=          also acts as the clipboard manager

import os
import signal
import sys
from pathlib import Path

from Xlib import X, Xatom, display
from Xlib.protocol import event


def parsed(words):
    for word in words:
        # A target itself may contain "=", as in "text/plain;charset=utf-8".
        name, separator, text = word.rpartition("=")
        if separator:
            yield name, os.fsencode(text)
        elif "@" in word:
            name, _, path = word.partition("@")
            yield name, Path(path).read_bytes()
        else:
            name, _, size = word.rpartition(":")
            yield name, b"a" * int(size)


class Owner:
    def __init__(self, words):
        self.options = {name: os.fsdecode(text) for name, text in words if name.startswith("--")}
        self.forms = {name: data for name, data in words if not name.startswith("--")}
        self.part = int(self.options.get("--increments", 0))
        self.parts_to_live = int(self.options.get("--dies-after", -1))
        self.display = display.Display()
        self.atom = self.display.get_atom
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)

    def run(self):
        self.own("PRIMARY" if "--primary" in self.options else "CLIPBOARD")
        if "--manager" in self.options:
            self.own("CLIPBOARD_MANAGER")
        print("owns", flush=True)
        while True:
            received = self.display.next_event()
            if received.type == X.SelectionRequest:
                self.answer(received)
            elif received.type == X.PropertyNotify and received.state == X.PropertyDelete:
                self.send_next()

    def own(self, selection):
        self.window.set_selection_owner(self.atom(selection), X.CurrentTime)
        self.display.sync()

    def answer(self, request):
        target = self.display.get_atom_name(request.target)
        print("asked", target, flush=True)
        if target == self.options.get("--kills"):
            request.requestor.kill_client()
        if target != self.options.get("--mute"):
            place = request.property if self.give(request, target) else X.NONE
            names = ("time", "requestor", "selection", "target")
            fields = {name: getattr(request, name) for name in names}
            request.requestor.send_event(event.SelectionNotify(property=place, **fields))

    def give(self, request, target):
        data = self.forms.get(target)
        put = request.requestor.change_property
        if target == "TARGETS":
            put(request.property, Xatom.ATOM, 32, [self.atom(name) for name in self.forms])
        elif data is None:
            return False
        elif 0 < self.part < len(data):
            request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
            self.sending, self.unsent = request, memoryview(data)
            put(request.property, self.atom("INCR"), 32, [len(data)])
        else:
            put(request.property, request.target, 8, data)
        return True

    def send_next(self):
        if self.parts_to_live == 0:
            os.kill(os.getpid(), signal.SIGKILL)
        self.parts_to_live -= 1
        part, self.unsent = bytes(self.unsent[: self.part]), self.unsent[self.part :]
        put = self.sending.requestor.change_property
        put(self.sending.property, self.sending.target, 8, part)
        if not part:
            self.sending.requestor.change_attributes(event_mask=0)
            print("gave", flush=True)


Owner(list(parsed(sys.argv[1:]))).run()

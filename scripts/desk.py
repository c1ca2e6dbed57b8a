"""The scene's desktop: a wallpaper, applications, files, a calendar, music."""

import json
import math
import os
import re
import time
import uuid
from pathlib import Path

from PIL import Image, ImageDraw
from Xlib import Xatom

from perchly_session.other_programs import MPV
from perchly_session.sound import Sound
from perchly_session.sway import PLAIN

SKY = ((0x24, 0x2F, 0x66), (0x66, 0x55, 0x96), (0xC8, 0x6B, 0x85), (0xF6, 0xB2, 0x7A))
HILLS = ((0.72, "#8A5A86"), (0.8, "#5B4178"), (0.9, "#33285A"))
MPV_PLUGIN = "/usr/lib/mpv-mpris/mpris.so"
APPLICATIONS = "firefox-esr thunderbird libreoffice-writer org.inkscape.Inkscape audacity".split()
WIDGETS = ("Focus timer", "Quick note", "Clock", "Calendar", "Music")
OTHER_APPLICATIONS = ("chromium", "mpv")
TITLE = "Harbour Lights"
ARTIST = "The Quiet Hours"
NOTE = "Call the office about the projector\nBook the train to Ghent"
SNIPPETS = (
    "I am out of office until Monday. For anything urgent, write to team@example.org.",
    "Thank you for the report. Could you attach the log?",
)
CLIPS = (
    "git rebase --interactive origin/main",
    "https://wiki.debian.org/DebianInstaller",
    "See you on Thursday at ten.",
    "Office: 12 Harbour Street, third floor",
)
HELD_FILE = "Office seating.csv"
HELD_LINKS = ("https://example.org/office/floor-plan", "https://www.debian.org/doc/")
MEETINGS = (("Design review", 25, 30), ("Weekly planning", 24 * 60, 60))
PAGE = "<title>Sea sounds</title><audio src='track.flac' autoplay loop controls></audio>"


class Desk:
    """Prepares a running session before the program starts in it."""

    def __init__(self, session):
        self._session = session
        self.held_file = session.home / "Documents" / HELD_FILE
        if "XDG_DATA_DIRS" in os.environ:
            session.environment["XDG_DATA_DIRS"] = os.environ["XDG_DATA_DIRS"]
        self.photo = session.folder / "photo.png"
        self._wallpaper = session.folder / "wallpaper.png"
        self._paint_wallpaper(session.screen)
        self._store_preferences()
        self._store_meetings()
        self.held_file.parent.mkdir()
        self.held_file.write_text("Room,Desk,Name\n3.1,1,Ada\n3.1,2,Grace\n")
        self._track = session.folder / "track.flac"
        self._make_track()
        Sound(session)

    def play_track(self):
        options = ("--no-video", "--ao=pipewire", f"--script={MPV_PLUGIN}")
        self._session.spawn(*MPV, *options, str(self._track))

    def play_in_browser(self):
        page = self._session.folder / "page.html"
        page.write_text(PAGE)
        options = [
            "--no-sandbox",  # root has no sandbox
            "--no-first-run",
            "--disable-background-networking",
            "--autoplay-policy=no-user-gesture-required",
            f"--ozone-platform={'wayland' if self._session.is_wayland else 'x11'}",
            f"--user-data-dir={self._session.folder}/browser",
        ]
        self._session.spawn("chromium", *options, page.as_uri())

    def show_wallpaper(self):
        """On Wayland, where finding the shelf needs a desktop in one colour, only for pictures."""
        if self._session.is_wayland:
            self._session.screen.set_background(self._wallpaper, "fill")

    def hide_wallpaper(self):
        if self._session.is_wayland:
            self._session.screen.set_background(*PLAIN)

    def _paint_wallpaper(self, screen):
        """Draws a wallpaper of morning hills and, on X, sets it for compositors and window managers."""
        width, height = screen.width, screen.height
        sky = Image.new("RGB", (1, len(SKY)))
        sky.putdata(SKY)
        image = sky.resize((width, height), Image.Resampling.BILINEAR)
        pen = ImageDraw.Draw(image)
        for number, (top, colour) in enumerate(HILLS):
            for x in range(width):
                wave = math.sin(x / 190 + 2 * number) + math.sin(x / 71 + 5 * number) / 3
                pen.line((x, top * height - 40 * wave, x, height), colour)
        image.crop((0, height - 400, 560, height)).save(self.photo)
        if self._session.is_wayland:
            image.save(self._wallpaper)
            return
        pixmap = screen.root.create_pixmap(width, height, screen.root.get_geometry().depth)
        pixmap.put_pil_image(pixmap.create_gc(), 0, 0, image)
        screen.root.change_attributes(background_pixmap=pixmap)
        for name in ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID"):
            screen.root.change_property(screen.atom(name), Xatom.PIXMAP, 32, [pixmap.id])
        screen.root.clear_area()

    def _store_preferences(self):
        entries = [
            *_application_entries(APPLICATIONS),
            *({"id": f"widget:{name}", "widgetName": name, "name": name} for name in WIDGETS),
            *_application_entries(OTHER_APPLICATIONS),
        ]
        shown = {"visible": True, "favorite": False}
        snippets = [{"id": str(uuid.uuid4()).upper(), "text": text} for text in SNIPPETS]
        self._session.store(
            shelfLibrary=_data([entry | shown for entry in entries]),
            pinnedSnippets=_data(snippets),
            persistSnippets=True,
            quickNote=NOTE,
            leftWidget="Clock",
            rightWidget="Calendar",
        )

    def _store_meetings(self):
        folder = self._session.home / ".calendars" / "work"
        folder.mkdir(parents=True)
        for number, (title, minutes, length) in enumerate(MEETINGS):
            start, end = (_utc(minutes), _utc(minutes + length))
            lines = [
                "BEGIN:VCALENDAR", "VERSION:2.0", "BEGIN:VEVENT", f"UID:{number}",
                f"SUMMARY:{title}", f"DTSTART:{start}", f"DTEND:{end}",
                "LOCATION:https://meet.example.org/design", "END:VEVENT", "END:VCALENDAR", "",
            ]
            (folder / f"{number}.ics").write_text("\r\n".join(lines))
        consent = self._session.preferences_file.parent / "permissions" / "calendars.json"
        consent.parent.mkdir()
        consent.write_text('{"readCalendars": true}')

    def _make_track(self):
        tags = f'title="{TITLE}",artist="{ARTIST}"'
        tone = "av://lavfi:sine=frequency=220:duration=600"
        options = ("--oac=flac", f"--oset-metadata={tags}", f"--o={self._track}")
        self._session.call(*MPV, tone, *options, timeout=60)


def _application_entries(names):
    """Returns shelf entries for the installed applications."""
    folders = os.environ.get("XDG_DATA_DIRS", "/usr/local/share:/usr/share").split(":")
    for name in names:
        paths = (Path(folder, "applications", f"{name}.desktop") for folder in folders)
        path = next((path for path in paths if path.exists()), None)
        if path:
            shown_name = re.search("^Name=(.*)$", path.read_text(), re.MULTILINE)[1]
            yield {"id": str(path), "path": str(path), "name": shown_name}


def _data(value):
    return {"encoding": "utf-8", "data": json.dumps(value)}


def _utc(minutes):
    return time.strftime("%Y%m%dT%H%M%SZ", time.gmtime(time.time() + minutes * 60))

"""The extras' sections of the workspace window: search, meetings, launch groups, snippets."""

import json
import time
from pathlib import Path

from perchly_session.case import main
from perchly_session.waiting import wait_until
from perchly_session.workspace import SECTIONS, WorkspaceCase

IDENTIFIER = "6F9619FF-8B86-D011-B42D-00C04FC964FF"
FIRST_CONTROLS = {
    "Search": "Search apps, notes, clipboard, and files",
    "Files": "Add files…",
    "Clipboard": "Enable clipboard history for this session",
    "Layouts": "Layout name, e.g. Work",
    "Shortcuts": "Refresh",
    "Meetings": "Connect Calendar",
    "Launch": "Workspace name",
    "Snippets": "New snippet",
    "Focus": "Focus: 25 minutes",
    "Device": "Refresh battery",
}


class ExtrasTest(WorkspaceCase):
    def install(self, name):
        """Installs an application; returns its entry and the file that it leaves when it runs."""
        folder = Path(self.session.environment["XDG_DATA_HOME"]) / "applications"
        folder.mkdir(parents=True, exist_ok=True)
        marker = self.session.folder / f"{name} ran"
        entry = folder / f"{name}.desktop"
        entry.write_text(
            f'[Desktop Entry]\nType=Application\nName={name}\nExec=touch "{marker}"\n'
        )
        return entry, marker

    def test_every_section_is_reached_by_keyboard(self):
        self.start()
        self.open_window()
        self.assertEqual(self.tree.focused().name, FIRST_CONTROLS["Search"])
        for section in SECTIONS[1:] + SECTIONS[:1]:
            self.choose_section(section)
            self.go_to(FIRST_CONTROLS[section])

    def test_the_search_launches_with_return_alone(self):
        self.start_session()
        _, marker = self.install("Zebra")
        _, other = self.install("Zebra crossing")
        self.run_program()
        self.open_window()
        self.screen.type_text("zeb")
        self.tree.find("Zebra crossing", "list item")
        self.screen.key("Return")
        wait_until(marker.exists, "the first application")
        self.screen.key("Down")
        self.screen.key("Down")
        self.screen.key("Return")
        wait_until(other.exists, "the second application")
        self.screen.type_text(" crossing?")
        wait_until(lambda: not self.tree.look_for("Zebra crossing", "list item"), "no match")

    def test_a_group_opens_what_is_left_of_it(self):
        self.start_session()
        entry, marker = self.install("Tea")
        gone, _ = self.install("Gone")
        gone.unlink()
        addresses = [f"file://{self.session.folder}/gone.txt", gone.as_uri(), entry.as_uri()]
        groups = [{"id": IDENTIFIER, "name": "day", "urls": addresses}]
        self.session.store(launchGroups={"encoding": "utf-8", "data": json.dumps(groups)})
        self.run_program()
        self.open_window()
        self.choose_section("Launch")
        self.press("Launch", "day")
        wait_until(marker.exists, "the application that is left")
        self.tree.find("Could not open Gone.desktop")

    def test_meetings_are_shown_while_they_may_be(self):
        self.start_session()
        folder = Path(self.session.environment["HOME"]) / ".calendars" / "work"
        folder.mkdir(parents=True)
        start, end = (
            time.strftime("%Y%m%dT%H%M%SZ", time.gmtime(time.time() + offset))
            for offset in (-600, 1200)
        )
        (folder / "a.ics").write_text(
            "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:a\r\nSUMMARY:Tea\r\n"
            f"DTSTART:{start}\r\nDTEND:{end}\r\nLOCATION:https://zoom.us/j/1\r\n"
            "END:VEVENT\r\nEND:VCALENDAR\r\n"
        )
        self.run_program()
        self.open_window()
        self.choose_section("Meetings")
        self.assertEqual(self.rows(), [])
        self.answer("Allow")
        self.tree.find("Tea", "list item")
        self.tree.find("In progress")
        self.go_to("Join meeting", subject="Tea")
        self.answer("Stop Reading")
        wait_until(lambda: self.rows() == [], "no meetings")
        self.tree.find(
            "Calendar access denied. Enable it in System Settings → Privacy & Security → "
            "Calendars."
        )

    def answer(self, choice):
        self.press("Connect Calendar")
        question = wait_until(lambda: self.program.window("Calendars"), "the question")
        wait_until(lambda: self.screen.focus() == question.id, "its keyboard")
        self.go_to(choice)
        self.screen.key("space")
        wait_until(lambda: self.screen.focus() == self.window.id, "the keyboard back")


if __name__ == "__main__":
    main()

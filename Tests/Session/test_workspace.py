"""The workspace window: used by name with the keyboard alone, beside other programs."""

import time
from pathlib import Path

from perchly_session.case import TOGGLE, main
from perchly_session.clipboard import ClipboardOwner, pasted
from perchly_session.dragging import DragSource, DropTarget
from perchly_session.waiting import wait_until
from perchly_session.workspace import TITLE, WorkspaceCase


class WorkspaceTest(WorkspaceCase):
    def copy_elsewhere(self, *offers):
        self.addCleanup(ClipboardOwner(self.session, *offers).close)
        time.sleep(1)  # within which the history has looked

    def test_what_other_programs_copy_is_listed_and_copied_back(self):
        self.open_workspace("Clipboard")
        self.press("Enable clipboard history for this session")
        self.tree.find("Enable clipboard history for this session")
        self.copy_elsewhere("UTF8_STRING=first ✓")
        self.tree.find("first ✓", "list item")
        self.copy_elsewhere("UTF8_STRING=secret", "x-kde-passwordManagerHint=secret")
        self.copy_elsewhere("image/png=picture", "UTF8_STRING=alternative")
        self.tree.find("Copied image", "list item")
        self.assertEqual(self.rows(), ["Copied image", "first ✓"])
        self.press("Copy", "first ✓")
        self.tree.find("Copied. Paste into your app with ⌘V.")
        self.assertEqual(pasted(self.session), "first ✓")
        time.sleep(1)
        self.assertEqual(self.rows(), ["Copied image", "first ✓"])
        self.press("Pin", "first ✓")
        self.press("Delete", "Copied image")
        self.type_into("Search copied text", "zzz")
        wait_until(lambda: self.rows() == [], "nothing that matches")

    def test_files_are_dropped_on_the_window_and_dragged_out_again(self):
        # The partners' windows lie beside the program's.
        self.open_workspace("Files", size=(2400, 1000))
        source, target = DragSource(self.session), DropTarget(self.session)
        self.addCleanup(source.close)
        self.addCleanup(target.close)
        area = self.tree.find("Drop here").centre
        self.assertEqual(source.drag_to((area[0] - 10, area[1]), area), "copy")
        self.tree.find("hosts", "list item")
        self.assertEqual(self.rows(), ["hosts", "etc", "https://example.org/page"])
        x, y, _, _ = self.tree.find("hosts", "list item").extents
        one = target.drag_from((x + 200, y + 14))
        self.assertEqual(one["urls"], ["file:///etc/hosts"])
        everything = target.drag_from(self.tree.find("Drag all 3").centre)
        self.assertEqual(
            everything["urls"], ["file:///etc/hosts", "file:///etc", "https://example.org/page"]
        )
        self.assertEqual((everything["may copy"], everything["may move"]), (True, False))
        self.press("Copy path / link", "hosts")
        self.tree.find("Copied. Paste into your app with ⌘V.")
        self.assertEqual(pasted(self.session), "/etc/hosts")
        self.type_into("https://…", "https://a.example")
        self.screen.key("Return")
        self.tree.find("https://a.example", "list item")
        self.press("Clear")
        self.tree.find("Drop here")

    def test_a_shortcut_is_listed_run_and_put_on_the_shelf(self):
        self.start_session()
        folder = Path(self.session.environment["XDG_DATA_HOME"]) / "perchly" / "shortcuts"
        folder.mkdir(parents=True)
        marker = self.session.folder / "runs"
        shortcut = folder / "Make tea.sh"
        shortcut.write_text(f"#!/bin/sh\necho x >> {marker}\nexec sleep 1\n")
        endless = folder / "Endless.sh"
        endless.write_text("#!/bin/sh\nexec sleep 600\n")
        shortcut.chmod(0o755)
        endless.chmod(0o755)
        self.run_program()
        self.open_window()
        self.choose_section("Shortcuts")
        self.tree.find("Make tea", "list item")
        self.press("Add to shelf", "Make tea")
        self.press("Run", "Make tea")
        self.tree.find("Make tea · Running")
        self.tree.find("Finished: Make tea")
        self.assertEqual(marker.read_text(), "x\n")
        self.press("Run", "Endless")
        self.tree.find("Endless · Running")
        self.screen.key("Return")  # pressed twice, it runs once and is not stopped
        time.sleep(0.5)
        self.tree.find("Endless · Running")
        self.press("Stop", "Endless")
        self.tree.find("Stopped: Endless")
        self.screen.key("Escape")
        wait_until(lambda: not self.program.window(TITLE), "the window closed")
        self.screen.key(*TOGGLE)
        wait_until(lambda: self.screen.focus() == self.program.panel().id, "the shelf's keyboard")
        self.screen.key("Control_L", "6")
        wait_until(lambda: marker.read_text() == "x\nx\n", "the second run")


if __name__ == "__main__":
    main()

"""The workspace window, used by name with the keyboard alone."""

from .case import SessionCase
from .waiting import wait_until

SEARCH = ("Control_L", "Alt_L", "k")
TITLE = "Perchly Workspace"
SECTIONS = (
    "Search Files Clipboard Layouts Shortcuts Meetings Launch Snippets Focus Device".split()
)


class WorkspaceCase(SessionCase):
    def open_workspace(self, section, **options):
        self.start(**options)
        self.open_window()
        self.choose_section(section)

    def open_window(self):
        self.tree = self.program.accessibility()
        self.screen.key(*SEARCH)
        self.window = wait_until(lambda: self.program.window(TITLE), TITLE)
        wait_until(lambda: self.screen.focus() == self.window.id, "the window with the keyboard")

    def choose_section(self, section):
        self.go_to("Tools")
        self.screen.key("space")
        self.tree.find("Device", "list item")
        self.screen.key("Home")
        for _ in range(SECTIONS.index(section)):
            self.screen.key("Down")
        self.screen.key("Return")
        wait_until(
            lambda: self.tree.find("Tools", "combo box").description == section, section
        )

    def press(self, name, subject=None):
        self.go_to(name, subject=subject)
        self.screen.key("Return")

    def type_into(self, name, text):
        self.go_to(name)
        self.screen.type_text(text)

    def rows(self):
        """The names of the list's rows, as they are read to a person."""
        return self.tree.every(lambda node: node.role == "list item" and node.name)

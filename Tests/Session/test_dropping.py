"""Files and links dropped from another program."""

from perchly_session.case import SessionCase, main
from perchly_session.dragging import DragSource


class DroppingTest(SessionCase):
    def test_what_is_dropped_is_held_and_stays_where_it_was(self):
        for name, places in (
            ("on the pill", [(640, 20), (642, 17)]),
            ("on the open shelf", [(640, 17), (640, 200), (644, 204)]),
        ):
            with self.subTest(name):
                self.start()
                source = DragSource(self.session)
                self.addCleanup(source.close)
                self.assertEqual(source.drag_to(*places), "copy")
                self.screen.move_to(640, 100)
                self.screen.move_to(642, 100)
                self.program.accessibility().find("3 held")
                self.screen.move_to(*self.away())
                self.program.accessibility().find("File shelf · 3 held")


if __name__ == "__main__":
    main()

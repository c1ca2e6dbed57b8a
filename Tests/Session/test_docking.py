"""The shelf is dragged by its header and docks at an edge of any display."""

from perchly_session.case import main
from perchly_session.waiting import wait_until
from perchly_session.workspace import WorkspaceCase

LEFT_HALF = (0, 0, 640, 800)
RIGHT_HALF = (640, 0, 640, 800)


def along_side(row):
    """The position along a side edge of a shelf released at this row of pixels."""
    return (799 - row) / 800


class DockingTest(WorkspaceCase):
    def expect_stored(self, **wanted):
        def matches():
            stored = self.session.preferences()
            return all(
                abs(stored.get(key, -9) - value) < 0.01
                if isinstance(value, float)
                else stored.get(key) == value
                for key, value in wanted.items()
            )

        try:
            wait_until(matches, f"{wanted} stored")
        except AssertionError as problem:
            raise AssertionError(f"{problem}: {self.session.preferences()}") from None

    def drag_pill(self, end):
        self.screen.drag(self.on_pill(), end)
        self.screen.move_to(640, 740)

    def test_each_edge_can_be_docked_at(self):
        self.start({"openOnHover": False})
        self.drag_pill((4, 500))
        self.expect_stored(shelfEdge="left", shelfEdgePosition=along_side(500), displayIndex=0)
        self.expect_frame(self.compact_frame("left", along_side(500)), "the strip at the left edge")
        self.drag_pill((1276, 200))
        self.expect_stored(shelfEdge="right", shelfEdgePosition=along_side(200), displayIndex=0)
        self.expect_frame(self.compact_frame("right", along_side(200)), "the strip at the right edge")
        self.drag_pill((320, 3))
        self.expect_stored(shelfEdge="top", shelfEdgePosition=0.25, displayIndex=0)
        self.expect_frame(self.compact_frame("top", 0.25), "the pill at the top edge")

    def test_a_hasty_drag_counts_where_it_began_and_ended(self):
        self.start({"openOnHover": False})
        self.screen.hasty_drag((600, 20), (1275, 320), beyond=(700, 700))
        self.expect_stored(shelfEdge="right", shelfEdgePosition=along_side(320))
        self.expect_frame(
            self.compact_frame("right", along_side(320)), "the strip at the right edge"
        )

    def test_a_drag_goes_on_while_another_window_closes(self):
        self.start({"openOnHover": False})
        self.open_window()
        self.screen.move_to(*self.on_pill())
        self.screen.key("Escape")
        self.drag_pill((4, 500))
        self.expect_stored(shelfEdge="left", shelfEdgePosition=along_side(500))

    def test_on_a_side_edge_it_opens_flush_with_the_edge(self):
        for edge in ("left", "right"):
            with self.subTest(edge=edge):
                self.start({"shelfEdge": edge, "shelfEdgePosition": 0.5})
                self.expect_frame(self.compact_frame(edge), "the strip")
                self.screen.move_to(*self.on_pill())
                self.expect_frame(self.expanded_frame(edge), "the shelf open")
                self.screen.move_to(640, 740)
                self.expect_frame(self.compact_frame(edge), "the strip again")

    def test_a_display_taken_away_sends_the_shelf_to_one_that_is_left(self):
        stored = {"shelfEdge": "right", "shelfEdgePosition": 0.5, "displayIndex": 1}
        self.start(stored, monitors=[LEFT_HALF, RIGHT_HALF])
        there = self.compact_frame("right", 0.5, RIGHT_HALF)
        self.expect_frame(there, "the strip on the second display")
        self.session.remove_monitor(1)
        self.expect_frame(
            self.compact_frame("right", 0.5, LEFT_HALF), "the strip on the first display"
        )
        self.screen.move_to(*self.on_pill())
        wait_until(lambda: self.program.frame()[2] > 600, "the shelf open there")
        self.screen.move_to(320, 740)
        self.assertEqual(self.session.preferences() | stored, self.session.preferences())
        self.session.add_monitor(1, RIGHT_HALF)
        self.expect_frame(there, "the strip back on the second display")

    def test_on_a_side_edge_it_keeps_off_what_a_dock_reserves(self):
        self.start_session()
        dock = self.other_window("Dock", (0, 600, 1280, 200))
        dock.reserve("bottom", 200)
        dock.show()
        self.session.store(shelfEdge="left", shelfEdgePosition=0.0)
        self.run_program()
        visible = (0, 0, 1280, 600)
        self.expect_frame(
            self.compact_frame("left", 0.0, visible=visible), "the strip above the dock"
        )
        dock.close()
        self.expect_frame(self.compact_frame("left", 0.0), "the strip in the corner")

    def test_everything_is_twice_as_large_at_scale_two(self):
        self.start(scale=2)
        self.expect_frame((350, 0, 580, 68), "the pill")
        self.screen.move_to(640, 60)
        # The display is 640 x 400 points: the open shelf is limited to it.
        self.expect_frame((0, 0, 1280, 800), "the open shelf")


if __name__ == "__main__":
    main()

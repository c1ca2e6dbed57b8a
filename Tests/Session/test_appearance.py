"""Opacity and scale, judged by what is on the screen."""

from perchly_session.case import SessionCase, main
from perchly_session.picture import near
from perchly_session.waiting import wait_until

MIDNIGHT = (6, 7, 8)


class AppearanceTest(SessionCase):
    def background(self):
        """A place of the pill that holds nothing: between its title and its status."""
        x, y, _, _ = self.compact_frame()
        return self.screen.screenshot().pixel(x + 150, y + 17)

    def test_opacity_lets_the_window_below_through(self):
        self.start_session(window_manager="openbox", compositor="picom")
        self.other_window(state="_NET_WM_STATE_FULLSCREEN").take_focus()
        self.session.store(shelfOpacity=0.5)
        self.run_program()
        half = tuple((a + b) // 2 for a, b in zip(MIDNIGHT, (0x30, 0x50, 0xA0)))
        wait_until(lambda: near(self.background(), half, 6), f"half of both colours, {half}")

    def test_the_cards_have_no_seams_at_any_scale(self):
        for scale in (0.85, 0.93, 1.2):
            with self.subTest(scale=scale):
                self.start({"shelfScale": scale})
                self.screen.move_to(*self.on_pill())
                self.program.accessibility().find("Search", "push button")
                x, _, width, _ = self.program.frame()
                y = round((34 + 12 + 4) * scale)  # where the cards' upper corners end

                def runs():
                    """How many stretches of the card's colour one row of pixels crosses."""
                    row = self.screen.screenshot().pixels(x, y, width, 1)
                    is_card = [near(pixel, (17, 18, 19), 1) for pixel in row]
                    return sum(a and not b for a, b in zip(is_card, is_card[1:]))

                wait_until(lambda: runs() == 3, "three cards without seams")


if __name__ == "__main__":
    main()

"""What a user does with pointer and keys in any window system."""

TOGGLE = ("Control_L", "Alt_L", "space")
SEARCH = ("Control_L", "Alt_L", "k")
STEP_PIXELS = 8
STEP_SECONDS = 0.004


class Hands:
    """Needs pointer(), move_by(dx, dy, rest), press(button), release(button), hold(*keys),
    let_go(*keys), needs_shift(character) and screenshot(rect) of the derived class."""

    def move_to(self, x, y, step=STEP_PIXELS, pause=STEP_SECONDS):
        """Moves in a straight line of small steps."""
        from_x, from_y = self.pointer()
        steps = max(1, round(max(abs(x - from_x), abs(y - from_y)) / step))
        for left in range(steps, 0, -1):
            at_x, at_y = self.pointer()
            self.move_by(round((x - at_x) / left), round((y - at_y) / left), pause)

    def click(self, x, y, button=1):
        self.move_to(x, y)
        self.press(button)
        self.release(button)

    def drag(self, start, end):
        self.move_to(*start)
        self.press()
        distance = max(abs(end[0] - start[0]), abs(end[1] - start[1]))
        self.move_to(*end, step=max(distance / 40, 1), pause=0.01)
        self.release()

    def key(self, *keys):
        """Presses keys together, as in key("Control_L", "Alt_L", "space")."""
        self.hold(*keys)
        self.let_go(*keys)

    def type_text(self, text):
        """Types characters of a US keyboard; a newline is Return."""
        for character in text:
            name = "Return" if character == "\n" else character
            self.key(*["Shift_L"] * self.needs_shift(character), name)

    def shows(self, colour, x, y, tolerance=12):
        """Whether a pixel has about this colour (red, green, blue)."""
        pixel = self.screenshot((x, y, 1, 1)).getpixel((0, 0))
        return all(abs(a - b) <= tolerance for a, b in zip(pixel, colour))

"""A screenshot: pixels to look at in a test, and a PNG to look at afterwards."""

import struct
import zlib


class Picture:
    """Pixels of a 24-bit TrueColor screen as the server sends them: blue, green, red, unused."""

    def __init__(self, width, height, data):
        self.width = width
        self.height = height
        self._data = data

    def pixel(self, x, y):
        """(red, green, blue), each 0 to 255."""
        at = (y * self.width + x) * 4
        blue, green, red = self._data[at : at + 3]
        return red, green, blue

    def pixels(self, left, top, width, height):
        """All the pixels of a rectangle, row by row."""
        return [
            self.pixel(x, y) for y in range(top, top + height) for x in range(left, left + width)
        ]

    def save(self, path):
        rows = bytearray()
        for y in range(self.height):
            row = self._data[y * self.width * 4 : (y + 1) * self.width * 4]
            line = bytearray(self.width * 3)
            line[0::3], line[1::3], line[2::3] = row[2::4], row[1::4], row[0::4]
            rows += b"\0" + line
        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n")
            for kind, body in ((b"IHDR", header), (b"IDAT", zlib.compress(rows)), (b"IEND", b"")):
                file.write(struct.pack(">I", len(body)) + kind + body)
                file.write(struct.pack(">I", zlib.crc32(kind + body)))


def near(pixel, colour, tolerance=12):
    return all(abs(a - b) <= tolerance for a, b in zip(pixel, colour))

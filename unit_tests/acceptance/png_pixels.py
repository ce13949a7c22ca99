"""Reads the pixels of a PNG file with 8-bit RGB or RGBA samples, which is what the host's pictures have."""

import struct
import zlib


class Picture:
    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        self.width, self.height, depth, colour = struct.unpack(">IIBB", data[16:26])
        if depth != 8 or colour not in (2, 6):
            raise ValueError(f"{path}: not an 8-bit RGB or RGBA picture")
        self.channels = 3 if colour == 2 else 4
        packed, position = b"", 8
        while position < len(data):
            length, kind = struct.unpack(">I4s", data[position:position + 8])
            if kind == b"IDAT":
                packed += data[position + 8:position + 8 + length]
            position += 12 + length
        self.rows = self._unfilter(zlib.decompress(packed))

    def _unfilter(self, raw):
        size, step = self.width * self.channels, self.channels
        rows, before = [], bytearray(size)
        for y in range(self.height):
            kind = raw[y * (size + 1)]
            row = bytearray(raw[y * (size + 1) + 1:(y + 1) * (size + 1)])
            for x in range(size) if kind else ():
                left = row[x - step] if x >= step else 0
                up = before[x]
                corner = before[x - step] if x >= step else 0
                if kind == 1:
                    guess = left
                elif kind == 2:
                    guess = up
                elif kind == 3:
                    guess = (left + up) // 2
                else:
                    estimate = left + up - corner
                    distances = [(abs(estimate - value), order, value) for order, value in enumerate((left, up, corner))]
                    guess = min(distances)[2]
                row[x] = (row[x] + guess) & 0xFF
            rows.append(row)
            before = row
        return rows

    def pixel(self, x, y):
        start = x * self.channels
        return tuple(self.rows[y][start:start + 3])

    def find_corners(self, width, height, corners, tolerance=0):
        """The place of a width x height picture whose corner pixels (top left, top right, bottom left, bottom right) have
        these colours, each red, green and blue within the tolerance, or None."""
        for y in range(self.height - height + 1):
            for x in range(self.width - width + 1):
                places = ((x, y), (x + width - 1, y), (x, y + height - 1), (x + width - 1, y + height - 1))
                if all(abs(is_there - wanted) <= tolerance for place, corner in zip(places, corners)
                       for is_there, wanted in zip(self.pixel(*place), corner)):
                    return x, y
        return None

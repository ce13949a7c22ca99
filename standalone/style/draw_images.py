#!/usr/bin/env python3
"""draw_images.py FOLDER NAME...: draws the images of the host's style sheet as PNG files, each also at double size.

A picture is a list of layers: a colour and a signed distance function (negative inside), in a square of SIZE units.
"""
import math
import os
import struct
import sys
import zlib

BLUE = (0x15, 0x63, 0xC6)
AMBER = (0xF2, 0xA9, 0x1E)
RED = (0xC6, 0x28, 0x28)
GRAY = (0x93, 0xA1, 0xB2)
INK = (0x3B, 0x48, 0x5C)
WHITE = (0xFF, 0xFF, 0xFF)


def circle(cx, cy, radius):
    return lambda x, y: math.hypot(x - cx, y - cy) - radius


def ring(cx, cy, radius, width):
    return lambda x, y: abs(math.hypot(x - cx, y - cy) - radius) - width / 2


def box(left, top, right, bottom, radius=0.0):
    cx, cy, hx, hy = (left + right) / 2, (top + bottom) / 2, (right - left) / 2 - radius, (bottom - top) / 2 - radius

    def distance(x, y):
        dx, dy = abs(x - cx) - hx, abs(y - cy) - hy
        return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius
    return distance


def line(points, width):
    """Strokes joined at the points, with round ends."""
    def segment(x, y, ax, ay, bx, by):
        dx, dy = bx - ax, by - ay
        length = dx * dx + dy * dy
        t = 0 if length == 0 else max(0, min(1, ((x - ax) * dx + (y - ay) * dy) / length))
        return math.hypot(x - ax - t * dx, y - ay - t * dy)
    return lambda x, y: min(segment(x, y, *a, *b) for a, b in zip(points, points[1:])) - width / 2


def arc(cx, cy, radius, start, end, steps=16):
    """Points of an arc; degrees, clockwise from the right."""
    angles = [math.radians(start + (end - start) * i / steps) for i in range(steps + 1)]
    return [(cx + radius * math.cos(a), cy + radius * math.sin(a)) for a in angles]


def triangle(points, radius):
    """Rounded by `radius`; the points are in clockwise order."""
    def distance(x, y):
        edges = []
        for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
            length = math.hypot(bx - ax, by - ay)
            edges.append(((x - ax) * (by - ay) - (y - ay) * (bx - ax)) / length)
        inside = max(edges)
        return inside if inside < 0 else line(points + points[:1], 0)(x, y)
    return lambda x, y: distance(x, y) - radius


def one(cx, cy, size):
    s = size / 10
    return line([(cx - 2.6 * s, cy - 2.6 * s), (cx + 0.4 * s, cy - 5 * s), (cx + 0.4 * s, cy + 5 * s)], 2 * s)


def two(cx, cy, size):
    s = size / 10
    curve = arc(cx, cy - 2 * s, 3 * s, -170, 30)
    return line(curve + [(cx - 3.2 * s, cy + 4.9 * s), (cx + 3.4 * s, cy + 4.9 * s)], 2 * s)


def exclamation(cx, top, bottom, width):
    stroke = line([(cx, top), (cx, bottom - 2.6 * width)], width * 1.25)
    dot = circle(cx, bottom - width * 0.7, width * 0.8)
    return lambda x, y: min(stroke(x, y), dot(x, y))


def cross(cx, cy, reach, width):
    first = line([(cx - reach, cy - reach), (cx + reach, cy + reach)], width)
    second = line([(cx - reach, cy + reach), (cx + reach, cy - reach)], width)
    return lambda x, y: min(first(x, y), second(x, y))


def barcode():
    layers = [(BLUE, line([(2, 7), (2, 3.5), (6, 3.5)], 1.8)), (BLUE, line([(18, 3.5), (22, 3.5), (22, 7)], 1.8)),
              (BLUE, line([(2, 17), (2, 20.5), (6, 20.5)], 1.8)), (BLUE, line([(18, 20.5), (22, 20.5), (22, 17)], 1.8))]
    for left, right in ((5, 6.6), (8, 8.9), (10.3, 12.7), (14, 14.9), (16.2, 19)):
        layers.append((INK, box(left, 6.5, right, 17.5)))
    return layers


# Name: size in pixels, layers from bottom to top.
IMAGES = {
    "camera": (24, [(BLUE, box(1.5, 6, 22.5, 20, 2.6)), (BLUE, box(7.5, 3.2, 16.5, 9, 2)), (WHITE, circle(12, 12.8, 4.9)),
                    (BLUE, circle(12, 12.8, 3.1)), (WHITE, circle(19.2, 9, 0.95))]),
    "barcode": (24, barcode()),
    "close": (16, [(INK, cross(8, 8, 4.2, 1.7))]),
    "close_active": (16, [(WHITE, cross(8, 8, 4.2, 1.7))]),
    "info": (32, [(BLUE, circle(16, 16, 14.5)), (WHITE, circle(16, 9.6, 1.9)), (WHITE, line([(16, 15), (16, 23)], 3.2))]),
    "question": (32, [(BLUE, circle(16, 16, 14.5)),
                      (WHITE, line(arc(16, 12.6, 4.4, -185, 75) + [(16, 18.9)], 2.9)), (WHITE, circle(16, 23.6, 1.9))]),
    "warning": (28, [(AMBER, triangle([(14, 4.5), (25, 23.5), (3, 23.5)], 2.2)), (INK, exclamation(14, 10, 22.6, 2.1))]),
    "step_one_current": (30, [(BLUE, circle(15, 15, 13)), (WHITE, one(14.6, 15, 11.5))]),
    "step_one_warning": (30, [(AMBER, circle(15, 15, 13)), (INK, one(14.6, 15, 11.5)), (WHITE, circle(24.2, 6, 6)),
                              (RED, circle(24.2, 6, 5)), (WHITE, exclamation(24.2, 3.4, 9, 1.1))]),
    "step_two_current": (30, [(BLUE, circle(15, 15, 13)), (WHITE, two(15, 15, 11.5))]),
    "step_two_waiting": (30, [(WHITE, circle(15, 15, 13)), (GRAY, ring(15, 15, 12, 2)), (GRAY, two(15, 15, 11.5))]),
}


def pixels(size, layers, scale):
    """Rows of RGBA bytes. The edge of a layer fades over one pixel."""
    for row in range(size * scale):
        line_bytes = bytearray([0])  # PNG: no filter
        for column in range(size * scale):
            x, y = (column + 0.5) / scale, (row + 0.5) / scale
            red = green = blue = alpha = 0.0
            for colour, distance in layers:
                cover = max(0.0, min(1.0, 0.5 - distance(x, y) * scale))
                red, green, blue = (c * cover + old * (1 - cover) for c, old in zip(colour, (red, green, blue)))
                alpha = cover + alpha * (1 - cover)
            if alpha > 0:
                red, green, blue = red / alpha, green / alpha, blue / alpha
            line_bytes += bytes(round(value) for value in (red, green, blue, alpha * 255))
        yield bytes(line_bytes)


def write_png(path, size, layers, scale):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", size * scale, size * scale, 8, 6, 0, 0, 0)
    data = zlib.compress(b"".join(pixels(size, layers, scale)), 9)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", data) + chunk(b"IEND", b""))


def main():
    folder, names = sys.argv[1], sys.argv[2:]
    os.makedirs(folder, exist_ok=True)
    for name in names:
        size, layers = IMAGES[name]
        write_png(os.path.join(folder, name + ".png"), size, layers, 1)
        write_png(os.path.join(folder, name + "@2x.png"), size, layers, 2)


main()

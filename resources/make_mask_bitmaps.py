#!/usr/bin/env python3
"""Draws the pictures of the mask dialogs: the toolbars' cells, the three checkers and the cross hair.

Run it after a change; it writes resources/mask/*.bmp and *.cur, byte for byte the same on every machine. A cell shows
a mask: red checker is in the mask, grey is not. Tools that add paint checker on grey, tools that exclude cut grey out
of checker.
"""
import math
import pathlib
import struct

CELL = 32
PALETTE = [(0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128), (0, 128, 128),
           (128, 128, 128), (192, 192, 192), (255, 0, 0), (0, 255, 0), (255, 255, 0), (0, 0, 255), (255, 0, 255),
           (0, 255, 255), (255, 255, 255)]
BLACK, DARK_RED, GREEN, GREY, FACE, RED, BLUE, WHITE = 0, 1, 2, 7, 8, 9, 12, 15
FIELD = range(3, 29)
POLYGON = [(16, 6), (26, 13), (22, 25), (13, 19), (6, 24), (7, 11)]
POLYLINE = [(6, 24), (11, 9), (17, 20), (22, 8), (26, 16)]


def checker(colour):
    return lambda x, y: colour if (x + y) % 2 == 0 else FACE


def distance_to_path(points, x, y):
    best = math.inf
    for (ax, ay), (bx, by) in zip(points, points[1:]):
        dx, dy = bx - ax, by - ay
        t = max(0.0, min(1.0, ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy)))
        best = min(best, math.hypot(x - ax - t * dx, y - ay - t * dy))
    return best


def in_polygon(points, x, y):
    inside = False
    for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
        if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
            inside = not inside
    return inside


def in_ellipse(rx, ry, x, y):
    return rx > 0 and ry > 0 and ((x - 15.5) / rx) ** 2 + ((y - 15.5) / ry) ** 2 <= 1


# What a figure covers, filled and as a frame.
def rect_filled(x, y):
    return 6 <= x <= 25 and 9 <= y <= 22


def rect_frame(x, y):
    return rect_filled(x, y) and not (9 <= x <= 22 and 12 <= y <= 19)


def circle_filled(x, y):
    return in_ellipse(9.6, 9.6, x, y)


def circle_frame(x, y):
    return circle_filled(x, y) and not in_ellipse(6.6, 6.6, x, y)


def ellipse_filled(x, y):
    return in_ellipse(11.5, 6.6, x, y)


def ellipse_frame(x, y):
    return ellipse_filled(x, y) and not in_ellipse(8.4, 3.6, x, y)


def polygon_filled(x, y):
    return in_polygon(POLYGON, x, y)


def polygon_frame(x, y):
    return distance_to_path(POLYGON + POLYGON[:1], x, y) <= 1.5


def polyline(x, y):
    return distance_to_path(POLYLINE, x, y) <= 1.5


FIGURES = [rect_filled, circle_filled, ellipse_filled, polygon_filled, rect_frame, circle_frame, ellipse_frame,
           polygon_frame, polyline]


def tick(x, y):
    return distance_to_path([(6, 17), (13, 24), (26, 8)], x, y) <= 2.3


def cross(x, y):
    return min(distance_to_path([(8, 8), (24, 24)], x, y), distance_to_path([(24, 8), (8, 24)], x, y)) <= 2.3


def field_cell(content):
    """A mask in a frame; `content` gives the colour of each pixel of it."""
    def pixel(x, y):
        if x not in FIELD or y not in FIELD:
            return FACE
        if x in (FIELD[0], FIELD[-1]) or y in (FIELD[0], FIELD[-1]):
            return GREY
        return content(x, y)
    return pixel


def adding(figure):
    return field_cell(lambda x, y: checker(RED)(x, y) if figure(x, y) else FACE)


def excluding(figure):
    """The cut-out has a dark edge, so that it stands out of the checker."""
    def content(x, y):
        if not figure(x, y):
            return checker(RED)(x, y)
        inner = all(figure(x + dx, y + dy) for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)))
        return FACE if inner else GREY
    return field_cell(content)


def invert_cell():
    def content(x, y):
        return checker(RED)(x, y) if (x + y < 31) != circle_filled(x, y) else FACE
    return field_cell(content)


def mark_cell(mark, colour, ground=None):
    def pixel(x, y):
        if mark(x, y):
            return colour
        return ground(x, y) if ground else FACE
    return pixel


def toolbar(kind, whole):
    return ([kind(figure) for figure in FIGURES] + [field_cell(whole), invert_cell(), mark_cell(tick, GREEN),
            mark_cell(cross, DARK_RED), mark_cell(cross, DARK_RED, field_cell(checker(BLUE)))])


def bmp(width, height, pixel):
    """A 16-colour bitmap, rows bottom up and padded to four bytes."""
    rows = b""
    for y in reversed(range(height)):
        row = bytes((pixel(x, y) << 4) | (pixel(x + 1, y) if x + 1 < width else 0) for x in range(0, width, 2))
        rows += row + b"\0" * (-len(row) % 4)
    colours = b"".join(struct.pack("BBBB", b, g, r, 0) for r, g, b in PALETTE)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 4, 0, len(rows), 0, 0, 16, 0)
    offset = 14 + len(header) + len(colours)
    return struct.pack("<2sIHHI", b"BM", offset + len(rows), 0, 0, offset) + header + colours + rows


def strip(cells):
    return bmp(CELL * len(cells), CELL, lambda x, y: cells[x // CELL](x % CELL, y))


def cross_hair():
    """32 by 32, hot spot 15,15: black arms with white sides that reach the edges, nothing in the 3 by 3 centre."""
    middle = range(14, 17)

    def arm(x, y):
        return (x in middle) != (y in middle)

    def plane(bit):
        rows = b""
        for y in reversed(range(CELL)):
            value = sum(1 << (31 - x) for x in range(CELL) if bit(x, y))
            rows += struct.pack(">I", value)
        return rows

    white = plane(lambda x, y: arm(x, y) and not (x == 15 or y == 15))
    clear = plane(lambda x, y: not arm(x, y))
    image = (struct.pack("<IiiHHIIiiII", 40, CELL, 2 * CELL, 1, 1, 0, len(white) + len(clear), 0, 0, 2, 0)
             + struct.pack("<II", 0, 0x00FFFFFF) + white + clear)
    return struct.pack("<HHHBBBBHHII", 0, 2, 1, CELL, CELL, 2, 0, 15, 15, len(image), 22) + image


def two_by_two(dark, light):
    return bmp(2, 2, lambda x, y: dark if x == y else light)


def main():
    folder = pathlib.Path(__file__).parent / "mask"
    folder.mkdir(exist_ok=True)
    pictures = {
        "tools_adding.bmp": strip(toolbar(adding, lambda x, y: FACE)),
        "tools_excluding.bmp": strip(toolbar(excluding, checker(RED))),
        "checker.bmp": two_by_two(BLACK, WHITE),
        "checker_blue.bmp": two_by_two(BLACK, BLUE),
        "checker_red.bmp": two_by_two(BLACK, RED),
        "cross_hair.cur": cross_hair(),
    }
    for name, content in pictures.items():
        (folder / name).write_bytes(content)


if __name__ == "__main__":
    main()

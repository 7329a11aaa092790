#!/usr/bin/env python3
"""Draws the cursors of the contour editor.

Run it after a change; it writes resources/editor/*.cur, byte for byte the same on every machine. A cursor is drawn in
black on a field of 32 by 32; a white rim around the black keeps it visible on every image. What stays empty is clear.
The cross for new points is the mask's cross hair and is drawn there.
"""
import math
import pathlib
import struct

SIZE = 32
FIELD = [(x, y) for y in range(SIZE) for x in range(SIZE)]


def line(ax, ay, bx, by):
    steps = max(abs(bx - ax), abs(by - ay), 1)
    return {(round(ax + (bx - ax) * i / steps), round(ay + (by - ay) * i / steps)) for i in range(steps + 1)}


def outline(*points):
    pixels = set()
    for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
        pixels |= line(ax, ay, bx, by)
    return pixels


def filled(*points):
    """The polygon's inside by the even-odd rule at pixel centres, and its outline."""
    def inside(x, y):
        odd = False
        for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
            if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                odd = not odd
        return odd
    return outline(*points) | {p for p in FIELD if inside(*p)}


def rectangle(left, top, right, bottom):
    return outline((left, top), (right, top), (right, bottom), (left, bottom))


def ring(cx, cy, inner, outer, within=lambda angle: True):
    return {(x, y) for x, y in FIELD if inner <= math.hypot(x - cx, y - cy) <= outer
            and within(math.degrees(math.atan2(y - cy, x - cx)) % 360)}


def arrow_heads(cx, cy, reach, size):
    """Four heads that point away from the centre, their tips `reach` away."""
    pixels = set()
    for i in range(size):
        for j in range(-i, i + 1):
            pixels |= {(cx + reach - i, cy + j), (cx - reach + i, cy + j), (cx + j, cy + reach - i),
                       (cx + j, cy - reach + i)}
    return pixels


# Each picture gives its black pixels, and white ones that lie over the rim.
def invert_object():
    back = rectangle(13, 13, 26, 26)
    front = {(x, y) for x, y in FIELD if 6 <= x <= 20 and 6 <= y <= 20}
    edge = rectangle(6, 6, 20, 20) | ring(13, 13, 2.2, 3.6)
    return (back - front) | edge, front - edge


def rotate_object():
    arc = ring(15, 15, 8.2, 10.4, lambda angle: 45 < angle < 300)
    head = filled((25, 5), (27, 14), (18, 12))
    return arc | head, set()


def delete_point():
    black = set()
    for shift in (0, 1):
        black |= line(7 + shift, 9, 21 + shift, 23) | line(7 + shift, 23, 21 + shift, 9)
    return black, set()


def add_point():
    arms = line(5, 16, 12, 16) | line(18, 16, 25, 16) | line(15, 6, 15, 13) | line(15, 19, 15, 26)
    return arms, set()


def move_point():
    return rectangle(12, 13, 18, 19) | arrow_heads(15, 16, 10, 5), set()


def move_object():
    cross = line(6, 10, 22, 10) | line(14, 2, 14, 18) | arrow_heads(14, 10, 9, 4)
    pointer = [(14, 10), (14, 26), (18, 22), (21, 28), (23, 27), (20, 21), (25, 21)]
    edge = outline(*pointer)
    inside = filled(*pointer) - edge
    return (cross - inside) | edge, inside


CURSORS = {
    "invert_object": (invert_object, (13, 13)),
    "rotate_object": (rotate_object, (15, 15)),
    "delete_point": (delete_point, (14, 16)),
    "add_point": (add_point, (15, 16)),
    "move_point": (move_point, (15, 16)),
    "move_object": (move_object, (14, 10)),
}


def plane(pixels):
    rows = b""
    for y in reversed(range(SIZE)):
        rows += struct.pack(">I", sum(1 << (31 - x) for x in range(SIZE) if (x, y) in pixels))
    return rows


def cursor(black, white, hot_spot):
    rim = {(x + dx, y + dy) for x, y in black for dx in (-1, 0, 1) for dy in (-1, 0, 1)}
    white = ((white | rim) - black) & set(FIELD)
    clear = set(FIELD) - black - white
    bits = plane(white) + plane(clear)
    image = (struct.pack("<IiiHHIIiiII", 40, SIZE, 2 * SIZE, 1, 1, 0, len(bits), 0, 0, 2, 0)
             + struct.pack("<II", 0, 0x00FFFFFF) + bits)
    return struct.pack("<HHHBBBBHHII", 0, 2, 1, SIZE, SIZE, 2, 0, *hot_spot, len(image), 22) + image


def main():
    folder = pathlib.Path(__file__).parent / "editor"
    folder.mkdir(exist_ok=True)
    for name, (draw, hot_spot) in CURSORS.items():
        black, white = draw()
        (folder / f"{name}.cur").write_bytes(cursor(black & set(FIELD), white, hot_spot))


if __name__ == "__main__":
    main()

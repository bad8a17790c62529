#!/usr/bin/env python3
"""Draws the pictures a diagram (diagram.html) refers to: data/pieces/*.bmp,
one 48 x 48 picture for each piece and each empty square, on the dark and on
the light square colour ("d..." and "l..."), in the colours of the program's
medium picture set. Each pixel is the average of 4 x 4 samples, so the edges
are smooth. Run it again to make them anew; it needs nothing but Python."""
import math
import struct
from pathlib import Path

SIDE = 48
SAMPLES = 4
DARK = (128, 82, 50)
LIGHT = (232, 206, 160)
GOLD = (214, 172, 48)


def mix(a, b, t):
    return tuple(a[i] + (b[i] - a[i]) * t for i in range(3))


def inside_polygon(x, y, points):
    hit = False
    j = len(points) - 1
    for i in range(len(points)):
        xi, yi = points[i]
        xj, yj = points[j]
        if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
            hit = not hit
        j = i
    return hit


def crown_points(cx, cy, r):
    w, h = 2 * r * 0.46, 2 * r * 0.30
    left, right, base, top = cx - w / 2, cx + w / 2, cy + h / 2, cy - h / 2
    return [(left, base), (left, top + h * 0.25), (left + w * 0.25, top + h * 0.62), (cx, top),
            (right - w * 0.25, top + h * 0.62), (right, top + h * 0.25), (right, base)]


def sample(x, y, ground, piece):
    """The colour at (x, y) of a square of colour ground with piece on it:
    None, or (white, king)."""
    if piece is None:
        return ground
    white, king = piece
    face = (246, 242, 232) if white else (38, 36, 36)
    edge = (168, 160, 146) if white else (10, 10, 10)
    ring_colour = (200, 192, 176) if white else (78, 74, 72)
    c = SIDE / 2
    r = SIDE * (0.5 - 0.11)
    lift = SIDE * 0.035
    line = max(1.0, SIDE / 45.0)
    d = math.hypot(x - c, y - c)
    if d <= r:
        if d > r - line:
            return edge
        ring = r * (1 - 2 * 0.17)
        if abs(d - ring) < max(1.0, SIDE / 40.0) / 2:
            return ring_colour
        if king:
            points = crown_points(c, c, r)
            if inside_polygon(x, y, points):
                return GOLD
        # Light from the upper left.
        lx, ly = c - r * 0.4, c - r * 0.4
        t = min(1.0, math.hypot(x - lx, y - ly) / (r * 1.5))
        bright = tuple(min(255, v * (1.04 if white else 1.7)) for v in face)
        return mix(bright, face, t)
    if math.hypot(x - c, y - c - lift) <= r:
        return edge
    if math.hypot(x - c - lift, y - c - lift * 1.6) <= r:
        return mix(ground, (0, 0, 0), 70 / 255)
    return ground


def picture(ground, piece):
    rows = []
    for py in range(SIDE):
        row = []
        for px in range(SIDE):
            total = [0.0, 0.0, 0.0]
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    colour = sample(px + (sx + 0.5) / SAMPLES, py + (sy + 0.5) / SAMPLES, ground, piece)
                    for i in range(3):
                        total[i] += colour[i]
            row.append(tuple(int(round(v / SAMPLES ** 2)) for v in total))
        rows.append(row)
    return rows


def write_bmp(path, rows):
    """A plain 24-bit BMP, rows from the bottom, each padded to 4 bytes."""
    height, width = len(rows), len(rows[0])
    stride = (width * 3 + 3) & ~3
    pixels = bytearray()
    for row in reversed(rows):
        line = bytearray()
        for r, g, b in row:
            line += bytes((b, g, r))
        line += bytes(stride - len(line))
        pixels += line
    header = struct.pack("<2sIHHI", b"BM", 14 + 40 + len(pixels), 0, 0, 14 + 40)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    path.write_bytes(header + info + pixels)


def main():
    folder = Path(__file__).resolve().parent.parent / "data" / "pieces"
    folder.mkdir(parents=True, exist_ok=True)
    pieces = {"white_man": (True, False), "black_man": (False, False),
              "white_king": (True, True), "black_king": (False, True), "square": None}
    for prefix, ground in (("d", DARK), ("l", LIGHT)):
        for word, piece in pieces.items():
            write_bmp(folder / f"{prefix}{word}.bmp", picture(ground, piece))


if __name__ == "__main__":
    main()

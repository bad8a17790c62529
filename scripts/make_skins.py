#!/usr/bin/python3
"""Draws the skins shipped in data/skins: a wooden board and a high-contrast
board for players who see poorly. Each skin is a text file NAME.ini and a
folder NAME/ with its fourteen pictures.

Needs Pillow (Debian: python3-pil). Run from the source tree:
    /usr/bin/python3 scripts/make_skins.py
"""
import math
import os
import random

from PIL import Image, ImageDraw, ImageFilter

HERE = os.path.dirname(os.path.abspath(__file__))
SKINS = os.path.join(HERE, "..", "data", "skins")
SCALE = 4  # drawn four times larger, then scaled down for smooth edges

# The geometry a skin names: BoardCustomSize and its square in pixels.
SQUARE = {0: 38, 2: 54, 1: 70}


def bgr(r, g, b):
    """A colour number of a skin file: blue-green-red packed."""
    return (b << 16) | (g << 8) | r


def wood_square(size, base, grain, seed):
    rnd = random.Random(seed)
    img = Image.new("RGB", (size, size), base)
    d = ImageDraw.Draw(img)
    lines = size // 3
    for i in range(lines):
        y = i * size / lines + rnd.uniform(-2, 2) * SCALE
        wave = rnd.uniform(1, 3) * SCALE
        phase = rnd.uniform(0, math.pi * 2)
        pts = [(x, y + wave * math.sin(phase + x / size * math.pi * 2)) for x in range(0, size + 1, SCALE)]
        shade = tuple(max(0, min(255, c + rnd.randint(-10, 10))) for c in grain)
        d.line(pts, fill=shade, width=max(1, SCALE // 2 + rnd.randint(0, SCALE)))
    return img.filter(ImageFilter.GaussianBlur(SCALE * 0.6))


def flat_square(size, colour):
    return Image.new("RGB", (size, size), colour)


def crown(d, cx, cy, w, h, fill, outline, width):
    left, right, top, base = cx - w / 2, cx + w / 2, cy - h / 2, cy + h / 2
    pts = [(left, base), (left, top + h * 0.2), (left + w * 0.25, top + h * 0.6), (cx, top),
           (right - w * 0.25, top + h * 0.6), (right, top + h * 0.2), (right, base)]
    d.polygon(pts, fill=fill, outline=outline, width=width)


def piece(size, style, white, king):
    """One piece on a transparent layer of the square's size."""
    layer = Image.new("RGBA", (size, size), (0, 0, 0, 0))
    d = ImageDraw.Draw(layer)
    inset = size * 0.12
    box = [inset, inset, size - inset, size - inset]
    lift = size * 0.04
    if style == "wood":
        face = (232, 208, 160) if white else (58, 34, 22)
        side = (176, 146, 96) if white else (28, 16, 10)
        ring = (200, 172, 120) if white else (92, 60, 40)
        d.ellipse([box[0] + lift, box[1] + lift * 1.8, box[2] + lift, box[3] + lift * 1.8], fill=(0, 0, 0, 90))
        d.ellipse([box[0], box[1] + lift, box[2], box[3] + lift], fill=side)
        d.ellipse(box, fill=face, outline=side, width=SCALE * 2)
        r = size * 0.17
        d.ellipse([box[0] + r, box[1] + r, box[2] - r, box[3] - r], outline=ring, width=SCALE * 2)
        if king:
            crown(d, size / 2, size / 2, size * 0.36, size * 0.24, (222, 176, 40), (120, 84, 10), SCALE)
    else:
        # High contrast: white pieces with a black rim, black pieces with a
        # white rim, kings with a large yellow crown.
        face = (255, 255, 255) if white else (0, 0, 0)
        rim = (0, 0, 0) if white else (255, 255, 255)
        d.ellipse(box, fill=rim)
        t = size * 0.06
        d.ellipse([box[0] + t, box[1] + t, box[2] - t, box[3] - t], fill=face)
        if king:
            crown(d, size / 2, size / 2, size * 0.46, size * 0.32, (255, 214, 0), rim, SCALE * 2)
    return layer


def finish(img, px):
    return img.resize((px, px), Image.LANCZOS)


def make_skin(name, geometry, squares, style, highlights):
    px = SQUARE[geometry]
    size = px * SCALE
    folder = os.path.join(SKINS, name)
    os.makedirs(folder, exist_ok=True)
    dark, light = squares(size)
    pictures = {"dark_square": dark, "light_square": light}
    for colour in ("dark", "light"):
        for side in ("black", "white"):
            for kind in ("man", "king"):
                base = (dark if colour == "dark" else light).convert("RGBA")
                base.alpha_composite(piece(size, style, side == "white", kind == "king"))
                pictures[f"{colour}_{side}_{kind}"] = base.convert("RGB")
    for side in ("white", "black"):
        for kind in ("man", "king"):
            pictures[f"{side}_{kind}_ico"] = piece(size, style, side == "white", kind == "king")
    files = {}
    for key, img in pictures.items():
        file = key + ".png"
        finish(img, px).save(os.path.join(folder, file), optimize=True)
        files[key] = file
    dark_hl, light_hl = highlights
    lines = [f"{name} skin for Quorvanis", f"BoardCustomSize={geometry}",
             f"dark_highlight={dark_hl}", f"light_highlight={light_hl}"]
    lines += [f"{key}={file}" for key, file in files.items()]
    lines.append("END")
    with open(os.path.join(SKINS, name + ".ini"), "w", newline="\r\n") as out:
        out.write("\n".join(lines) + "\n")


def wooden_squares(size):
    return (wood_square(size, (120, 74, 40), (96, 56, 28), 1), wood_square(size, (226, 196, 146), (206, 172, 120), 2))


def contrast_squares(size):
    return flat_square(size, (20, 60, 130)), flat_square(size, (255, 255, 255))


def main():
    make_skin("Wooden", 2, wooden_squares, "wood", (bgr(255, 215, 0), bgr(0, 120, 0)))
    make_skin("High Contrast", 1, contrast_squares, "contrast", (bgr(0, 255, 255), bgr(255, 0, 160)))


if __name__ == "__main__":
    main()

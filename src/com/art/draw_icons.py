#!/usr/bin/env python3
"""Draws the control's icon and toolbox picture: a list of tasks, one of them ticked, and a clock.

Usage: draw_icons.py FOLDER    writes zv_task.ico and toolbox.bmp

Shapes lie on a 16 x 16 grid and are drawn with four by four samples a pixel.
"""
import math
import struct
import sys

SAMPLES = 4
INK = (44, 62, 92)
PAPER = (255, 255, 255)
GREEN = (34, 139, 84)
AMBER = (246, 178, 52)
LINE = (140, 155, 180)


def rounded(x0, y0, x1, y1, radius):
    def inside(x, y):
        dx = max(x0 + radius - x, x - x1 + radius, 0)
        dy = max(y0 + radius - y, y - y1 + radius, 0)
        return x0 <= x <= x1 and y0 <= y <= y1 and dx * dx + dy * dy <= radius * radius

    return inside


def disc(cx, cy, radius):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= radius * radius


def stroke(points, width):
    def distance(x, y, a, b):
        ax, ay = a
        bx, by = b
        length = (bx - ax) ** 2 + (by - ay) ** 2
        t = max(0, min(1, ((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / length))
        return math.hypot(x - ax - t * (bx - ax), y - ay - t * (by - ay))

    return lambda x, y: any(distance(x, y, a, b) <= width / 2 for a, b in zip(points, points[1:]))


SHAPES = [
    (rounded(1.5, 0.8, 12.3, 14.6, 1.4), INK),
    (rounded(2.5, 1.8, 11.3, 13.6, 0.7), PAPER),
    (stroke([(3.6, 4.3), (4.6, 5.3), (6.3, 3.1)], 1.0), GREEN),
    (stroke([(7.6, 4.3), (10.2, 4.3)], 0.9), LINE),
    (stroke([(4.0, 7.4), (10.2, 7.4)], 0.9), LINE),
    (stroke([(4.0, 10.4), (6.2, 10.4)], 0.9), LINE),
    (disc(11.2, 11.4, 4.3), INK),
    (disc(11.2, 11.4, 3.3), AMBER),
    (stroke([(11.2, 9.2), (11.2, 11.5), (12.9, 12.3)], 0.9), INK),
]


def draw(size):
    """Rows from the top, each pixel (red, green, blue, alpha)."""
    scale = 16 / size
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            total = [0, 0, 0]
            covered = 0
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    x = (px + (sx + 0.5) / SAMPLES) * scale
                    y = (py + (sy + 0.5) / SAMPLES) * scale
                    colour = None
                    for inside, fill in SHAPES:
                        if inside(x, y):
                            colour = fill
                    if colour:
                        covered += 1
                        total = [t + c for t, c in zip(total, colour)]
            mean = [t // covered if covered else 0 for t in total]
            row.append((*mean, 255 * covered // (SAMPLES * SAMPLES)))
        rows.append(row)
    return rows


def icon_image(size):
    rows = draw(size)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    stride = (size + 31) // 32 * 4
    mask = b""
    for row in reversed(rows):
        bits = 0
        for x, (_, _, _, alpha) in enumerate(row):
            if alpha == 0:
                bits |= 1 << (stride * 8 - 1 - x)
        mask += bits.to_bytes(stride, "big")
    return header + pixels + mask


def write_icon(path, sizes):
    images = [icon_image(size) for size in sizes]
    offset = 6 + 16 * len(sizes)
    data = struct.pack("<HHH", 0, 1, len(sizes))
    for size, image in zip(sizes, images):
        data += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    with open(path, "wb") as file:
        file.write(data + b"".join(images))


def write_toolbox(path, size=16, back=(192, 192, 192)):
    pixels = b""
    for row in reversed(draw(size)):
        for r, g, b, a in row:
            mixed = [(c * a + k * (255 - a)) // 255 for c, k in zip((b, g, r), back)]
            pixels += bytes(mixed)
    header = struct.pack("<IiiHHIIiiII", 40, size, size, 1, 24, 0, len(pixels), 0, 0, 0, 0)
    with open(path, "wb") as file:
        file.write(b"BM" + struct.pack("<IHHI", 54 + len(pixels), 0, 0, 54) + header + pixels)


if __name__ == "__main__":
    folder = sys.argv[1]
    write_icon(folder + "/zv_task.ico", [16, 20, 24, 32, 48, 64])
    write_toolbox(folder + "/toolbox.bmp")

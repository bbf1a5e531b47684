#!/usr/bin/env python3
"""Draws the control host's icons into .ico files beside this script.

Each icon holds several images in different forms, as icon editors write
them: a 16 x 16 image with a colour table and a mask, a 32 x 32 image with
8-bit alpha (and a mask), and for the application's icon a 48 x 48 PNG.
Run it again after changing a drawing; the .ico files are committed.
"""
import math
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
SAMPLES = 4  # per pixel and axis


def circle(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def ellipse(cx, cy, rx, ry):
    return lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1


def box(x0, y0, x1, y1):
    return lambda x, y: x0 <= x <= x1 and y0 <= y <= y1


def polygon(points):
    def inside(x, y):
        hit = False
        n = len(points)
        for i in range(n):
            (ax, ay), (bx, by) = points[i], points[(i + 1) % n]
            if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                hit = not hit
        return hit
    return inside


def star(cx, cy, outer, inner):
    pts = []
    for k in range(10):
        r = outer if k % 2 == 0 else inner
        a = -math.pi / 2 + k * math.pi / 5
        pts.append((cx + r * math.cos(a), cy + r * math.sin(a)))
    return polygon(pts)


# A drawing: layers from the bottom up, each (shape, fill, outline or None);
# a fill of None cuts a hole through everything below.
DRAWINGS = {
    "app": [
        (ellipse(0.5, 0.52, 0.44, 0.36), (226, 190, 140), (150, 105, 60)),
        (circle(0.66, 0.68, 0.08), None, None),
        (circle(0.30, 0.42, 0.085), (220, 40, 40), None),
        (circle(0.48, 0.30, 0.085), (40, 90, 220), None),
        (circle(0.68, 0.36, 0.085), (40, 170, 60), None),
        (circle(0.30, 0.66, 0.085), (250, 200, 30), None),
    ],
    "tag": [
        (polygon([(0.08, 0.28), (0.62, 0.28), (0.94, 0.5), (0.62, 0.72), (0.08, 0.72)]),
         (240, 140, 40), (160, 80, 10)),
        (circle(0.68, 0.5, 0.07), None, None),
    ],
    "flag": [
        (box(0.16, 0.08, 0.24, 0.94), (110, 110, 110), (60, 60, 60)),
        (polygon([(0.24, 0.10), (0.90, 0.14), (0.78, 0.32), (0.90, 0.50), (0.24, 0.46)]),
         (40, 100, 215), (20, 50, 130)),
    ],
    "star": [
        (star(0.5, 0.54, 0.48, 0.2), (250, 205, 40), (185, 130, 0)),
    ],
}


def render(layers, size, smooth):
    """Rows of (r, g, b, a) pixels; smooth edges take partial alpha."""
    n = SAMPLES if smooth else 1
    width = 1.0 / size
    pixels = []
    for py in range(size):
        row = []
        for px in range(size):
            acc = [0.0, 0.0, 0.0, 0.0]
            for sy in range(n):
                for sx in range(n):
                    x = (px + (sx + 0.5) / n) / size
                    y = (py + (sy + 0.5) / n) / size
                    colour = None
                    for shape, fill, outline in layers:
                        if not shape(x, y):
                            continue
                        if fill is None:
                            colour = None
                            continue
                        edge = outline is not None and not all(
                            shape(x + dx, y + dy)
                            for dx, dy in ((width, 0), (-width, 0), (0, width), (0, -width)))
                        colour = outline if edge else fill
                    if colour:
                        acc[0] += colour[0]
                        acc[1] += colour[1]
                        acc[2] += colour[2]
                        acc[3] += 1
            if acc[3]:
                row.append((round(acc[0] / acc[3]), round(acc[1] / acc[3]), round(acc[2] / acc[3]),
                            round(255 * acc[3] / (n * n))))
            else:
                row.append((0, 0, 0, 0))
        pixels.append(row)
    return pixels


def dib(pixels, bits):
    size = len(pixels)
    table = []
    row_bytes = (size * bits + 31) // 32 * 4
    mask_bytes = (size + 31) // 32 * 4
    rows = bytearray(row_bytes * size)
    mask = bytearray(mask_bytes * size)
    for y in range(size):
        line = size - 1 - y
        for x in range(size):
            r, g, b, a = pixels[y][x]
            clear = a < 128
            if bits <= 8:
                colour = (0, 0, 0) if clear else (r, g, b)
                if colour not in table:
                    table.append(colour)
                index = table.index(colour)
                bit = x * bits
                rows[line * row_bytes + bit // 8] |= index << (8 - bits - bit % 8)
            else:
                at = line * row_bytes + x * 4
                rows[at:at + 4] = bytes((b, g, r, a))
            if clear:
                mask[line * mask_bytes + x // 8] |= 0x80 >> (x % 8)
    if bits <= 8 and len(table) > (1 << bits):
        raise ValueError("too many colours for %d bits" % bits)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, bits, 0, len(rows) + len(mask),
                         0, 0, len(table) if bits <= 8 else 0, 0)
    palette = b"".join(bytes((b, g, r, 0)) for r, g, b in table)
    return header + palette + bytes(rows) + bytes(mask)


def png(pixels):
    size = len(pixels)
    raw = b"".join(b"\0" + bytes(c for p in row for c in p) for row in pixels)

    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data +
                struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


def icon_file(images):
    head = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    entries, data = b"", b""
    for size, bits, blob in images:
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, bits, len(blob),
                               offset)
        offset += len(blob)
        data += blob
    return head + entries + data


def main():
    for name, layers in DRAWINGS.items():
        images = [(16, 8, dib(render(layers, 16, False), 8)),
                  (32, 32, dib(render(layers, 32, True), 32))]
        if name == "app":
            images.append((48, 32, png(render(layers, 48, True))))
        with open(os.path.join(HERE, name + ".ico"), "wb") as out:
            out.write(icon_file(images))


if __name__ == "__main__":
    main()

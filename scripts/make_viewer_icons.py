#!/usr/bin/env python3
"""Draws the message viewer's PNG icons from simple shapes.

    scripts/make_viewer_icons.py      (writes rviz_plugin/plugin/resources/msg_viewer/image/)
"""
import math
import pathlib
import struct
import zlib

OUT = pathlib.Path(__file__).resolve().parent.parent / "rviz_plugin/plugin/resources/msg_viewer/image"


class Canvas:
    def __init__(self, width, height):
        self.width, self.height = width, height
        self.pixels = [[(0, 0, 0, 0)] * width for _ in range(height)]

    def blend(self, x, y, color, coverage):
        if 0 <= x < self.width and 0 <= y < self.height and coverage > 0:
            r, g, b, a = color
            a = int(a * min(coverage, 1.0))
            old = self.pixels[y][x]
            out_a = a + old[3] * (255 - a) // 255
            if out_a == 0:
                return
            mix = [(c * a + o * old[3] * (255 - a) // 255) // out_a for c, o in zip((r, g, b), old[:3])]
            self.pixels[y][x] = (*mix, out_a)

    def shape(self, inside, color, samples=4):
        """Fills where inside(x, y) holds, anti-aliased by supersampling each pixel."""
        for y in range(self.height):
            for x in range(self.width):
                hits = sum(inside(x + (i + 0.5) / samples, y + (j + 0.5) / samples)
                           for i in range(samples) for j in range(samples))
                self.blend(x, y, color, hits / samples ** 2)

    def rect(self, x0, y0, x1, y1, color):
        self.shape(lambda x, y: x0 <= x <= x1 and y0 <= y <= y1, color)

    def ring(self, cx, cy, r, width, color):
        self.shape(lambda x, y: abs(math.hypot(x - cx, y - cy) - r) <= width / 2, color)

    def line(self, x0, y0, x1, y1, width, color):
        def inside(x, y):
            dx, dy = x1 - x0, y1 - y0
            t = max(0.0, min(1.0, ((x - x0) * dx + (y - y0) * dy) / (dx * dx + dy * dy)))
            return math.hypot(x - x0 - t * dx, y - y0 - t * dy) <= width / 2
        self.shape(inside, color)

    def triangle(self, a, b, c, color):
        def side(p, q, x, y):
            return (q[0] - p[0]) * (y - p[1]) - (q[1] - p[1]) * (x - p[0])
        def inside(x, y):
            s = [side(a, b, x, y), side(b, c, x, y), side(c, a, x, y)]
            return all(v >= 0 for v in s) or all(v <= 0 for v in s)
        self.shape(inside, color)

    def save(self, name, out=None):
        raw = b"".join(b"\0" + bytes(v for px in row for v in px) for row in self.pixels)
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        png = (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", self.width, self.height, 8, 6, 0, 0, 0))
               + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))
        ((out or OUT) / name).write_bytes(png)


GREY, ORANGE, DARK, LIGHT = (153, 153, 153, 255), (239, 119, 72, 255), (51, 51, 51, 255), (210, 210, 210, 255)


def close():
    c = Canvas(16, 16)
    c.line(4, 4, 12, 12, 1.6, GREY)
    c.line(12, 4, 4, 12, 1.6, GREY)
    c.save("close.png")


def search():
    c = Canvas(16, 16)
    c.ring(6.5, 6.5, 4.5, 1.6, GREY)
    c.line(10, 10, 14, 14, 2, GREY)
    c.save("search.png")


def empty():
    c = Canvas(96, 72)
    c.rect(18, 20, 78, 64, LIGHT)
    c.rect(22, 24, 74, 60, (245, 245, 245, 255))
    c.triangle((18, 20), (48, 6), (78, 20), LIGHT)
    c.ring(48, 40, 9, 2.5, GREY)
    c.line(54, 46, 62, 54, 3, GREY)
    c.save("empty.png")


def warning():
    c = Canvas(16, 16)
    c.triangle((8, 1), (15, 14.5), (1, 14.5), ORANGE)
    c.rect(7.2, 5, 8.8, 10, (255, 255, 255, 255))
    c.rect(7.2, 11.5, 8.8, 13, (255, 255, 255, 255))
    c.save("warning.png")


def sheet():
    c = Canvas(16, 16)
    c.rect(2, 2, 14, 14, ORANGE)
    for y in (6, 10):
        c.rect(3, y - 0.5, 13, y + 0.5, (255, 255, 255, 255))
    c.rect(7.5, 3, 8.5, 13, (255, 255, 255, 255))
    c.save("sheet.png")


def align(name, offsets):
    c = Canvas(16, 16)
    for row, (x0, x1) in enumerate(offsets):
        y = 3 + row * 3.5
        c.rect(x0, y, x1, y + 1.4, DARK)
    c.save(name)



if __name__ == "__main__":
    close()
    search()
    empty()
    warning()
    sheet()
    align("Alignleft.png", [(2, 14), (2, 10), (2, 14), (2, 9)])
    align("centeralign.png", [(2, 14), (4, 12), (2, 14), (5, 11)])
    align("Alignright.png", [(2, 14), (6, 14), (2, 14), (7, 14)])

#!/usr/bin/env python3
"""Draws the program's own toolbar pictures and delivered bitmaps.

Writes the 16 toolbar pictures (24 x 24 PNG with transparency) to src/documents/images/, the
main window's picture buttons (20 x 20 PNG) to src/shell/images/, and the delivered bitmaps
(24-bit BMP) to resources/BMPS/. Uses the standard library only.
Run it from anywhere: python3 scripts/make-images.py
"""
import math
import os
import struct
import zlib

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


class Canvas:
    def __init__(self, w, h, background=(0, 0, 0, 0)):
        self.w, self.h = w, h
        self.px = [[background for _ in range(w)] for _ in range(h)]

    def set(self, x, y, c):
        x, y = int(round(x)), int(round(y))
        if 0 <= x < self.w and 0 <= y < self.h:
            if len(c) == 3:
                c = (*c, 255)
            self.px[y][x] = c

    def rect(self, x0, y0, x1, y1, c):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.set(x, y, c)

    def frame(self, x0, y0, x1, y1, c):
        for x in range(x0, x1 + 1):
            self.set(x, y0, c)
            self.set(x, y1, c)
        for y in range(y0, y1 + 1):
            self.set(x0, y, c)
            self.set(x1, y, c)

    def line(self, x0, y0, x1, y1, c, width=1):
        steps = int(max(abs(x1 - x0), abs(y1 - y0)) * 2) + 1
        r = (width - 1) / 2.0
        for i in range(steps + 1):
            t = i / steps
            x = x0 + (x1 - x0) * t
            y = y0 + (y1 - y0) * t
            for dy in range(-int(r), int(r) + 1):
                for dx in range(-int(r), int(r) + 1):
                    self.set(x + dx, y + dy, c)

    def disc(self, cx, cy, radius, c):
        for y in range(self.h):
            for x in range(self.w):
                if (x - cx) ** 2 + (y - cy) ** 2 <= radius ** 2:
                    self.set(x, y, c)

    def ring(self, cx, cy, radius, c):
        for a in range(0, 360, 3):
            self.set(cx + radius * math.cos(math.radians(a)),
                     cy + radius * math.sin(math.radians(a)), c)

    def polygon(self, points, c):
        for y in range(self.h):
            xs = []
            n = len(points)
            for i in range(n):
                (xa, ya), (xb, yb) = points[i], points[(i + 1) % n]
                if (ya <= y < yb) or (yb <= y < ya):
                    xs.append(xa + (y - ya) * (xb - xa) / (yb - ya))
            xs.sort()
            for i in range(0, len(xs) - 1, 2):
                for x in range(int(math.ceil(xs[i])), int(math.floor(xs[i + 1])) + 1):
                    self.set(x, y, c)

    def glyph(self, rows, x0, y0, c):
        for dy, row in enumerate(rows):
            for dx, ch in enumerate(row):
                if ch == "#":
                    self.set(x0 + dx, y0 + dy, c)

    def png(self, path):
        raw = b"".join(b"\x00" + bytes(v for p in row for v in p) for row in self.px)

        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

        data = b"\x89PNG\r\n\x1a\n"
        data += chunk(b"IHDR", struct.pack(">IIBBBBB", self.w, self.h, 8, 6, 0, 0, 0))
        data += chunk(b"IDAT", zlib.compress(raw, 9))
        data += chunk(b"IEND", b"")
        with open(path, "wb") as f:
            f.write(data)

    def bmp(self, path, matte=(192, 192, 192)):
        stride = (self.w * 3 + 3) & ~3
        rows = b""
        for row in reversed(self.px):
            line = b""
            for r, g, b, a in row:
                r, g, b = ((v * a + m * (255 - a)) // 255 for v, m in zip((r, g, b), matte))
                line += bytes((b, g, r))
            rows += line + b"\x00" * (stride - len(line))
        header = struct.pack("<2sIHHI", b"BM", 54 + len(rows), 0, 0, 54)
        info = struct.pack("<IiiHHIIiiII", 40, self.w, self.h, 1, 24, 0, len(rows), 2835, 2835,
                           0, 0)
        with open(path, "wb") as f:
            f.write(header + info + rows)


BLACK = (0, 0, 0)
WHITE = (255, 255, 255)
GREY = (128, 128, 128)
LIGHT = (200, 200, 200)
DARK = (64, 64, 64)
BLUE = (40, 80, 190)
SKY = (120, 180, 240)
RED = (200, 30, 30)
GREEN = (40, 150, 60)
YELLOW = (240, 200, 40)
ORANGE = (230, 130, 30)

QUESTION = [" #### ", "##  ##", "    ##", "   ## ", "  ##  ", "  ##  ", "      ", "  ##  "]


def page(c, x0, y0, x1, y1):
    c.rect(x0, y0, x1, y1, WHITE)
    c.frame(x0, y0, x1, y1, DARK)
    for y in range(y0 + 3, y1 - 1, 3):
        c.line(x0 + 2, y, x1 - 2, y, LIGHT)


def landscape(c, x0, y0, x1, y1):
    c.rect(x0, y0, x1, y1, SKY)
    c.polygon([(x0, y1), (x0 + (x1 - x0) * 0.4, y0 + (y1 - y0) * 0.35), (x1, y1)], GREEN)
    c.disc(x1 - 3, y0 + 3, 1.6, YELLOW)
    c.frame(x0, y0, x1, y1, DARK)


def arrow(c, x0, y0, x1, y1, col, width=2):
    c.line(x0, y0, x1, y1, col, width)
    ang = math.atan2(y1 - y0, x1 - x0)
    for side in (-1, 1):
        a = ang + math.pi + side * math.radians(35)
        c.line(x1, y1, x1 + 5 * math.cos(a), y1 + 5 * math.sin(a), col, width)


def toolbar():
    out = os.path.join(TOP, "src", "documents", "images")
    icons = {}

    c = Canvas(24, 24)
    c.polygon([(2, 6), (9, 6), (11, 8), (21, 8), (21, 20), (2, 20)], YELLOW)
    c.polygon([(5, 11), (23, 11), (20, 20), (2, 20)], ORANGE)
    c.frame(2, 6, 21, 20, DARK)
    icons["Open"] = c

    c = Canvas(24, 24)
    c.line(5, 5, 18, 18, RED, 3)
    c.line(18, 5, 5, 18, RED, 3)
    icons["Close"] = c

    c = Canvas(24, 24)
    c.rect(3, 3, 20, 20, BLUE)
    c.rect(6, 4, 17, 10, WHITE)
    c.rect(7, 14, 16, 20, LIGHT)
    c.rect(13, 15, 15, 19, DARK)
    c.frame(3, 3, 20, 20, DARK)
    icons["Save"] = c

    c = Canvas(24, 24)
    page(c, 3, 2, 16, 21)
    c.line(9, 19, 21, 7, ORANGE, 3)
    c.line(8, 20, 9, 19, DARK, 2)
    icons["Rename"] = c

    c = Canvas(24, 24)
    page(c, 2, 2, 12, 16)
    arrow(c, 8, 18, 21, 18, GREEN)
    icons["Move"] = c

    c = Canvas(24, 24)
    c.rect(5, 7, 18, 21, GREY)
    c.rect(3, 4, 20, 6, DARK)
    c.rect(9, 2, 14, 4, DARK)
    for x in (8, 11, 14):
        c.line(x, 9, x, 19, LIGHT)
    icons["Delete"] = c

    c = Canvas(24, 24)
    c.rect(6, 2, 17, 9, WHITE)
    c.frame(6, 2, 17, 9, DARK)
    c.rect(2, 9, 21, 17, GREY)
    c.frame(2, 9, 21, 17, DARK)
    c.rect(6, 14, 17, 21, WHITE)
    c.frame(6, 14, 17, 21, DARK)
    c.set(18, 11, GREEN)
    icons["Print"] = c

    c = Canvas(24, 24)
    c.rect(2, 6, 21, 18, WHITE)
    c.frame(2, 6, 21, 18, DARK)
    c.line(2, 6, 11.5, 13, DARK)
    c.line(21, 6, 11.5, 13, DARK)
    icons["Send"] = c

    c = Canvas(24, 24)
    page(c, 2, 2, 13, 16)
    page(c, 9, 7, 21, 21)
    icons["Copy"] = c

    c = Canvas(24, 24)
    c.rect(2, 3, 21, 20, WHITE)
    c.rect(2, 3, 21, 7, SKY)
    for y in (3, 7, 11, 15, 20):
        c.line(2, y, 21, y, DARK)
    for x in (2, 9, 15, 21):
        c.line(x, 3, x, 20, DARK)
    icons["Table"] = c

    c = Canvas(24, 24)
    c.rect(2, 3, 14, 20, WHITE)
    for y in (3, 7, 11, 15, 20):
        c.line(2, y, 14, y, DARK)
    c.line(2, 3, 2, 20, DARK)
    c.line(14, 3, 14, 20, DARK)
    arrow(c, 18, 4, 18, 19, BLUE)
    icons["Index"] = c

    c = Canvas(24, 24)
    c.frame(1, 1, 22, 22, GREY)
    landscape(c, 6, 6, 17, 17)
    icons["Normal"] = c

    c = Canvas(24, 24)
    landscape(c, 1, 4, 22, 19)
    arrow(c, 9, 11.5, 3, 11.5, WHITE, 1)
    arrow(c, 14, 11.5, 20, 11.5, WHITE, 1)
    icons["Stretch"] = c

    c = Canvas(24, 24)
    c.frame(2, 2, 21, 21, DARK)
    c.rect(3, 3, 11, 11, SKY)
    c.frame(3, 3, 11, 11, BLUE)
    arrow(c, 10, 10, 19, 19, RED)
    icons["Resize"] = c

    c = Canvas(24, 24)
    for a in range(0, 360, 45):
        r = math.radians(a)
        c.line(12 + 6 * math.cos(r), 12 + 6 * math.sin(r), 12 + 10 * math.cos(r),
               12 + 10 * math.sin(r), ORANGE, 2)
    c.disc(11.5, 11.5, 5, YELLOW)
    icons["Brightness"] = c

    c = Canvas(24, 24)
    c.disc(11.5, 11.5, 10, BLUE)
    big = ["".join(ch * 2 for ch in row) for row in QUESTION]
    for dy, row in enumerate(QUESTION):
        c.glyph([big[dy]], 6, 4 + dy * 2, WHITE)
        c.glyph([big[dy]], 6, 5 + dy * 2, WHITE)
    icons["Help"] = c

    for name, canvas in icons.items():
        canvas.png(os.path.join(out, name + ".png"))
    return len(icons)


def buttons():
    """The picture buttons of the main window, 20 x 20."""
    out = os.path.join(TOP, "src", "shell", "images")
    icons = {}

    def magnifier(c):
        c.ring(8, 8, 5.5, DARK)
        c.ring(8, 8, 5, DARK)
        c.disc(8, 8, 4.2, SKY)
        c.line(12, 12, 18, 18, DARK, 3)

    c = Canvas(20, 20)
    magnifier(c)
    icons["FindBtn"] = c

    c = Canvas(20, 20)
    magnifier(c)
    arrow(c, 11, 3, 19, 3, GREEN, 1)
    icons["FindNextBtn"] = c

    c = Canvas(20, 20)
    for x0, y0 in ((1, 1), (11, 1), (1, 11), (11, 11)):
        landscape(c, x0, y0, x0 + 7, y0 + 7)
    icons["ThumbsBtn"] = c

    c = Canvas(20, 20)
    for i, col in enumerate((RED, BLUE, GREEN, ORANGE)):
        c.rect(2 + i * 4, 3 + (i % 2), 4 + i * 4, 18, col)
        c.frame(2 + i * 4, 3 + (i % 2), 4 + i * 4, 18, DARK)
    icons["OrgViewBtn"] = c

    c = Canvas(20, 20)
    c.polygon([(1, 4), (7, 4), (9, 6), (18, 6), (18, 17), (1, 17)], YELLOW)
    c.frame(1, 4, 18, 17, DARK)
    c.line(13, 9, 13, 15, GREEN, 2)
    c.line(10, 12, 16, 12, GREEN, 2)
    icons["OrgMaintBtn"] = c

    c = Canvas(20, 20)
    c.rect(5, 1, 14, 7, WHITE)
    c.frame(5, 1, 14, 7, DARK)
    c.rect(1, 7, 18, 14, GREY)
    c.frame(1, 7, 18, 14, DARK)
    c.rect(5, 11, 14, 18, WHITE)
    c.frame(5, 11, 14, 18, DARK)
    icons["PrintBtn"] = c

    c = Canvas(20, 20)
    c.rect(1, 4, 18, 15, WHITE)
    c.frame(1, 4, 18, 15, DARK)
    c.line(1, 4, 9.5, 10, DARK)
    c.line(18, 4, 9.5, 10, DARK)
    icons["SendBtn"] = c

    c = Canvas(20, 20)
    landscape(c, 1, 2, 18, 17)
    icons["PictBtn"] = c

    c = Canvas(20, 20)
    c.rect(2, 7, 5, 12, DARK)
    c.polygon([(5, 7), (10, 2), (10, 17), (5, 12)], DARK)
    for r in (4, 7):
        for a in range(-40, 41, 5):
            c.set(10 + r * math.cos(math.radians(a)), 9.5 + r * math.sin(math.radians(a)), BLUE)
    icons["SoundBtn"] = c

    c = Canvas(20, 20)
    c.disc(5, 15, 2.6, DARK)
    c.disc(14, 13, 2.6, DARK)
    c.line(7, 15, 7, 3, DARK, 2)
    c.line(16, 13, 16, 1, DARK, 2)
    c.line(7, 3, 16, 1, DARK, 2)
    icons["MusicBtn"] = c

    c = Canvas(20, 20)
    c.rect(1, 3, 18, 16, DARK)
    for x in range(2, 18, 3):
        c.rect(x, 4, x + 1, 5, WHITE)
        c.rect(x, 14, x + 1, 15, WHITE)
    c.polygon([(7, 7), (13, 9.5), (7, 12)], YELLOW)
    icons["VideoBtn"] = c

    c = Canvas(20, 20)
    page(c, 3, 1, 16, 18)
    icons["TextBtn"] = c

    c = Canvas(20, 20)
    c.rect(1, 2, 18, 17, WHITE)
    c.rect(1, 2, 18, 5, SKY)
    for y in (2, 5, 9, 13, 17):
        c.line(1, y, 18, y, DARK)
    for x in (1, 7, 12, 18):
        c.line(x, 2, x, 17, DARK)
    icons["DataBtn"] = c

    for name, canvas in icons.items():
        canvas.png(os.path.join(out, name + ".png"))
    return len(icons)


def bitmaps():
    out = os.path.join(TOP, "resources", "BMPS")

    # Quick view off and on: an eye over a picture, closed and open.
    for name, on in (("Picture3.Bmp", False), ("Picture4.Bmp", True)):
        c = Canvas(24, 24, (*LIGHT, 255))
        landscape(c, 2, 8, 21, 21)
        c.polygon([(2, 5), (12, 0), (21, 5), (12, 10)], WHITE)
        c.line(2, 5, 12, 0, DARK)
        c.line(12, 0, 21, 5, DARK)
        c.line(2, 5, 12, 10, DARK)
        c.line(12, 10, 21, 5, DARK)
        if on:
            c.disc(11.5, 5, 2.5, BLUE)
        else:
            c.line(3, 5, 20, 5, DARK, 2)
        c.bmp(os.path.join(out, name))

    c = Canvas(16, 16, (*LIGHT, 255))
    c.line(2, 8, 6, 12, GREEN, 2)
    c.line(6, 12, 13, 3, GREEN, 2)
    c.bmp(os.path.join(out, "Check.Bmp"))

    c = Canvas(16, 16, (*LIGHT, 255))
    for a in range(200, 470, 5):
        r = math.radians(a)
        c.set(8 + 5 * math.cos(r), 8 + 5 * math.sin(r), BLUE)
        c.set(8 + 4 * math.cos(r), 8 + 4 * math.sin(r), BLUE)
    c.polygon([(1, 5), (6, 5), (3.5, 9)], BLUE)
    c.bmp(os.path.join(out, "Undo.Bmp"))

    for name, lit in (("BulbOn.Bmp", True), ("BulbOff.Bmp", False)):
        c = Canvas(16, 16, (*LIGHT, 255))
        c.disc(7.5, 6, 5, YELLOW if lit else WHITE)
        c.ring(7.5, 6, 5, DARK)
        c.rect(5, 11, 10, 14, GREY)
        c.line(5, 12, 10, 12, DARK)
        if lit:
            for x0, y0, x1, y1 in ((0, 1, 2, 2), (15, 1, 13, 2), (0, 8, 2, 7), (15, 8, 13, 7)):
                c.line(x0, y0, x1, y1, ORANGE)
        c.bmp(os.path.join(out, name))
    return 6


if __name__ == "__main__":
    print("toolbar pictures:", toolbar())
    print("main window buttons:", buttons())
    print("delivered bitmaps:", bitmaps())

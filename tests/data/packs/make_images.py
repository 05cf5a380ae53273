#!/usr/bin/env python3
"""Writes the images of the test appearance pack (testskin.ar/graphics).

Every image has pixel values that tests can decode, so keep them in step
with the tests when changing anything here. Only the standard library is
used; run it from anywhere and commit the PNG files it rewrites.
"""
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "testskin.ar", "graphics")


def png(width, height, pixel, alpha):
    """PNG bytes of an image; pixel(x, y) gives (r, g, b) or (r, g, b, a)."""
    channels = 4 if alpha else 3
    raw = bytearray()
    for y in range(height):
        raw.append(0)  # no filter
        for x in range(width):
            raw.extend(pixel(x, y)[:channels])

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    header = struct.pack(">IIBBBBB", width, height, 8, 6 if alpha else 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + chunk(b"IEND", b""))


def write(name, data):
    with open(os.path.join(OUT, name), "wb") as f:
        f.write(data)


def nine_slice(x, y):
    # 30 x 30, margins 10: red and green give the source position (x * 8,
    # y * 8), blue the piece (column + 3 * row, times 28), so every pixel of
    # a rendering tells where it came from.
    piece = (x // 10) + 3 * (y // 10)
    return (x * 8, y * 8, piece * 28)


def magenta_corners(x, y):
    # 16 x 16 blue square whose 3 x 3 corners are magenta (the cut-away colour).
    corner = (x < 3 or x >= 13) and (y < 3 or y >= 13)
    return (255, 0, 255) if corner else (0, 64, 200)


def alpha_ramp(x, y):
    # 8 x 8 white, alpha rising left to right: 0, 36, ..., 252.
    return (255, 255, 255, x * 36)


def background(x, y):
    # 40 x 30 vertical ramp of blue.
    return (10, 20, 40 + y * 6)


def main():
    os.makedirs(OUT, exist_ok=True)
    write("button.png", png(30, 30, nine_slice, False))
    write("magenta.png", png(16, 16, magenta_corners, False))
    write("alpha.png", png(8, 8, alpha_ramp, True))
    write("background.png", png(40, 30, background, False))
    # A PNG under another extension: images are decoded as PNG by content.
    write("logo.img", png(4, 2, lambda x, y: (x * 60, 0, 0), False))
    # Not an image at all.
    write("broken.png", b"this is not a PNG file\n")


if __name__ == "__main__":
    main()

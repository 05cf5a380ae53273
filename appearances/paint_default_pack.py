#!/usr/bin/env python3
"""Paints the images of the default appearance pack.

Run it after changing a shape or a colour; it rewrites the PNG files under
default.ar/graphics/. Only the standard library is used: shapes are drawn
from signed distances with one pixel of anti-aliasing, and PNGs are written
with zlib. Pixels outside a window's outline are magenta (255, 0, 255),
which the frame cuts away.
"""
import math
import os
import struct
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "default.ar", "graphics")

MAGENTA = (255, 0, 255, 255)


class Canvas:
    def __init__(self, w, h, fill=(0, 0, 0, 0)):
        self.w, self.h = w, h
        self.px = [list(fill) for _ in range(w * h)]

    def blend(self, x, y, rgba, coverage=1.0):
        if not (0 <= x < self.w and 0 <= y < self.h) or coverage <= 0:
            return
        r, g, b, a = rgba
        a = a / 255.0 * min(coverage, 1.0)
        dst = self.px[y * self.w + x]
        da = dst[3] / 255.0
        oa = a + da * (1 - a)
        if oa <= 0:
            return
        for i, c in enumerate((r, g, b)):
            dst[i] = (c * a + dst[i] * da * (1 - a)) / oa
        dst[3] = oa * 255

    def shape(self, distance, colour):
        """Fills where distance(x, y) < 0, anti-aliased over one pixel.
        `colour` is an RGBA tuple or a function of (x, y) giving one."""
        for y in range(self.h):
            for x in range(self.w):
                d = distance(x + 0.5, y + 0.5)
                cov = 0.5 - d
                if cov > 0:
                    c = colour(x, y) if callable(colour) else colour
                    self.blend(x, y, c, cov)

    def save(self, name, magenta_outside=False):
        rows = []
        for y in range(self.h):
            row = bytearray([0])
            for x in range(self.w):
                r, g, b, a = self.px[y * self.w + x]
                if magenta_outside:
                    # The window shape is cut by the magenta colour; keep an
                    # opaque outline so the cut edge is crisp.
                    if a < 128:
                        r, g, b, a = MAGENTA
                    else:
                        r, g, b = (c * a / 255 + 0 * (1 - a / 255) for c in (r, g, b))
                        a = 255
                row += bytes((clamp(r), clamp(g), clamp(b), clamp(a)))
            rows.append(bytes(row))
        raw = zlib.compress(b"".join(rows), 9)

        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

        png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", self.w, self.h, 8, 6, 0, 0, 0))
        png += chunk(b"IDAT", raw) + chunk(b"IEND", b"")
        with open(os.path.join(OUT, name), "wb") as f:
            f.write(png)


def clamp(v):
    return max(0, min(255, int(round(v))))


def rounded_rect(x0, y0, x1, y1, r):
    def d(x, y):
        cx = min(max(x, x0 + r), x1 - r)
        cy = min(max(y, y0 + r), y1 - r)
        inside_x = x0 + r <= x <= x1 - r
        inside_y = y0 + r <= y <= y1 - r
        if inside_x or inside_y:
            return max(x0 - x, x - x1, y0 - y, y - y1)
        return math.hypot(x - cx, y - cy) - r
    return d


def circle(cx, cy, r):
    return lambda x, y: math.hypot(x - cx, y - cy) - r


def segment(ax, ay, bx, by, half_width):
    def d(x, y):
        vx, vy = bx - ax, by - ay
        t = max(0.0, min(1.0, ((x - ax) * vx + (y - ay) * vy) / (vx * vx + vy * vy)))
        return math.hypot(x - (ax + t * vx), y - (ay + t * vy)) - half_width
    return d


def ring(inner, outer):
    return lambda x, y: max(outer(x, y), -inner(x, y))


def vgradient(top, bottom, y0, y1):
    def c(x, y):
        t = max(0.0, min(1.0, (y - y0) / max(1, y1 - y0)))
        return tuple(a + (b - a) * t for a, b in zip(top, bottom))
    return c


# Palette: deep blue body, teal accent, white text areas.
NAVY_TOP = (22, 48, 86, 255)
NAVY_BOTTOM = (10, 22, 44, 255)
ACCENT = (0, 168, 170, 255)
ACCENT_DARK = (0, 120, 124, 255)


def window_background(w=380, h=540):
    c = Canvas(w, h)
    body = rounded_rect(0, 0, w, h, 18)
    c.shape(body, vgradient(NAVY_TOP, NAVY_BOTTOM, 0, h))
    # Header band with a soft accent glow.
    c.shape(lambda x, y: max(body(x, y), y - 64), vgradient((30, 70, 120, 255), (24, 56, 100, 255), 0, 64))
    c.shape(lambda x, y: max(body(x, y), abs(y - 64.5) - 0.8), (0, 190, 190, 200))
    # Signal-strength bars, the product's mark, in the header.
    for i in range(4):
        bh = 8 + i * 6
        c.shape(rounded_rect(20 + i * 9, 44 - bh, 26 + i * 9, 44, 1.5), (120, 230, 230, 255))
    # Navigation bar band under the header.
    c.shape(lambda x, y: max(body(x, y), abs(y - 92.5) - 20), (255, 255, 255, 10))
    c.shape(lambda x, y: max(body(x, y), abs(y - 113.5) - 0.5), (255, 255, 255, 30))
    # Outline.
    c.shape(ring(rounded_rect(1, 1, w - 1, h - 1, 17), body), (70, 110, 160, 255))
    c.save("background.png", magenta_outside=True)


def title_button(name, glyph, state):
    s = 22
    c = Canvas(s, s)
    fills = {"normal": (255, 255, 255, 30), "over": (255, 255, 255, 70), "pressed": (0, 0, 0, 60)}
    c.shape(circle(s / 2, s / 2, s / 2 - 1), fills[state])
    colour = (235, 245, 255, 255) if state != "pressed" else (200, 215, 230, 255)
    if glyph == "close":
        c.shape(segment(7, 7, 15, 15, 1.1), colour)
        c.shape(segment(15, 7, 7, 15, 1.1), colour)
    else:
        c.shape(segment(7, 11.5, 15, 11.5, 1.1), colour)
    c.save(f"{name}_{state}.png")


def button(state, w=150, h=40):
    c = Canvas(w, h)
    outline = rounded_rect(0.5, 0.5, w - 0.5, h - 0.5, 9)
    faces = {
        "normal": ((0, 178, 180, 255), ACCENT_DARK),
        "over": ((40, 205, 205, 255), (0, 145, 150, 255)),
        "pressed": (ACCENT_DARK, (0, 150, 152, 255)),
        "disabled": ((92, 104, 120, 255), (72, 82, 96, 255)),
        "selected": ((255, 176, 46, 255), (224, 132, 0, 255)),
    }
    top, bottom = faces[state]
    c.shape(outline, vgradient(top, bottom, 0, h))
    if state != "pressed":
        # A thin highlight along the top edge.
        c.shape(lambda x, y: max(outline(x, y), y - h * 0.45), (255, 255, 255, 36))
    c.shape(ring(rounded_rect(1.5, 1.5, w - 1.5, h - 1.5, 8), outline), (0, 0, 0, 60))
    c.save(f"button_{state}.png")


def edit_box(w=200, h=32):
    c = Canvas(w, h)
    outline = rounded_rect(0.5, 0.5, w - 0.5, h - 0.5, 6)
    c.shape(outline, (250, 252, 255, 255))
    c.shape(ring(rounded_rect(1.5, 1.5, w - 1.5, h - 1.5, 5), outline), (120, 150, 190, 255))
    c.save("edit.png")


def signal_strip(bars=4, w=40, h=24):
    """One frame per signal level, 0 to 4 lit bars, side by side."""
    c = Canvas(w * (bars + 1), h)
    for level in range(bars + 1):
        for b in range(bars):
            x0 = level * w + 4 + b * 9
            top = h - 4 - (b + 1) * 4.5
            lit = b < level
            c.shape(rounded_rect(x0 + 0.5, top, x0 + 6.5, h - 2.5, 1.5),
                    (120, 230, 220, 255) if lit else (255, 255, 255, 50))
    c.save("signal.png")


def spinner_strip(frames=8, size=24):
    """Eight dots on a ring; the bright one moves a step each frame."""
    c = Canvas(size * frames, size)
    for f in range(frames):
        for d in range(frames):
            angle = 2 * math.pi * d / frames
            cx = f * size + size / 2 + 8 * math.sin(angle)
            cy = size / 2 - 8 * math.cos(angle)
            age = (f - d) % frames
            c.shape(circle(cx, cy, 2.4), (255, 255, 255, max(40, 255 - age * 36)))
    c.save("spinner.png")


def card(size=40):
    """A translucent card, drawn nine-slice behind a group of controls."""
    c = Canvas(size, size)
    outline = rounded_rect(0.5, 0.5, size - 0.5, size - 0.5, 12)
    c.shape(outline, (255, 255, 255, 22))
    c.shape(ring(rounded_rect(1.5, 1.5, size - 1.5, size - 1.5, 11), outline), (255, 255, 255, 40))
    c.save("card.png")


def usage_bar(w=40, h=14):
    """The track and the fill of the data-usage bar, both nine-slice."""
    track = Canvas(w, h)
    track.shape(rounded_rect(0.5, 0.5, w - 0.5, h - 0.5, 6), (255, 255, 255, 40))
    track.save("bar_track.png")
    fill = Canvas(w, h)
    fill.shape(rounded_rect(0.5, 0.5, w - 0.5, h - 0.5, 6), vgradient((40, 205, 205, 255), ACCENT_DARK, 0, h))
    fill.save("bar_fill.png")


def plugin_icon(name, size=32):
    """The icons the two plug-ins describe themselves with."""
    c = Canvas(size, size)
    c.shape(rounded_rect(0.5, 0.5, size - 0.5, size - 0.5, 8), ACCENT_DARK)
    white = (255, 255, 255, 255)
    if name == "home":
        for i in range(4):
            bh = 5 + i * 5
            c.shape(rounded_rect(6 + i * 6, 26 - bh, 10 + i * 6, 26, 1.2), white)
    else:
        c.shape(ring(circle(16, 16, 7), circle(16, 16, 10)), white)
        c.shape(segment(16, 16, 16, 9, 1.4), white)
    c.save(f"icon_{name}.png")


def arrow_button(name, up, size=32):
    c = Canvas(size, size)
    c.shape(rounded_rect(0.5, 0.5, size - 0.5, size - 0.5, 7), ACCENT_DARK)
    m = size / 2
    tip, base = (m - 5, m + 4) if up else (m + 5, m - 4)
    if name.startswith("month"):
        # Months step sideways: the chevron points left or right.
        c.shape(segment(base, m - 7, tip, m, 1.6), (255, 255, 255, 255))
        c.shape(segment(tip, m, base, m + 7, 1.6), (255, 255, 255, 255))
    else:
        c.shape(segment(m - 7, base, m, tip, 1.6), (255, 255, 255, 255))
        c.shape(segment(m, tip, m + 7, base, 1.6), (255, 255, 255, 255))
    c.save(f"{name}.png")


def settings_images(size=40):
    """The settings rows (nine-slice, one per state), the chevron of rows
    with a page behind them, and the settings plug-in's icon."""
    faces = {
        "normal": (255, 255, 255, 14),
        "over": (40, 205, 205, 70),
        "pressed": (0, 150, 152, 130),
    }
    for state, face in faces.items():
        c = Canvas(size, size)
        outline = rounded_rect(0.5, 2.5, size - 0.5, size - 2.5, 8)
        c.shape(outline, face)
        c.shape(ring(rounded_rect(1.5, 3.5, size - 1.5, size - 3.5, 7), outline), (255, 255, 255, 30))
        c.save(f"row_{state}.png")
    chevron = Canvas(12, 16)
    chevron.shape(segment(3, 2, 9, 8, 1.5), (200, 220, 240, 255))
    chevron.shape(segment(9, 8, 3, 14, 1.5), (200, 220, 240, 255))
    chevron.save("next_indicator.png")
    icon = Canvas(32, 32)
    icon.shape(rounded_rect(0.5, 0.5, 31.5, 31.5, 8), ACCENT_DARK)
    white = (255, 255, 255, 255)
    for i in range(8):
        angle = 2 * math.pi * i / 8
        cx, cy = 16 + 8.5 * math.cos(angle), 16 + 8.5 * math.sin(angle)
        icon.shape(circle(cx, cy, 2.6), white)
    icon.shape(ring(circle(16, 16, 3.5), circle(16, 16, 8)), white)
    icon.save("icon_settings.png")


def history_images(size=32):
    """The history plug-in's icon: a list of sessions, a dot and a line each."""
    icon = Canvas(size, size)
    icon.shape(rounded_rect(0.5, 0.5, size - 0.5, size - 0.5, 8), ACCENT_DARK)
    white = (255, 255, 255, 255)
    for y in (10, 16, 22):
        icon.shape(circle(9, y, 1.8), white)
        icon.shape(rounded_rect(13, y - 1.3, 25, y + 1.3, 1.3), white)
    icon.save("icon_history.png")
def polygon(points):
    """Signed distance to a convex polygon given clockwise on screen."""
    edges = list(zip(points, points[1:] + points[:1]))

    def d(x, y):
        outside = -1e9
        for (ax, ay), (bx, by) in edges:
            nx, ny = by - ay, ax - bx
            n = math.hypot(nx, ny)
            outside = max(outside, ((x - ax) * nx + (y - ay) * ny) / n)
        return -outside
    return d


def connection_images():
    """The connection screens' pictures: a USB modem to plug in, and the
    warning sign of roaming and errors."""
    white = (255, 255, 255, 255)
    plug = Canvas(96, 96)
    plug.shape(rounded_rect(30.5, 30.5, 65.5, 88.5, 9), vgradient((235, 240, 248, 255), (170, 185, 205, 255), 30, 88))
    plug.shape(rounded_rect(36.5, 8.5, 59.5, 31.5, 3), (200, 208, 220, 255))
    for x in (41.5, 50.5):
        plug.shape(rounded_rect(x, 14.5, x + 4, 20.5, 1), NAVY_BOTTOM)
    plug.shape(circle(48, 62, 7), ACCENT)
    plug.shape(circle(48, 62, 3.5), white)
    for i, r in enumerate((14, 20)):
        plug.shape(ring(circle(48, 62, r - 1.6), circle(48, 62, r)),
                   lambda x, y, i=i: (0, 168, 170, 160 - 60 * i) if x > 62 else (0, 0, 0, 0))
    plug.save("plug.png")
    warning = Canvas(40, 40)
    warning.shape(polygon([(20, 3), (38, 36), (2, 36)]), (245, 170, 60, 255))
    warning.shape(segment(20, 14, 20, 25, 2.2), NAVY_BOTTOM)
    warning.shape(circle(20, 31, 2.3), NAVY_BOTTOM)
    warning.save("warning.png")


def main():
    os.makedirs(OUT, exist_ok=True)
    window_background()
    for state in ("normal", "over", "pressed"):
        title_button("close", "close", state)
        title_button("minimize", "minimize", state)
    for state in ("normal", "over", "pressed", "disabled", "selected"):
        button(state)
    edit_box()
    card()
    usage_bar()
    plugin_icon("home")
    plugin_icon("usage")
    signal_strip()
    spinner_strip()
    arrow_button("month_next", False)
    arrow_button("month_previous", True)
    arrow_button("spin_up", True)
    arrow_button("spin_down", False)
    settings_images()
    history_images()
    connection_images()


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Makes CDProperty.xml (the settings that stand in for a project's own) and img.bin (the mark of a picture inside a text)."""

import math
import pathlib
import struct
import zlib

TARGET = pathlib.Path(__file__).resolve().parent.parent.parent / "Resources"

SETTINGS = (("aNumber", "2"), ("bNumber", "2"), ("cNumber", "2"), ("Olgoo", "1"), ("Music", "1"), ("Print", "0"))

ICON_WIDTH, ICON_HEIGHT = 24, 18
FINE = 4  # each pixel is the mean of FINE * FINE points
TWIPS_PER_PIXEL = 15


def settings_file():
    lines = ["<strings>", *(f"\t<{tag}>{value}</{tag}>" for tag, value in SETTINGS), "</strings>"]
    return b"\xff\xfe" + "\r\n".join(lines).encode("utf-16-le")


def icon_colour(x, y):
    """The colour at a point of the icon: a framed picture of a sun over two mountains."""
    if not (1 <= x <= ICON_WIDTH - 1 and 1 <= y <= ICON_HEIGHT - 1):
        return 92, 74, 58
    if not (2 <= x <= ICON_WIDTH - 2 and 2 <= y <= ICON_HEIGHT - 2):
        return 250, 246, 236
    if math.dist((x, y), (18.2, 5.2)) < 2.2:
        return 244, 176, 50
    near, far = 16.0 - 1.25 * (8.2 - abs(x - 8.5)), 16.0 - 1.0 * (7.2 - abs(x - 17))
    peak = 16.0 - 1.25 * 8.2
    if y > near:
        return (255, 255, 255) if y < peak + 2.9 + .7 * math.sin(x * 3) else (52, 110, 92)
    if y > far:
        return 96, 150, 124
    shade = (y - 2) / 14
    return round(126 + 90 * shade), round(186 + 40 * shade), round(226 + 14 * shade)


def icon_pixel(column, row):
    samples = [icon_colour(column + (i + .5) / FINE, row + (j + .5) / FINE) for i in range(FINE) for j in range(FINE)]
    return bytes(round(sum(sample[k] for sample in samples) / len(samples)) for k in range(3))


def png(width, height, pixel):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + b"".join(pixel(column, row) for column in range(width)) for row in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def image_mark():
    """A fragment whose only content is one picture: no paragraph end, no blank beside it, no line end after it."""
    width, height = ICON_WIDTH * TWIPS_PER_PIXEL, ICON_HEIGHT * TWIPS_PER_PIXEL
    digits = png(ICON_WIDTH, ICON_HEIGHT, icon_pixel).hex()
    # The natural size of a picture is given in hundredths of a millimetre, 2540 to the inch of 1440 twips.
    # The paragraph that the picture becomes begins on the right, as those around it do.
    return (f"{{\\rtf1\\ansi\\ansicpg1256\\deff0{{\\fonttbl{{\\f0\\fnil\\fcharset178 Tahoma;}}}}\\pard\\rtlpar\\qr"
            f"{{\\pict\\pngblip\\picw{round(width * 2540 / 1440)}\\pich{round(height * 2540 / 1440)}"
            f"\\picwgoal{width}\\pichgoal{height} {digits}}}}}").encode("ascii")


def main():
    TARGET.mkdir(exist_ok=True)
    for name, data in (("CDProperty.xml", settings_file()), ("img.bin", image_mark())):
        (TARGET / name).write_bytes(data)
        print(f"{name}: {len(data)} bytes")


if __name__ == "__main__":
    main()

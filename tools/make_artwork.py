#!/usr/bin/env python3
"""Draws the program's small pictures (tool bars, tree, strip, icon) into res/, at 1, 1.5, 2 and 3 times their size; the
editor's tools from the character grids below.

Run it after changing a grid and commit the pictures with it. Grey 192 is shown as the button face.
`make_artwork.py icons FOLDER` puts the icon there in the sizes that desktops look for.
"""
import math
import pathlib
import struct
import sys
import zlib

import artwork_manager
import artwork_scales
import handwriting

RES = pathlib.Path(__file__).resolve().parent.parent / "res"

COLORS = {
    ".": (192, 192, 192), "K": (40, 40, 48), "W": (255, 255, 255), "G": (128, 128, 128),
    "B": (52, 96, 176), "b": (150, 190, 240), "R": (208, 56, 56), "r": (240, 150, 150),
    "Y": (240, 196, 64), "N": (60, 150, 84), "P": (170, 84, 190), "O": (236, 140, 52),
}

NEW = """
............
.KKKKKK.....
.KWWWWKK....
.KWWWWKWK...
.KWWWWKKKK..
.KWWWWWWWK..
.KWbbbbbWK..
.KWWWWWWWK..
.KWbbbbWNN..
.KWWWWWWNN..
.KWbbbNNNNNN
.KWWWWNNNNNN
.KKKKKKKNN..
........NN..
"""
PAGE_COLOR = """
............
.KKKKKKKK...
.KbbbbbbK...
.KbbbbbbK...
.KbbbbbbK...
.KbbbbKKKKK.
.KbbbbKOOYK.
.KbbbbKOYYK.
.KbbbbKRPBK.
.KbbbbKRPBK.
.KbbbbKKKKK.
.KbbbbbbK...
.KKKKKKKK...
............
"""
SWATCH = "\n".join(["............"] * 14)
PALETTE = """
............
....KKKKK...
..KKWWWWWK..
.KWWRRWWBBK.
.KWWRRWWBBK.
KWWWWWWWWWWK
KWYYWWWWWNNK
KWYYWWWWWNNK
KWWWWKKKWWWK
.KWWK...KWWK
.KWWWK..KWK.
..KWPPKKKK..
...KPPWK....
....KKK.....
"""
SPACE = """
............
KKKKKKKKKKKK
............
.....BB.....
....BBBB....
...BBBBBB...
.....BB.....
.....BB.....
...BBBBBB...
....BBBB....
.....BB.....
............
KKKKKKKKKKKK
............
"""
ERASER = """
............
.......KKKK.
......KrrRRK
.....KrrRRRK
....KrrRRRK.
...KrrRRRK..
..KKrRRRK...
.KWWKRRK....
KWWWWKK.....
KWWWWK......
.KWWK.......
..KK........
KKKKKKKKKKKK
............
"""
ERASE_ALL = """
............
.KKKKKKKK...
.KWWWWWWK...
.KWbbbbWK...
.KWWWWWWK...
.KWbbbRWKR..
.KWWWWRRRR..
.KWbbbWRRK..
.KWWWWRRRR..
.KWbbbRWKR..
.KWWWWWWK...
.KWWWWWWK...
.KKKKKKKK...
............
"""
TOOLS = """
............
............
.KKKKKKKKKK.
.KWWWWWWWWK.
.KWKKKKKKWK.
.KWWWWWWWWK.
.KWKKKKKKWK.
.KWWWWWWWWK.
.KWKKKKWWWK.
.KWWWWWWWWK.
.KKKKKKKKKK.
.....KK.....
............
............
"""
EDITOR_TOOLS = [NEW, PAGE_COLOR, SWATCH, SWATCH, SWATCH, SWATCH, PALETTE, SPACE, ERASER, ERASE_ALL, TOOLS]


def bmp(width, height, pixel):
    """A 24-bit BMP; pixel(x, y) gives (red, green, blue)."""
    stride = (width * 3 + 3) // 4 * 4
    rows = bytearray()
    for y in reversed(range(height)):
        row = b"".join(bytes(reversed(pixel(x, y))) for x in range(width))
        rows += row + bytes(stride - len(row))
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(rows), 2835, 2835, 0, 0)
    return struct.pack("<2sIHHI", b"BM", 54 + len(rows), 0, 0, 54) + info + bytes(rows)


def editor_tools():
    grids = [[[COLORS[cell] for cell in row] for row in grid.strip("\n").split("\n")] for grid in EDITOR_TOOLS]
    assert all(len(grid) == 14 and all(len(row) == 12 for row in grid) for grid in grids)
    return grids


def cut(picture, width):
    """The pictures of this width that stand side by side in one."""
    return [[row[left:left + width] for row in picture.pixels] for left in range(0, picture.width, width)]


def write(name, pixels):
    (RES / f"{name}.bmp").write_bytes(bmp(len(pixels[0]), len(pixels), lambda x, y: pixels[y][x]))


def icon_pixel(u, v):
    """Colour and opacity at (u, v) in 0..1: a sheet with two ruled lines and a pen writing a curve."""
    # The pen: from its tip at lower left to its end at upper right.
    tip, end = (0.34, 0.80), (0.86, 0.16)
    dx, dy = end[0] - tip[0], end[1] - tip[1]
    length = math.hypot(dx, dy)
    along = ((u - tip[0]) * dx + (v - tip[1]) * dy) / length
    across = abs((u - tip[0]) * dy - (v - tip[1]) * dx) / length
    if 0 <= along <= length:
        if across < min(0.075, 0.012 + along * 0.40):
            if along < 0.05:
                return (30, 34, 48), 1
            if along < 0.17:
                return (240, 208, 150), 1
            return ((208, 64, 60) if along > length - 0.1 else (44, 92, 178)), 1
    if 0.10 <= u <= 0.82 and 0.06 <= v <= 0.94:
        edge = u < 0.125 or u > 0.795 or v < 0.085 or v > 0.915
        if edge:
            return (96, 104, 120), 1
        wave = 0.80 + 0.045 * math.sin((u - 0.16) * 34) * (1 if u < 0.36 else 0)
        if 0.16 < u < 0.36 and abs(v - wave) < 0.028:
            return (44, 92, 178), 1
        if abs(v - 0.24) < 0.016 or abs(v - 0.40) < 0.013 or abs(v - 0.56) < 0.013:
            return (176, 196, 224), 1
        return (255, 255, 252), 1
    return (0, 0, 0), 0


def icon_rows(size):
    """The icon's pixels, each (red, green, blue, opacity); 4 x 4 samples a pixel."""
    for y in range(size):
        row = []
        for x in range(size):
            samples = [icon_pixel((x + (i + 0.5) / 4) / size, (y + (j + 0.5) / 4) / size)
                       for i in range(4) for j in range(4)]
            opaque = [color for color, opacity in samples if opacity]
            count = max(1, len(opaque))
            row.append((*(sum(color[i] for color in opaque) // count for i in range(3)), 255 * len(opaque) // 16))
        yield row


def png(size):
    """The icon as a PNG file."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in icon_rows(size))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def icon_image(size):
    """One 32-bit icon image with its mask; the larger ones compressed, as the system wants them."""
    if size >= 64:
        return png(size)
    rows = b"".join(bytes((blue, green, red, opacity)) for row in reversed(list(icon_rows(size)))
                    for red, green, blue, opacity in row)
    mask = bytes(((size + 31) // 32 * 4) * size)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(rows) + len(mask), 0, 0, 0, 0)
    return header + rows + mask


def icon(sizes):
    images = [icon_image(size) for size in sizes]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, image in zip(sizes, images):
        side = size % 256  # 0 stands for 256
        directory += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return directory + b"".join(images)


def write_icons(folder):
    """The icon in the sizes that desktops look for, each in a folder of its own."""
    for size in (16, 22, 24, 32, 48, 64, 128, 256, 512):
        place = folder / f"{size}x{size}" / "apps"
        place.mkdir(parents=True, exist_ok=True)
        (place / "inkwright.png").write_bytes(png(size))


def main():
    face, mask = artwork_manager.FACE, artwork_manager.MASK
    strips = {"editor_tools": (editor_tools(), face), "manager_tools": (cut(artwork_manager.manager_tools(), 12), face),
              "tree_images": (cut(artwork_manager.tree_images(), 16), mask)}
    for tenths in (10, 15, 20, 30):
        end = "" if tenths == 10 else f"_{tenths}"
        for name, (grids, keep) in strips.items():
            write(name + end, artwork_scales.strip(grids, tenths, keep))
        for name in ("banner", "beginning", "note_mark"):
            write(name + end, getattr(artwork_manager, name)(handwriting, tenths / 10).pixels)
    (RES / "inkwright.ico").write_bytes(icon([16, 24, 32, 48, 64, 128, 256]))


if __name__ == "__main__":
    if sys.argv[1:2] == ["icons"]:
        write_icons(pathlib.Path(sys.argv[2]))
    else:
        main()

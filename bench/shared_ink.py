"""The same ink as a note and as a file of Xournal++, for measurements beside it."""
import gzip
import math
import random
import struct

WIDTH, VIEW, LINES, STROKES_OF_VIEW, POINTS = 480, 560, 10, 250, 40
COLORS = [0x808080, 0x4040FF, 0x206020, 0xFF4040, 0x000000]  # 0x00BBGGRR
HIGHEST = 32767  # rows that a cairo picture can have


def make_strokes(count):
    """Curved strokes in reading order: colour and points of each."""
    chance = random.Random(20070305)
    for i in range(count):
        top = i * LINES // STROKES_OF_VIEW * VIEW // LINES
        x, y = 20 + chance.random() * (WIDTH - 40), top + 20 + chance.random() * 20
        heading, turn, points = chance.random() * math.tau, 0.0, []
        while len(points) < POINTS:
            point = round(x), round(y)
            if not points or points[-1] != point:
                points.append(point)
            step = 1.5 + chance.random() * 4.5
            turn = turn * 0.9 + (chance.random() - 0.5) * 0.35
            heading += turn
            x = min(max(x + step * math.cos(heading), 2), WIDTH - 3)
            y = min(max(y + step * math.sin(heading), top + 2), top + 90)
            if x < 3 or x > WIDTH - 4 or y < top + 3 or y > top + 89:
                heading += 1.1
        yield chance.choice(COLORS), points


def write_note(path, strokes, view=VIEW):
    """Filed for a view of so many rows."""
    slots = {}
    for color, points in strokes:
        low, high = min(y for _, y in points), max(y for _, y in points)
        record = struct.pack("<6i", len(points), 0, color & 0xFFFF, color >> 16, low, high)
        record += b"".join(struct.pack("<2i", *point) for point in points)
        slots.setdefault(low // view + high // view, []).append(record)
    count = max(slots) + 1
    bands = b"".join(struct.pack("<I", len(slots.get(i, []))) + b"".join(slots.get(i, [])) for i in range(count))
    path.write_bytes(struct.pack("<IIii", 5, 0xFFFFFF, count, view) + bands)


def write_xopp(path, strokes, width, height):
    pages = -(-height // HIGHEST)
    rows = -(-height // pages)
    layers = [[] for _ in range(pages)]
    for color, points in strokes:
        page = min(y for _, y in points) // rows
        places = " ".join(f"{x + 0.5} {y + 0.5 - page * rows}" for x, y in points)
        hexed = f"#{color & 255:02x}{color >> 8 & 255:02x}{color >> 16:02x}ff"
        layers[page].append(f'<stroke tool="pen" color="{hexed}" width="1">{places}</stroke>\n')
    with gzip.open(path, "wt") as file:
        file.write('<?xml version="1.0" standalone="no"?>\n<xournal version="0.4.8" fileversion="4">\n<title>ink</title>\n')
        for layer in layers:
            file.write(f'<page width="{width}" height="{rows}">\n'
                       '<background type="solid" color="#ffffffff" style="plain"/>\n<layer>\n')
            file.writelines(layer)
            file.write("</layer>\n</page>\n")
        file.write("</xournal>\n")

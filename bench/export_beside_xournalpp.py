#!/usr/bin/env python3
"""Times inkwright-export beside Xournal++ (Debian's package) as whole processes: the same ink as PNG files of as many pixels.

Usage: bench/export_beside_xournalpp.py [--trial], after building inkwright-export with the preset "native".
Strokes go into a note and into Xournal++'s own file format (XML, gzip). Where the note's picture is higher than what
Xournal++ can draw it has as few pages as can be.
"""
import gzip
import math
import os
import pathlib
import random
import statistics
import struct
import subprocess
import sys
import tempfile
import time

TOP = pathlib.Path(__file__).resolve().parent.parent
EXPORT = TOP / "build/native/inkwright-export"
WIDTH, VIEW, LINES, STROKES_OF_VIEW, POINTS = 480, 560, 10, 250, 40
COLORS = [0x808080, 0x4040FF, 0x206020, 0xFF4040, 0x000000]  # 0x00BBGGRR
HIGHEST = 32767  # rows that a cairo picture can have
ROUNDS = 9


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


def write_note(path, strokes):
    slots = {}
    for color, points in strokes:
        low, high = min(y for _, y in points), max(y for _, y in points)
        record = struct.pack("<6i", len(points), 0, color & 0xFFFF, color >> 16, low, high)
        record += b"".join(struct.pack("<2i", *point) for point in points)
        slots.setdefault(low // VIEW + high // VIEW, []).append(record)
    count = max(slots) + 1
    bands = b"".join(struct.pack("<I", len(slots.get(i, []))) + b"".join(slots.get(i, [])) for i in range(count))
    path.write_bytes(struct.pack("<IIii", 5, 0xFFFFFF, count, VIEW) + bands)


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


def png_size(path):
    return struct.unpack(">2I", path.read_bytes()[16:24])


def run(command, environment):
    """Wall and processor seconds of a whole process."""
    begin = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{command[0]} failed")
    return time.monotonic() - begin, usage.ru_utime + usage.ru_stime


def compare(folder, count, rounds):
    strokes = list(make_strokes(count))
    note, xopp, ours, theirs = (folder / f"{count}{end}" for end in (".ikw", ".xopp", ".png", "-x.png"))
    write_note(note, strokes)
    environment = dict(os.environ, HOME=str(folder), LC_ALL="C.UTF-8")
    our_command = [EXPORT, note, "-o", ours, "--force"]
    run(our_command, environment)
    write_xopp(xopp, strokes, *png_size(ours))
    their_command = ["xournalpp", "--export-png-dpi=72", "-i", theirs, xopp]
    run(their_command, environment)
    pictures = list(folder.glob(f"{count}-x*.png"))
    pixels = [sum(math.prod(png_size(path)) for path in paths) for paths in ([ours], pictures)]
    figures = [(run(our_command, environment), run(their_command, environment)) for _ in range(rounds)]
    for name, which in (("wall", 0), ("processor", 1)):
        a, b = (statistics.median(pair[side][which] for pair in figures) for side in (0, 1))
        ratio = statistics.median(pair[1][which] / pair[0][which] for pair in figures)
        print(f"| {count} strokes, {name} time | {a * 1000:.1f} ms | {b * 1000:.1f} ms | {ratio:.1f} |")
    size = [sum(path.stat().st_size for path in paths) / 1e6 for paths in ([ours], pictures)]
    print(f"| {count} strokes, files of {pixels[0]} and {pixels[1]} pixels | {size[0]:.1f} MB | {size[1]:.1f} MB | |")


def main():
    is_trial = "--trial" in sys.argv
    print("| what | inkwright-export | Xournal++ | times faster |\n|---|---:|---:|---:|")
    with tempfile.TemporaryDirectory() as folder:
        for count in (500,) if is_trial else (2000, 20000):
            compare(pathlib.Path(folder), count, 1 if is_trial else ROUNDS)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Times the program's start to a shown page under Wine: on an empty note and on one of 20,000 strokes.

Usage: bench/start_under_wine.py, after ./test (which builds the program and the probe and makes the prefix).
"""
import os
import pathlib
import random
import sys
import time

TOP = pathlib.Path(__file__).resolve().parent.parent
os.environ.setdefault("INKWRIGHT_WINE_STATE", str(TOP / "build/native/wine"))
os.environ.setdefault("INKWRIGHT_WINDOWS_BUILD", str(TOP / "build/windows"))
sys.path.insert(0, str(TOP / "tests/wine"))
import case  # noqa: E402
import desk  # noqa: E402

ROUNDS = 7
HEIGHT = 588


def large_note():
    chance = random.Random(1)
    bands = []
    for view in range(80):
        strokes = []
        for _ in range(250):
            x, y = chance.randrange(20, 400), chance.randrange(20, HEIGHT - 80) + view * HEIGHT
            points = []
            for _ in range(40):
                x, y = x + chance.randrange(-4, 7), y + chance.randrange(-3, 4)
                points.append((x, max(view * HEIGHT, min(y, view * HEIGHT + HEIGHT - 1))))
            strokes.append((0x404040, points))
        bands += [strokes, []]
    return case.note_bytes(HEIGHT, bands[:-1])


def start_seconds(table, name):
    begin = time.monotonic()
    program = table.start(f"{desk.ROOT}\\{name}.ikw")
    frame = table.window(f"{name} - Inkwright")
    seconds = time.monotonic() - begin
    table.ask(f"post {frame['handle']} {desk.WM_CLOSE} 0 0")
    table.finish(program)
    return seconds


def main():
    table = desk.Desk()
    try:
        table.root.mkdir(parents=True)
        (table.root / "empty.ikw").write_bytes(case.note_bytes(HEIGHT, []))
        large = table.root / "large.ikw"
        large.write_bytes(large_note())
        times = {"empty": [], "large": []}
        for _ in range(ROUNDS):
            for name in times:
                times[name].append(start_seconds(table, name))
        begin = time.monotonic()
        large.read_bytes()
        read = time.monotonic() - begin
    finally:
        table.close()
    empty, full = min(times["empty"]), min(times["large"])
    print(f"| start on 20,000 strokes, beside an empty note and the bare read | {full / (empty + read):.2f} | <= 1.30 |"
          f" {full * 1000:.0f} ms against {(empty + read) * 1000:.0f} ms |")


if __name__ == "__main__":
    main()

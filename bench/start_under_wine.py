#!/usr/bin/env python3
"""Times the program's start to a shown page under Wine: on an empty note and on one of 20,000 strokes.

Usage: bench/start_under_wine.py, after ./test (which builds the program and the probe and makes the prefix).
"""
import os
import pathlib
import sys
import time

TOP = pathlib.Path(__file__).resolve().parent.parent
os.environ.setdefault("INKWRIGHT_WINE_STATE", str(TOP / "build/native/wine"))
os.environ.setdefault("INKWRIGHT_WINDOWS_BUILD", str(TOP / "build/windows"))
sys.path += [str(TOP / "tests/wine"), str(TOP / "tests/support")]
import desk  # noqa: E402
from shared_ink import make_strokes, write_note  # noqa: E402

ROUNDS = 7
HEIGHT = 588


def start_seconds(table, name):
    begin = time.monotonic()
    program = table.open(f"{desk.ROOT}\\{name}.ikw")
    frame = table.window(f"{name} - Inkwright")
    seconds = time.monotonic() - begin
    table.close(program, frame["text"])
    return seconds


def main():
    table = desk.Case()
    table.setUp()
    try:
        table.root.mkdir(parents=True)
        (table.root / "empty.ikw").write_bytes(desk.note_bytes(HEIGHT, []))
        large = table.root / "large.ikw"
        write_note(large, make_strokes(20000), HEIGHT)
        times = {"empty": [], "large": []}
        for _ in range(ROUNDS):
            for name in times:
                times[name].append(start_seconds(table, name))
        begin = time.monotonic()
        large.read_bytes()
        read = time.monotonic() - begin
    finally:
        table.doCleanups()
    empty, full = min(times["empty"]), min(times["large"])
    print(f"| start on 20,000 strokes, beside an empty note and the bare read | {full / (empty + read):.2f} | <= 1.30 |"
          f" {full * 1000:.0f} ms against {(empty + read) * 1000:.0f} ms |")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Times inkwright-export beside Xournal++ (Debian's package) as whole processes: the same ink as PNG files of as many pixels.

Usage: bench/export_beside_xournalpp.py [--trial], after building inkwright-export with the preset "native".
Strokes go into a note and into Xournal++'s own file format (XML, gzip). Where the note's picture is higher than what
Xournal++ can draw it has as few pages as can be.
"""
import math
import os
import pathlib
import statistics
import struct
import subprocess
import sys
import tempfile
import time

from shared_ink import make_strokes, write_note, write_xopp

TOP = pathlib.Path(__file__).resolve().parent.parent
EXPORT = TOP / "build/native/inkwright-export"
ROUNDS = 9


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

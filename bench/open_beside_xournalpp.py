#!/usr/bin/env python3
"""Times opening the same ink in the native program and in Xournal++ (Debian's package): from the start of the process to
the last change of the screen, which then stays as it is.

Usage: bench/open_beside_xournalpp.py, after building the program with the preset "linux"; needs Xvfb, whose picture is
read from the file that it keeps it in. Both have caches warm, a home and settings of their own, and one run before.
"""
import mmap
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time
import zlib

from shared_ink import make_strokes, write_note, write_xopp

TOP = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = TOP / "build/linux/inkwright"
WIDTH, HEIGHT = 480, 560
QUIET = 1.5  # seconds without a change
ROUNDS = 9


class Screen:
    """A virtual display, and what it shows."""

    def __init__(self, folder):
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1000x800x24", "-fbdir", folder,
                                        "-nolisten", "tcp"], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        with open(folder / "Xvfb_screen0", "rb") as file:
            self.picture = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)

    def mark(self):
        return zlib.adler32(self.picture)

    def close(self):
        self.server.terminate()
        self.server.wait()


def opened(screen, command, environment):
    """Seconds until the screen's last change, and processor seconds until then and a little after."""
    empty = mark = screen.mark()
    begin = last = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    while mark == empty or time.monotonic() - last < QUIET:
        now = screen.mark()
        if now != mark:
            mark, last = now, time.monotonic()
        if process.poll() is not None or time.monotonic() - begin > 60:
            sys.exit(f"{command[0]} shows nothing")
        time.sleep(0.001)
    process.kill()
    _, _, usage = os.wait4(process.pid, 0)
    process.returncode = -9
    while screen.mark() != empty:
        time.sleep(0.01)
    return last - begin, usage.ru_utime + usage.ru_stime


def compare(screen, folder, count):
    strokes = list(make_strokes(count))
    height = 10 + max(y for _, points in strokes for _, y in points)
    note, xopp = folder / "My Documents" / f"{count}.ikw", folder / f"{count}.xopp"
    note.parent.mkdir(exist_ok=True)
    write_note(note, strokes)
    write_xopp(xopp, strokes, WIDTH + 12, height)
    environment = dict(os.environ, HOME=str(folder), DISPLAY=screen.name, INKWRIGHT_DEVICE=str(folder), LC_ALL="C.UTF-8",
                       XDG_CONFIG_HOME=str(folder / "config"), XDG_DATA_HOME=str(folder / "data"),
                       XDG_RUNTIME_DIR=str(folder), GTK_A11Y="none", NO_AT_BRIDGE="1")
    sides = ([PROGRAM, f"\\My Documents\\{count}.ikw"], ["xournalpp", xopp])
    for command in sides:
        opened(screen, command, environment)
    figures = [[opened(screen, command, environment) for command in sides] for _ in range(ROUNDS)]
    for name, which in (("until it is shown", 0), ("processor time", 1)):
        ours, theirs = ([pair[side][which] for pair in figures] for side in (0, 1))
        ratio = statistics.median(b / a for a, b in zip(ours, theirs))
        print(f"| {count} strokes, {name} | {statistics.median(ours) * 1000:.0f} ms | "
              f"{statistics.median(theirs) * 1000:.0f} ms | {ratio:.1f} |", flush=True)


def main():
    print("| what | Inkwright | Xournal++ | times faster |\n|---|---:|---:|---:|")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        folder.chmod(0o700)
        screen = Screen(folder)
        try:
            for count in (2000, 20000):
                compare(screen, folder, count)
        finally:
            screen.close()


if __name__ == "__main__":
    main()

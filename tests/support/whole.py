"""What the tests of the real program share, whichever system it is made for: a display, a hand on the pointer and the
keyboard, a device of its own for each test. Nothing here sleeps for a guessed time: everything waits for what it needs,
with a deadline."""
import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import time
import unittest

DEADLINE_SECONDS = 20
ROOT = "\\My Documents\\Inkwright"
WHITE, GREY = 0xFFFFFF, 0x808080
DISPLAY_SIZE = "1024x768x24"


def wait_for(what, condition):
    """Polls until the condition gives something true, and returns that."""
    end = time.monotonic() + DEADLINE_SECONDS
    while not (result := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"waited {DEADLINE_SECONDS} s in vain for {what}")
        time.sleep(0.01)
    return result


def note_bytes(height, strokes=()):
    """A note file of grey strokes in one band, each the page positions of its points."""
    data = struct.pack("<IIii", 5, WHITE, 1 if strokes else 0, height)
    if strokes:
        data += struct.pack("<I", len(strokes))
    for points in strokes:
        rows = [y for _, y in points]
        data += struct.pack("<6i", len(points), 0, GREY & 0xFFFF, GREY >> 16, min(rows), max(rows))
        data += b"".join(struct.pack("<2i", *point) for point in points)
    return data


def start_display(*options):
    """A virtual screen on a free number: its process and that number."""
    reader, writer = os.pipe()
    display = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", DISPLAY_SIZE, *options],
                               pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as number:
        return display, ":" + number.readline().strip()


class Case(unittest.TestCase):
    """An empty device for each test; `self.environment` is what the programs get."""

    def setUp(self):
        self.device = pathlib.Path(tempfile.mkdtemp(prefix="inkwright-device-"))
        self.addCleanup(shutil.rmtree, self.device, ignore_errors=True)
        self.root = self.device / "My Documents" / "Inkwright"

    def put_note(self, name, data=note_bytes(588)):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        return path

    def finish(self, program):
        """Waits for the program's own end and returns its exit code."""
        return program.wait(DEADLINE_SECONDS)

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True, timeout=DEADLINE_SECONDS)

    def keys(self, *names):
        for name in names:
            self.xdotool("key", name)

"""What the tests of the real program share."""
import pathlib
import struct
import sys
import unittest

import desk

WHITE = 0xFFFFFF
GREY = 0x808080


def note_bytes(height, bands, background=WHITE):
    """A note file: for each band its strokes, each a colour and the page positions of its points."""
    data = bytearray(struct.pack("<IIii", 5, background, len(bands), height))
    for strokes in bands:
        data += struct.pack("<I", len(strokes))
        for color, points in strokes:
            rows = [y for _, y in points]
            data += struct.pack("<6i", len(points), 0, color & 0xFFFF, color >> 16, min(rows), max(rows))
            for point in points:
                data += struct.pack("<2i", *point)
    return bytes(data)


class Case(unittest.TestCase):
    """One desk for each test: an empty device and empty settings."""

    def setUp(self):
        self.desk = desk.Desk()
        self.addCleanup(self.desk.close)
        self.notes = self.desk.root / "New Notes"

    def put_note(self, name, data=None):
        path = self.desk.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(note_bytes(588, []) if data is None else data)
        return path

    def open(self, arguments, title, **environment):
        program = self.desk.start(arguments, **environment)
        frame = self.desk.window(title)
        return program, frame, self.desk.page(frame)

    def close(self, program, frame):
        self.desk.ask(f"post {frame['handle']} {desk.WM_CLOSE} 0 0")
        self.assertEqual(self.desk.finish(program), 0)


def main():
    needed = [desk.PROGRAMS / name for name in ("inkwright.exe", "wine_probe.exe", "contract_test.exe")]
    missing = [str(path) for path in needed if not pathlib.Path(path).exists()]
    if missing:
        print("Skipped: not built:", *missing)
        sys.exit(77)
    unittest.main(module="__main__", verbosity=2)

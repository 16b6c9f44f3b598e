"""The real inkwright-export: its pictures as others read them, its errors, its exit codes, and what it leaves behind."""
import os
import pathlib
import pty
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree
import zlib

PROGRAM = os.environ["INKWRIGHT_EXPORT"]
FIXTURES = pathlib.Path(__file__).resolve().parent.parent / "fixtures"
SVG = "{http://www.w3.org/2000/svg}"
PAPER = 0xF0E0D0  # 0x00BBGGRR


def note_bytes(strokes, height=300):
    """Each stroke: colour and points. All lie in the first band, where nobody looks for those that are far below."""
    data = struct.pack("<IIii", 5, PAPER, 1, height) + struct.pack("<I", len(strokes))
    for color, points in strokes:
        rows = [y for _, y in points]
        data += struct.pack("<6i", len(points), 0, color & 0xFFFF, color >> 16, min(rows), max(rows))
        data += b"".join(struct.pack("<2i", *point) for point in points)
    return data


LINES = [(0x0000FF, [(10, 60), (40, 80), (30, 90)]), (0xFF0000, [(600, 100)]), (0x00FF00, [(20, 1990), (90, 2010)])]


class Export(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="inkwright-export-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.note = self.put("note.ikw", note_bytes(LINES))

    def put(self, name, data):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(data)
        return path

    def run_program(self, *arguments, code=0, limit=()):
        run = subprocess.run([*limit, PROGRAM, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL, capture_output=True,
                             timeout=60, text=True, env={"LC_ALL": "C"}, check=False)
        self.assertEqual(run.returncode, code, f"{arguments}: {run.stderr}")
        self.assertEqual(run.stderr == "", code == 0, run.stderr)
        return run.stderr or run.stdout

    def names(self):
        return sorted(path.name for path in self.folder.rglob("*"))

    def png_size(self, name):
        data = (self.folder / name).read_bytes()
        self.assertEqual(data[:8] + data[-8:-4], b"\x89PNG\r\n\x1a\nIEND")
        return struct.unpack(">2I", data[16:24])

    def sheets(self, name):
        """What is drawn on each sheet of a PDF file, whose own table says where it lies."""
        data = (self.folder / name).read_bytes()
        table = int(re.search(rb"startxref\n(\d+)\n%%EOF\n$", data)[1])
        self.assertTrue(data[table:].startswith(b"xref\n0 "))
        places = [int(place) for place in re.findall(rb"(\d{10}) 00000 n \n", data[table:])]
        for number, place in enumerate(places, 1):
            self.assertTrue(data[place:].startswith(b"%d 0 obj\n" % number))
        sheets = []
        for number in re.findall(rb"(\d+) 0 R", re.search(rb"/Kids\[(.*?)\]", data)[1]):
            sheet = data[places[int(number) - 1]:]
            content = data[places[int(re.search(rb"/Contents (\d+) 0 R", sheet)[1]) - 1]:]
            length = int(re.search(rb"/Length (\d+)", content)[1])
            start = content.index(b"stream\n") + 7
            sheets.append(zlib.decompress(content[start:start + length]).decode())
        return sheets, [float(side) for side in re.search(rb"/MediaBox\[0 0 (\S+) (\S+)\]", data).groups()]

    def test_wrong_use(self):
        for arguments, word in (([], "no note"), (["--colour", "x"], "--colour"), (["note.ikw", "-o"], "-o needs"),
                                (["note.ikw", "--format", "gif"], "png, svg or pdf"), (["--scale=0.2", "x"], "0.25 to 5"),
                                (["--scale", "2x", "x"], "2x"), (["--scale", "nan", "x"], "nan"), (["--size=26", "x"], "25.5"),
                                (["--style", "bold", "x"], "smooth"), (["--paper", "b5", "x"], "letter"), (["-o", "", "x"], "folder"),
                                (["-o", "note.IKW", "note.ikw", "--force"], "named like a note"), (["--thumbnail", "8", "x"], "16"), (["--thumbnail=64", "--format=pdf", "x"], "PNG"),
                                (["a.ikw", "b.ikw", "-o", "c.png"], "need a folder")):
            self.assertIn(word, self.run_program(*arguments, code=2))
        self.assertIn("Usage", self.run_program("--help", "--format", "png"))
        self.assertRegex(self.run_program("--version"), r"^inkwright-export \d")
        self.assertEqual(self.names(), ["note.ikw"])

    def test_formats_names_and_sizes(self):
        """Ink up to column 600 and row 2010, and a margin of 14."""
        for arguments, name, size in (([], "note.png", (615, 2025)), (["-o", "a.PNG", "--scale", "2"], "a.PNG", (1230, 4050)),
                                      (["--scale=0.25", "-o", "q.x"], "q.x", (154, 507)), (["-o", "."], None, None),
                                      (["--thumbnail", "128", "-o", "t.png"], "t.png", (128, 128)),
                                      (["--thumbnail", "100", "-o", "t.png"], "t.png", (100, 100))):
            if name is not None:
                self.run_program("note.ikw", *arguments)
                self.assertLessEqual(max(a - b for a, b in zip(self.png_size(name), size)), 0)
                self.assertGreaterEqual(min(a - b for a, b in zip(self.png_size(name), size)), -2)
        self.put("-- odd.name/x.y", note_bytes([]))
        self.run_program("--", "-- odd.name/x.y")
        self.assertEqual(self.png_size("-- odd.name/x.png"), (240, 45))

    def test_svg_has_every_stroke(self):
        self.run_program("note.ikw", "-o", "a.svg", "--size", "2.5", "--scale", "1.5")
        picture = xml.etree.ElementTree.parse(self.folder / "a.svg").getroot()
        self.assertEqual([picture.get(name) for name in ("width", "height", "viewBox")], ["924", "3039", "0 0 616 2026"])
        self.assertEqual(picture.find(f"{SVG}rect").get("fill"), "#d0e0f0")
        ink = picture.find(f"{SVG}g")
        self.assertEqual([ink.get(f"stroke-{name}") for name in ("width", "linecap", "linejoin")], ["2.5", "round", "round"])
        self.assertEqual([(path.get("stroke"), path.get("d")) for path in ink],
                         [("#00ff00", "M20 1990l70 20"), ("#ff0000", "M10 60l30 20-10 10"), ("#0000ff", "M600 100l0 0")])

    def test_pdf_has_every_stroke_once_on_its_sheet(self):
        self.run_program("note.ikw", "--format=pdf", "--style=classic", "--paper", "A5")
        sheets, paper = self.sheets("note.pdf")
        self.assertEqual(paper, [419.528, 595.276])
        # The rim of each stroke and its core over it.
        drawn = [re.findall(r"^(\d+ \d+) m\n((?:\S+ \S+ l\n)*)S$", sheet, re.M) for sheet in sheets]
        self.assertEqual(drawn, [[("10 60", "40 80 l\n30 90 l\n")] * 2 + [("600 100", "600 100 l\n")] * 2,
                                 [("20 1990", "90 2010 l\n")] * 2])
        self.assertIn("1 0 0 RG\n1 w\n10 60 m", sheets[0])
        for sheet in sheets:
            self.assertTrue(sheet.startswith("0.816 0.878 0.941 rg 0 0 419.528 595.276 re f\n"))
            self.assertIn("1 J 1 j", sheet)
            # Too wide for the paper at its own size: made to fit between the margins.
            unit = float(re.search(r"^(\S+) 0 0 -\1 42.52 \S+ cm$", sheet, re.M)[1])
            self.assertAlmostEqual(unit * 616, 419.528 - 2 * 42.52, delta=0.01)

    def test_what_is_there_is_replaced_only_by_force(self):
        picture = self.put("note.png", b"mine")
        picture.chmod(0o640)
        link = self.folder / "link.png"
        link.symlink_to("note.png")
        self.assertIn("note.png: it is there already", self.run_program("note.ikw", code=1))
        self.assertEqual(picture.read_bytes(), b"mine")
        self.run_program("note.ikw", "-o", "link.png", "--force")
        self.png_size("note.png")
        self.assertEqual((picture.stat().st_mode & 0o777, link.is_symlink()), (0o640, True))
        self.assertEqual(self.names(), ["link.png", "note.ikw", "note.png"])

    def test_one_that_fails_stops_no_other_and_leaves_nothing(self):
        self.put("b/note.ikw", note_bytes([]))
        self.put("damaged.ikw", self.note.read_bytes()[:-1])
        out = self.folder / "out"
        out.mkdir()
        errors = self.run_program("none.ikw", "b", "damaged.ikw", "note.ikw", "b/note.ikw", "-o", "out", "--force", code=1)
        for line, words in zip(errors.splitlines(), ("none.ikw: No such file", "b: it is a folder", "damaged.ikw: it is damaged",
                                                     "b/note.ikw: out/note.png is the picture of note.ikw"), strict=True):
            self.assertTrue(line.startswith(f"inkwright-export: {words}"), line)
        self.assertEqual([path.name for path in out.iterdir()], ["note.png"])
        self.assertEqual(self.png_size("out/note.png"), (615, 2025))

    def test_failing_outputs(self):
        for ending in ("png", "svg", "pdf"):
            self.assertIn("/dev/full: No space left", self.run_program("note.ikw", "-o", "/dev/full", "--format", ending, code=1))
            self.assertIn("nowhere", self.run_program("note.ikw", "-o", "nowhere/", "--format", ending, code=1))
            # A file can't grow beyond a block of 512 bytes.
            self.put("old", b"old")
            limit = ["sh", "-c", 'trap "" XFSZ; ulimit -f 1; exec "$@"', "sh"]
            self.run_program("note.ikw", "-o", "old", "--force", "--format", ending, "--scale=5", code=1, limit=limit)
            self.assertEqual((self.folder / "old").read_bytes(), b"old")
        self.assertIn("/proc/note.png: No such file", self.run_program("note.ikw", "-o", "/proc", code=1))
        self.assertEqual(self.names(), ["note.ikw", "old"])

    def test_hostile_notes_are_refused_with_little_memory(self):
        far = 2**31 - 1
        cases = [(name, path.read_bytes()) for path in FIXTURES.glob("*.ikw") if (name := path.stem).startswith("damaged")]
        cases += [("wide", note_bytes([(0, [(far, 5)])])), ("tall", note_bytes([(0, [(5, far)])])),
                  ("long", note_bytes([(0, [(0, i % 2 * 900000) for i in range(5000)])])),
                  ("steep", note_bytes([(0, [(5, i * 10) for i in range(90000)])])),
                  ("large", note_bytes([(0, [(5, 900000), (999000, 5)])]))]
        # The sanitizers take terabytes of addresses.
        limit = [] if os.environ["INKWRIGHT_SANITIZED"] == "ON" else ["sh", "-c", 'ulimit -v 100000; exec "$@"', "sh"]
        for name, data in cases:
            self.put("hostile.ikw", data)
            self.assertIn("hostile.ikw: it", self.run_program("hostile.ikw", code=1, limit=limit), name)
        self.assertEqual(self.names(), ["hostile.ikw", "note.ikw"])
        # On every sheet again these would be gigabytes.
        self.put("hostile.ikw", note_bytes([(0, [(i % 99, i % 2 * 700000) for i in range(1400)])]))
        self.assertIn("too large", self.run_program("hostile.ikw", "--format=pdf", "--scale=5", code=1, limit=limit))

    def test_progress_is_shown_to_a_person(self):
        self.put("b.ikw", note_bytes([]))
        reader, writer = pty.openpty()
        self.addCleanup(os.close, reader)
        code = subprocess.run([PROGRAM, "note.ikw", "b.ikw"], cwd=self.folder, stderr=writer, check=False).returncode
        os.close(writer)
        self.assertEqual((code, os.read(reader, 1000)), (0, b"\r\x1b[K1 of 2: note.ikw\r\x1b[K2 of 2: b.ikw\r\x1b[K"))


if __name__ == "__main__":
    unittest.main(verbosity=2)

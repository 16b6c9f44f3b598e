"""The program killed while it writes, saves, moves and restores: what was written when the pen was lifted last comes
back at the next start, and a memo stays with its note. INKWRIGHT_KILLS says how often. For the desks of each system, whose
cases tell how a window in front is answered and closed."""
import os
import random
import shutil
import struct
import time

from whole import ROOT, note_bytes



def first_points(data):
    """Of the strokes of a note, which must be whole."""
    _, _, bands, _ = struct.unpack_from("<IIii", data)
    place, found = 16, []
    for _ in range(bands):
        (strokes,) = struct.unpack_from("<I", data, place)
        place += 4
        for _ in range(strokes):
            (points,) = struct.unpack_from("<i", data, place)
            found.append(struct.unpack_from("<2i", data, place + 24))
            place += 24 + 8 * points
    assert place == len(data), "a part of a note"
    return found


class Kills:
    """Beside a desk's case that has `front` (what identifies the window in front, and its title), `answer` (presses its
    default button), `begin_closing` and `begin_rename`."""
    kills = 20
    longest_save, longest_move = 0.4, 0.05  # seconds, after which all is done

    def setUp(self):
        super().setUp()
        self.kills = int(os.environ.get("INKWRIGHT_KILLS", self.kills))

    def kill(self, program, seconds):
        time.sleep(seconds)
        program.kill()
        self.finish(program)

    def restart(self, killed_after=None):
        """Answers every question by its default, and closes the manager."""
        program = self.open()
        while (front := self.front())[1] != "Inkwright":
            self.answer(front[0])
            if killed_after is not None:
                return self.kill(program, killed_after)
            self.wait_until_gone(front[0])
        self.close(program, "Inkwright")

    def strokes(self):
        self.assertEqual([], [p for p in self.root.rglob("*") if p.suffix not in (".ikw", ".txt", "") or "Temp" in p.parent.name])
        self.assertEqual([], [p for p in self.root.rglob("*.txt") if not p.with_suffix(".ikw").exists()])
        return sorted(point for path in self.root.rglob("*.ikw") for point in first_points(path.read_bytes()))

    def test_memos_stay_with_notes(self):
        dice = random.Random(6)
        for kill in range(self.kills // 5):
            shutil.rmtree(self.root, ignore_errors=True)
            self.put_note("Work/a.ikw", note_bytes(588, [[(10, 20), (30, 40)]]))
            self.put_note("Work/a.txt", b"tea")
            program = self.open("/manage", f"{ROOT}\\Work\\a.ikw")
            self.begin_rename(self.window("Inkwright"))
            self.keys("b", "Return")
            self.kill(program, dice.uniform(0, self.longest_move))
            self.restart()
            with self.subTest(kill=kill):
                self.assertEqual(self.strokes(), [(10, 20)])
                self.assertEqual([p.read_bytes() for p in self.root.rglob("*.txt")], [b"tea"])

    def test_ink_outlives_the_program(self):
        dice = random.Random(5)
        many = [[(x, y), (x + 1, y + 1)] for x in range(0, 400, 4) for y in range(300, 580, 2)]
        for kill in range(self.kills):
            is_new = dice.random() < 0.5
            old, title = ([], "[new] - Inkwright") if is_new else (many, "a - Inkwright")
            for path in self.root.rglob("*.ikw"):
                path.unlink()
            if not is_new:
                self.put_note("Work/a.ikw", note_bytes(588, old))
            program = self.open("/newnotes" if is_new else f"{ROOT}\\Work\\a.ikw")
            page = self.page(title)
            lines = [[(40 + 50 * i, 100), (60 + 50 * i, 130)] for i in range(dice.randint(1, 4))]
            for points in lines:
                self.stroke(page, points)
            if dice.random() < 0.6:  # while it saves, or after
                self.begin_closing(title)
                if is_new:
                    self.window(" Inkwright - Save As")
                    self.keys("Return")
            self.kill(program, dice.uniform(0, self.longest_save))
            if dice.random() < 0.4:
                self.restart(killed_after=dice.uniform(0, self.longest_save))
            self.restart()
            with self.subTest(kill=kill):
                self.assertEqual(self.strokes(), sorted(tuple(line[0]) for line in old + lines))

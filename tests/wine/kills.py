"""The program killed while it writes, saves and restores: what was written when the pen was lifted last comes back at
the next start. INKWRIGHT_KILLS says how often."""
import os
import random
import struct
import time

import desk

KILLS = int(os.environ.get("INKWRIGHT_KILLS", "20"))
LONGEST_SAVE_SECONDS = 0.4


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


class Kills(desk.Case):
    def kill(self, program, seconds):
        time.sleep(seconds)
        program.kill()
        self.finish(program)

    def restart(self, killed_after=None):
        """Answers every question by its first button, which is the default, and closes the manager."""
        program = self.open()
        while (front := desk.wait_for("a window", self.windows)[0])["text"] != "Inkwright":
            self.post(front, desk.WM_COMMAND, self.child(front, **{"class": "Button"})["id"])
            if killed_after is not None:
                return self.kill(program, killed_after)
            self.wait_until_gone(front)
        self.close(program, "Inkwright")

    def strokes(self):
        self.assertEqual([], [p for p in self.root.rglob("*") if p.suffix not in (".ikw", "") or "Temp" in p.parent.name])
        return sorted(point for path in self.root.rglob("*.ikw") for point in first_points(path.read_bytes()))

    def test_ink_outlives_the_program(self):
        dice = random.Random(5)
        many = [[(x, y), (x + 1, y + 1)] for x in range(0, 400, 4) for y in range(300, 580, 2)]
        for kill in range(KILLS):
            is_new = dice.random() < 0.5
            old, title = ([], "[new] - Inkwright") if is_new else (many, "a - Inkwright")
            for path in self.root.rglob("*.ikw"):
                path.unlink()
            if not is_new:
                self.put_note("Work/a.ikw", desk.note_bytes(588, old))
            program = self.open("/newnotes" if is_new else f"{desk.ROOT}\\Work\\a.ikw")
            page = self.page(title)
            lines = [[(40 + 50 * i, 100), (60 + 50 * i, 130)] for i in range(dice.randint(1, 4))]
            for points in lines:
                self.stroke(page, points)
            if dice.random() < 0.6:  # while it saves, or after
                self.post(self.window(title), desk.WM_CLOSE)
                if is_new:
                    self.window(" Inkwright - Save As")
                    self.keys("Return")
            self.kill(program, dice.uniform(0, LONGEST_SAVE_SECONDS))
            if dice.random() < 0.4:
                self.restart(killed_after=dice.uniform(0, LONGEST_SAVE_SECONDS))
            self.restart()
            with self.subTest(kill=kill):
                self.assertEqual(self.strokes(), sorted(tuple(line[0]) for line in old + lines))


if __name__ == "__main__":
    desk.main()

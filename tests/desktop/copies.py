"""Copies of the program that follow one another: a second start, one that was killed, the end of the session."""
import signal

import desk

LINES = ([(300, 200), (300, 260), (340, 300)], [(60, 150), (100, 160), (140, 150)])
WRITTEN = desk.note_bytes(588, LINES[:1])


class Copies(desk.Case):
    def write(self, title, points):
        page = self.page(title)
        self.stroke(page, points)
        return page

    def test_a_second_start_on_the_note(self):
        for tool, role, name in (("More Colors", "canvas", "Color Palette"), ("Tools", "menu item", "Edit Text Memo"),
                                 ("Full Erase", "alert", " Confirm Full Erase")):
            path = self.put_note("Work/a.ikw")
            first = self.open(f"{desk.ROOT}\\Work\\a.ikw")
            self.write("a - Inkwright", LINES[0])
            self.press("a - Inkwright", tool)
            desk.wait_for(name, lambda: (role, name) in map(desk.described, desk.everything()))
            second = self.open(f"{desk.ROOT}\\Work\\a.ikw")
            with self.subTest(over=name):
                self.assertEqual(self.finish(first), 0)
                self.wait_for_ink(self.page("a - Inkwright"), LINES[:1])
                self.assertEqual(path.read_bytes(), WRITTEN)
                self.close(second, "a - Inkwright")

    def test_a_second_manager_takes_the_place_of_all_that_is_open(self):
        path = self.put_note("Work/a.ikw")
        first = self.open("/manage", "Work")
        self.window("Inkwright")
        self.keys("Right", "Return")
        self.write("a - Inkwright", LINES[0])
        self.press("a - Inkwright", "Full Erase")
        self.window(" Confirm Full Erase")
        second = self.open()
        self.assertEqual(self.finish(first), 0)
        self.assertEqual(path.read_bytes(), WRITTEN)
        self.close(second, "Inkwright")

    def test_what_was_not_saved_comes_back(self):
        path = self.put_note("Work/a.ikw")
        first = self.open(f"{desk.ROOT}\\Work\\a.ikw")
        self.write("a - Inkwright", LINES[0])
        first.kill()
        self.finish(first)
        self.assertEqual(path.read_bytes(), desk.note_bytes(588))
        second = self.open(f"{desk.ROOT}\\Work\\a.ikw")
        for button in ("Yes", "OK"):
            self.press(" Restore Notes", button)
        self.wait_for_ink(self.page("a - Inkwright"), LINES[:1])
        self.close(second, "a - Inkwright")
        self.assertEqual(path.read_bytes(), WRITTEN)

    def test_the_end_of_the_session_saves_all_that_is_open(self):
        program = self.open("/newnotes", "Work")
        self.write("[new] - Inkwright", LINES[0])
        self.press("[new] - Inkwright", "Tools")
        self.choose("Edit Text Memo")
        self.control(self.window("[new] - Inkwright"), "text", "Text Memo")
        self.xdotool("type", "tea")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(self.finish(program), 0)
        note, = (self.root / "Work").glob("*.ikw")
        self.assertEqual((note.read_bytes(), note.with_suffix(".txt").read_bytes()), (WRITTEN, b"tea"))


if __name__ == "__main__":
    desk.main()

"""Writing, naming, saving and opening notes with the real pointer and keyboard."""
import datetime
import pathlib

import case
import desk

RED = 0x4040FF
ZIGZAG = [(60, 120), (80, 160), (100, 120), (120, 165), (140, 121), (190, 180)]
LINE = [(300, 200), (300, 260), (340, 300)]


class Notes(case.Case):
    def test_a_new_note_is_written_named_and_saved(self):
        program, frame, page = self.open("/newnotes", "[new] - Inkwright")
        self.desk.stroke(page, ZIGZAG)
        self.desk.press_tool(frame, 32706)
        self.desk.stroke(page, LINE)
        picture = self.desk.ask(f"picture {page['handle']}")

        days = [datetime.date.today()]
        self.desk.key("alt+F4")
        dialog = self.desk.window(" Inkwright - Save As")
        days.append(datetime.date.today())
        name = self.desk.child(dialog, id=1026)["text"]
        self.assertIn(name, [f"New Notes {day:%Y-%m-%d}" for day in days])
        self.assertFalse(self.desk.window("[new] - Inkwright")["enabled"], "the page can't be used meanwhile")
        self.desk.key("Return")
        self.assertEqual(self.desk.finish(program), 0)

        path = self.notes / (name + ".ikw")
        height = page["client"][3] - page["client"][1]
        self.assertEqual(path.read_bytes(), case.note_bytes(height, [[(case.GREY, ZIGZAG), (RED, LINE)]]))

        program, frame, page = self.open(f"{desk.ROOT}\\New Notes\\{name}.ikw", f"{name} - Inkwright")
        desk.wait_for("the same picture", lambda: self.desk.ask(f"picture {page['handle']}") == picture)
        written = path.stat().st_mtime_ns
        self.close(program, frame)
        self.assertEqual(path.stat().st_mtime_ns, written, "nothing changed, so nothing is written")

    def test_a_typed_name_and_a_refused_one(self):
        program, frame, page = self.open("/newnotes", "[new] - Inkwright")
        self.desk.stroke(page, LINE)
        self.desk.ask(f"post {frame['handle']} {desk.WM_CLOSE} 0 0")
        dialog = self.desk.window(" Inkwright - Save As")
        self.desk.key("ctrl+a")
        self.desk.xdotool("type", "a:b")
        desk.wait_for("the typed name", lambda: self.desk.child(dialog, id=1026)["text"] == "a:b")
        self.desk.key("Return")
        message = self.desk.window(" Error")
        text = self.desk.child(message, id=0xFFFF)["text"]
        self.assertIn("Failed to create a file!", text)
        self.desk.key("Return")
        self.desk.wait_until_gone(message)
        self.assertEqual(list(self.notes.iterdir()), [])

        dialog = self.desk.window(" Inkwright - Save As")
        self.desk.key("ctrl+a")
        self.desk.xdotool("type", "Plain")
        desk.wait_for("the typed name", lambda: self.desk.child(dialog, id=1026)["text"] == "Plain")
        self.desk.key("Return")
        self.assertEqual(self.desk.finish(program), 0)
        self.assertEqual([path.name for path in self.notes.iterdir()], ["Plain.ikw"])

    def test_a_note_outside_the_handheld_opens_by_its_drive(self):
        outside = pathlib.Path(self.desk.device) / "Outside.ikw"
        outside.write_bytes(case.note_bytes(588, []))
        self.desk.environment.pop("INKWRIGHT_DEVICE")
        program, frame, page = self.open(self.desk.windows_path(outside), "Outside - Inkwright")
        self.desk.stroke(page, LINE)
        self.close(program, frame)
        self.assertEqual(outside.read_bytes(), case.note_bytes(588, [[(case.GREY, LINE)]]))

    def test_the_end_of_the_session_saves(self):
        path = self.put_note("a.ikw")
        program, frame, page = self.open(f"{desk.ROOT}\\a.ikw", "a - Inkwright")
        self.desk.stroke(page, LINE)
        self.desk.ask(f"send {frame['handle']} {desk.WM_ENDSESSION} 1 0")
        self.assertEqual(path.read_bytes(), case.note_bytes(588, [[(case.GREY, LINE)]]))
        self.assertEqual(self.desk.finish(program), 0)

    def test_the_classic_screen(self):
        program, frame, page = self.open("/newnotes", "[new] - Inkwright", INKWRIGHT_SCREEN="240x320")
        left, top, right, bottom = frame["client"]
        self.assertEqual((right - left, bottom - top), (240, 294))
        left, top, right, bottom = page["client"]
        self.assertEqual(bottom - top, 268)
        self.assertTrue(200 < right - left < 240)
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

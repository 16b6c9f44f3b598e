"""Notes with the real pointer and keyboard: writing, erasing, naming, saving, opening, managing."""
import pathlib

import case
import desk

RED = 0x4040FF
OPEN = 32802
LINE = [(300, 200), (300, 260), (340, 300)]
UPPER, LOWER = ([(x, y) for x in range(60, 141, 8)] for y in (120, 200))


class Notes(case.Case):
    def test_a_new_note_is_written_erased_named_and_saved(self):
        program, frame, page = self.open("/newnotes", "[new] - Inkwright")
        for points in (UPPER, LOWER):
            self.desk.stroke(page, points)
        self.desk.key("ctrl+e")
        desk.wait_for("the eraser", lambda: self.desk.tool_state(frame, 32709) & desk.CHECKED)
        # Where a step meets ink, at its place or a row below, it has come once that is white.
        self.desk.drag(page, [(100, 90), (100, 119), (100, 180)], lambda x, y: all(
            self.desk.pixel(page, x, row) == case.WHITE for row in (y, y + 1)))
        self.desk.post_command(frame, 32706)  # a recent colour takes the pen again
        self.desk.stroke(page, LINE)

        self.desk.key("alt+F4")
        self.desk.window(" Inkwright - Save As")
        self.assertFalse(self.desk.window("[new] - Inkwright")["enabled"], "the page can't be used meanwhile")
        self.desk.key("ctrl+a")
        self.desk.xdotool("type", "Plain")
        self.desk.key("Return")
        self.assertEqual(self.desk.finish(program), 0)
        path, = self.notes.iterdir()
        self.assertEqual(path.name, "Plain.ikw")
        strokes = [(case.GREY, UPPER[:5]), (case.GREY, UPPER[6:]), (case.GREY, LOWER), (RED, LINE)]
        self.assertEqual(path.read_bytes(), case.note_bytes(page["client"][3] - page["client"][1], [strokes]))

        program, frame, page = self.open(f"{desk.ROOT}\\New Notes\\Plain.ikw", "Plain - Inkwright")
        desk.wait_for("the ink", lambda: all(self.desk.pixel(page, *points[-1]) != case.WHITE for _, points in strokes))
        self.close(program, frame)

    def test_a_note_by_its_drive_on_the_classic_screen_is_saved_by_the_sessions_end(self):
        outside = pathlib.Path(self.desk.device) / "Outside.ikw"
        outside.write_bytes(case.note_bytes(268, []))
        self.desk.environment.pop("INKWRIGHT_DEVICE")
        program, frame, page = self.open(self.desk.windows_path(outside), "Outside - Inkwright", INKWRIGHT_SCREEN="240x320")
        left, top, right, bottom = page["client"]
        self.assertEqual(bottom - top, 268)
        self.assertTrue(200 < right - left < 240)
        self.desk.stroke(page, UPPER)
        self.desk.ask(f"send {frame['handle']} {desk.WM_ENDSESSION} 1 0")
        self.assertEqual(outside.read_bytes(), case.note_bytes(268, [[(case.GREY, UPPER)]]))
        self.assertEqual(self.desk.finish(program), 0)

    def test_a_note_is_opened_renamed_and_deleted_by_keys(self):
        path = self.put_note("Work/a.ikw")
        path.with_suffix(".txt").write_text("memo")
        program = self.desk.start("/manage Work")
        frame = self.desk.window("Inkwright")
        self.desk.key("Down")
        desk.wait_for("the note", lambda: self.desk.tool_state(frame, OPEN) & desk.ENABLED)
        self.desk.key("Return")
        editor = self.desk.window("a - Inkwright")
        self.desk.ask(f"post {editor['handle']} {desk.WM_CLOSE} 0 0")
        self.desk.wait_until_gone(editor)
        self.desk.key("F2")
        self.desk.xdotool("type", "b")
        self.desk.key("Return")
        desk.wait_for("the new name", lambda: sorted(p.name for p in path.parent.iterdir()) == ["b.ikw", "b.txt"])
        self.desk.key("Delete")
        self.desk.window(" Confirm File Delete")
        self.desk.key("Return")
        desk.wait_for("note and memo to go", lambda: not list(path.parent.iterdir()))
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

"""Notes with the real pointer and keyboard: written, named, saved and opened again."""
import desk

TEXT_MEMO, MEMO_TEXT = 32911, 1016
LINES = ([(300, 200), (300, 260), (340, 300)], [(60, 120), (100, 130), (140, 120)])


class Notes(desk.Case):
    def test_a_new_note_is_written_named_and_saved(self):
        program = self.open("/newnotes")
        page = self.page("[new] - Inkwright")
        for points in LINES:
            self.stroke(page, points)
        self.keys("alt+F4")
        self.window(" Inkwright - Save As")
        self.assertFalse(self.window("[new] - Inkwright")["enabled"], "the page can't be used meanwhile")
        self.keys("ctrl+a")
        self.xdotool("type", "Plain")
        self.keys("Return")
        self.assertEqual(self.finish(program), 0)
        path = self.root / "New Notes" / "Plain.ikw"
        self.assertEqual(path.read_bytes(), desk.note_bytes(page["client"][3] - page["client"][1], LINES))

        program = self.open(f"{desk.ROOT}\\New Notes\\Plain.ikw")
        page = self.page("Plain - Inkwright")
        desk.wait_for("the ink", lambda: all(self.pixel(page, *points[-1]) != desk.WHITE for points in LINES))
        self.close(program, "Plain - Inkwright")

    def test_a_note_by_its_drive_on_the_classic_screen_and_its_memo_are_saved_by_the_sessions_end(self):
        outside = self.device / "Outside.ikw"
        outside.write_bytes(desk.note_bytes(268))
        self.environment.pop("INKWRIGHT_DEVICE")
        program = self.open(desk.windows_path(outside), INKWRIGHT_SCREEN="240x320")
        editor = self.window("Outside - Inkwright")
        page = self.page("Outside - Inkwright")
        self.assertEqual(page["client"][3] - page["client"][1], 268)
        self.stroke(page, LINES[1])
        self.post(editor, desk.WM_COMMAND, TEXT_MEMO)
        memo = desk.wait_for("the memo", lambda: next((w for w in self.windows() if w["handle"] != editor["handle"]), None))
        self.child(memo, id=MEMO_TEXT)
        self.xdotool("type", "tea")
        desk.wait_for("the text", lambda: self.child(memo, id=MEMO_TEXT)["text"] == "tea")
        for window in (editor, memo):
            self.post(window, desk.WM_ENDSESSION, 1)
        self.assertEqual(self.finish(program), 0)
        self.assertEqual(outside.read_bytes(), desk.note_bytes(268, LINES[1:]))
        self.assertEqual(outside.with_suffix(".txt").read_bytes(), b"tea")


if __name__ == "__main__":
    desk.main()

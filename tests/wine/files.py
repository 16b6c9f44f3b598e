"""Start-up: missing notes, other copies, stale pictures, settings."""
import case
import desk


class StartUp(case.Case):
    def test_a_missing_note_is_reported(self):
        program = self.desk.start(f"{desk.ROOT}\\gone.ikw")
        message = self.desk.window(" Error :: Inkwright")
        self.assertEqual(self.desk.child(message, id=0xFFFF)["text"], f"{desk.ROOT}\\gone.ikw\n\nFile Not Found!")
        self.desk.key("Return")
        self.close(program, self.desk.window("Inkwright"))

    def test_a_second_copy_takes_over(self):
        first_path = self.put_note("first.ikw")
        self.put_note("second.ikw")
        first, _, page = self.open(f"{desk.ROOT}\\first.ikw", "first - Inkwright")
        self.desk.stroke(page, [(50, 120), (90, 160)])
        second, frame, _ = self.open(f"{desk.ROOT}\\second.ikw", "second - Inkwright")
        self.assertEqual(self.desk.finish(first), 0)
        self.assertEqual(first_path.read_bytes(), case.note_bytes(588, [[(case.GREY, [(50, 120), (90, 160)])]]))
        self.assertEqual([w["text"] for w in self.desk.windows()], ["second - Inkwright"])
        self.close(second, frame)

    def test_stale_pictures_are_removed(self):
        temporary = self.desk.root / "Temp"
        (temporary / "folder.bmp").mkdir(parents=True)
        for name in ("old.bmp", "OLD2.BMP", "other.bmpx", "text.txt"):
            (temporary / name).touch()
        program, frame, _ = self.open("/newnotes", "[new] - Inkwright")
        self.assertEqual(sorted(path.name for path in temporary.iterdir()), ["folder.bmp", "other.bmpx", "text.txt"])
        self.close(program, frame)

    def test_colours_are_settings_after_the_first_run(self):
        program, frame, _ = self.open("/newnotes", "[new] - Inkwright")
        self.close(program, frame)
        number = 4
        expected = {"LastPenColor": 0x808080, "PenColor_1": 0x4040FF, "PenColor_2": 0x40FF40, "PenColor_3": 0xFF4040,
                    "PenColor_4": 0xFF40FF, "LastBGColor": 0xFFFFFF}
        for name, color in expected.items():
            self.assertEqual(self.desk.number_setting(name), (number, color), name)
        self.assertIsNone(self.desk.number_setting("PenInfo"))


if __name__ == "__main__":
    case.main()

"""Two copies of the program: what the one that starts does to the one that runs, whatever that has open."""
import case
import desk

LINE = [(300, 200), (300, 260), (340, 300)]
PALETTE, TOOLS, FULL_ERASE = 32703, 32702, 32710
IDOK = 1


class Copies(case.Case):
    def titles(self):
        return sorted(w["text"] for w in self.desk.windows() if w["text"])

    def write_note(self):
        self.path = self.put_note("Work/a.ikw")
        program, frame, page = self.open(f"{desk.ROOT}\\Work\\a.ikw", "a - Inkwright")
        self.desk.stroke(page, LINE)
        self.written = case.note_bytes(588, [[(case.GREY, LINE)]])
        return program, frame

    def test_a_second_start_on_the_note(self):
        def palette(frame):
            self.desk.post_command(frame, PALETTE)
            self.desk.window("Color Palette")

        def menu(frame):
            self.desk.post_command(frame, TOOLS)
            desk.wait_for("the menu", lambda: any(w["class"] == "#32768" for w in self.desk.windows()))

        for opened in (palette, menu):
            with self.subTest(opened.__name__):
                first, frame = self.write_note()
                opened(frame)
                second = self.desk.start(f"{desk.ROOT}\\Work\\a.ikw")
                self.assertEqual(self.desk.finish(first), 0)
                frame = self.desk.window("a - Inkwright")
                self.assertEqual(self.titles(), ["a - Inkwright"])
                self.assertEqual(self.path.read_bytes(), self.written)
                self.close(second, frame)
                self.assertEqual(self.path.read_bytes(), self.written)

    def test_a_second_manager_takes_the_place_of_all_that_is_open(self):
        self.path = self.put_note("Work/a.ikw")
        first = self.desk.start(f"/manage {desk.ROOT}\\Work")
        manager = self.desk.window("Inkwright")
        self.desk.key("Right")
        self.desk.key("Return")
        frame = self.desk.window("a - Inkwright")
        self.desk.stroke(self.desk.page(frame), LINE)
        self.desk.post_command(frame, FULL_ERASE)
        self.desk.window(" Confirm Full Erase")
        second = self.desk.start()
        self.assertEqual(self.desk.finish(first), 0)
        desk.wait_for("one manager", lambda: self.titles() == ["Inkwright"])
        self.assertNotEqual(self.desk.window("Inkwright")["handle"], manager["handle"])
        self.assertEqual(self.path.read_bytes(), case.note_bytes(588, [[(case.GREY, LINE)]]))
        self.close(second, self.desk.window("Inkwright"))

    def test_a_question_is_not_answered_by_what_closes_windows(self):
        path = self.put_note("Work/a.ikw")
        program = self.desk.start(f"/manage {desk.ROOT}\\Work")
        manager = self.desk.window("Inkwright")
        self.desk.key("Delete")
        question = self.desk.window(" Confirm Folder Delete")
        self.desk.post_command(question, IDOK)
        self.desk.wait_until_gone(question)
        self.close(program, manager)
        self.assertTrue(path.exists())


if __name__ == "__main__":
    case.main()

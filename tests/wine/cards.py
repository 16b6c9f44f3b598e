"""Storage cards: copying to one, living on one; and menus by a held pen."""
import case
import desk

TOOLS = 32804
ROW = 16  # height of a tree row in pixels


class Cards(case.Case):
    def setUp(self):
        super().setUp()
        self.card = self.desk.device / "Storage Card"
        self.card.mkdir()

    def manager(self, arguments):
        program = self.desk.start(arguments)
        frame = self.desk.window("Inkwright")
        return program, frame, self.desk.child(frame, id=1010)["client"]

    def wait_for_menu(self):
        desk.wait_for("a menu", lambda: [w for w in self.desk.windows() if w["class"] == "#32768"])

    def test_a_held_pen_opens_the_menu_that_copies_to_a_card(self):
        self.put_note("Work/Deep/a.ikw")
        older = self.card / "Inkwright" / "Work" / "Deep" / "a.ikw"
        older.parent.mkdir(parents=True)
        older.write_bytes(b"older")
        program, frame, (left, top, _, _) = self.manager("/manage Work")
        self.desk.xdotool("mousemove", left + 60, top + ROW + ROW // 2, "mousedown", 1)
        self.wait_for_menu()
        self.desk.xdotool("mouseup", 1)
        self.desk.key("Up")
        self.desk.key("Return")
        question = self.desk.window(" Confirm File Overwrite")
        self.assertEqual(self.desk.child(question, id=0xFFFF)["text"],
                         "'\\Storage Card\\Inkwright\\Work\\Deep\\a.ikw' will be overwritten. Overwrite?")
        self.desk.key("Return")
        done = self.desk.window(" File Copy")
        self.assertEqual(self.desk.child(done, id=0xFFFF)["text"], "Done!")
        self.desk.key("Return")
        self.desk.wait_until_gone(done)
        self.assertEqual(older.read_bytes(), case.note_bytes(588, []))
        self.close(program, frame)

    def test_the_store_is_opened_on_a_card_and_on_another_folder(self):
        program, frame, _ = self.manager("/manage Work")
        for keys, expected in ((["Down"], "\\Storage Card\\Inkwright"), ([], "\\My Documents\\Inkwright")):
            self.desk.post_command(frame, TOOLS)
            self.wait_for_menu()
            for key in ["Down", "Down", "Right", *keys, "Return"]:
                self.desk.key(key)
            desk.wait_for(expected, lambda: self.desk.text_setting("RootDirPath") == expected)
        self.assertTrue((self.card / "Inkwright" / "Reminders").is_dir())
        self.desk.post_command(frame, TOOLS)
        self.wait_for_menu()
        for key in ["Down", "Down", "Right", "Up", "Return"]:
            self.desk.key(key)
        chooser = desk.wait_for("the folder chooser", lambda: next(
            (w for w in self.desk.windows() if w["class"] == "#32770"), None))
        self.desk.key("Return")
        self.desk.wait_until_gone(chooser)
        self.assertEqual(self.desk.text_setting("RootDirPath"), "\\My Documents\\Inkwright")
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

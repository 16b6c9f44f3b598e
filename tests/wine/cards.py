"""A storage card: what the menu of a held pen copies there, and the store on one."""
import desk

TOOLS = 32804
ROW = 16  # height of a tree row in pixels


class Cards(desk.Case):
    def setUp(self):
        super().setUp()
        self.card = self.device / "Storage Card"
        self.card.mkdir()

    def test_a_held_pen_opens_the_menu_that_copies_to_a_card(self):
        self.put_note("Work/Deep/a.ikw")
        older = self.card / "Inkwright" / "Work" / "Deep" / "a.ikw"
        older.parent.mkdir(parents=True)
        older.write_bytes(b"older")
        program = self.open("/manage", "Work")
        left, top = self.child(self.window("Inkwright"), id=1010)["client"][:2]
        self.xdotool("mousemove", left + 60, top + ROW + ROW // 2, "mousedown", 1)
        self.wait_for_menu()
        self.xdotool("mouseup", 1)
        self.keys("Up", "Return")
        self.window(" Confirm File Overwrite")
        self.keys("Return")
        done = self.window(" File Copy")
        self.assertEqual(self.child(done, id=desk.MESSAGE_TEXT)["text"], "Done!")
        self.keys("Return")
        self.wait_until_gone(done)
        self.assertEqual(older.read_bytes(), desk.note_bytes(588))
        self.close(program, "Inkwright")

    def test_the_store_is_opened_on_a_card_by_the_keys_of_a_submenu(self):
        program = self.open("/manage", "Work")
        self.post(self.window("Inkwright"), desk.WM_COMMAND, TOOLS)
        self.wait_for_menu()
        self.keys("Down", "Down", "Down", "Down", "Right", "Down", "Return")
        desk.wait_for("the store", (self.card / "Inkwright" / "Reminders").is_dir)
        self.close(program, "Inkwright")


if __name__ == "__main__":
    desk.main()

"""A storage card: what the menu of a held pen copies there."""
import desk

ROW = 16  # height of a tree row in pixels


class Cards(desk.Case):
    def test_a_held_pen_opens_the_menu_that_copies_to_a_card(self):
        self.put_note("Work/Deep/a.ikw")
        card = self.device / "Storage Card"
        older = card / "Inkwright" / "Work" / "Deep" / "a.ikw"
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


if __name__ == "__main__":
    desk.main()

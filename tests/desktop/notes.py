"""Notes with the real pointer and keyboard: folders, ink, names, and all of it again from the disk."""
import desk

LINES = ([(300, 200), (300, 260), (340, 300)], [(60, 120), (100, 130), (140, 120)])


class Notes(desk.Case):
    def test_from_an_empty_store_to_a_deleted_note(self):
        program = self.open()
        self.press("Inkwright", "Tools")
        self.choose("New Folder")
        self.control(self.window("Inkwright"), "text", "Name")
        self.xdotool("type", "Plans")
        self.keys("Return")
        desk.wait_for("the folder", (self.root / "Plans").is_dir)
        self.press("Inkwright", "New Note")
        page = self.page("[new] - Inkwright")
        for points in LINES:
            self.stroke(page, points)
        self.keys("ctrl+z")
        self.wait_for_ink(page, LINES[1:], there=False)
        self.keys("ctrl+y")
        self.wait_for_ink(page, LINES)
        self.keys("ctrl+w")
        self.window(" Inkwright - Save As")
        self.keys("ctrl+a")
        self.xdotool("type", "Plain")
        self.keys("Return")
        self.window("Inkwright")
        path = self.root / "Plans" / "Plain.ikw"
        self.assertEqual(path.read_bytes(), desk.note_bytes(588, LINES))

        self.click(self.control(self.window("Inkwright"), "table cell", "Plain"))
        self.keys("Return")
        self.wait_for_ink(self.page("Plain - Inkwright"), LINES)
        self.keys("ctrl+w")
        self.window("Inkwright")
        self.keys("F2")
        self.control(self.window("Inkwright"), "text", "Name")
        self.xdotool("type", "Other")
        self.keys("Return")
        path = desk.wait_for("the new name", lambda: next((self.root / "Plans").glob("Other.ikw"), None))
        self.click(self.control(self.window("Inkwright"), "table cell", "Other"), button=3)
        self.choose("Delete")
        self.window(" Confirm File Delete")
        self.keys("alt+y")
        desk.wait_for("it to be gone", lambda: not path.exists())
        self.close(program, "Inkwright")


if __name__ == "__main__":
    desk.main()

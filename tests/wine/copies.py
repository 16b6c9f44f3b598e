"""Two copies of the program: what the one that starts does to the one that runs, whatever that has open."""
import desk

LINE = [(300, 200), (300, 260), (340, 300)]
PALETTE, TOOLS, FULL_ERASE = 32703, 32702, 32710
WRITTEN = desk.note_bytes(588, [LINE])


class Copies(desk.Case):
    def titles(self):
        return [w["text"] for w in self.windows() if w["text"]]

    def write_and_ask(self, command):
        """Writes in the editor that is open, and opens something over it."""
        self.stroke(self.page("a - Inkwright"), LINE)
        self.post(self.window("a - Inkwright"), desk.WM_COMMAND, command)

    def test_a_second_start_on_the_note(self):
        for command, wait_for_it in ((PALETTE, lambda: self.window("Color Palette")), (TOOLS, self.wait_for_menu)):
            path = self.put_note("Work/a.ikw")
            first = self.open(f"{desk.ROOT}\\Work\\a.ikw")
            self.write_and_ask(command)
            wait_for_it()
            second = self.open(f"{desk.ROOT}\\Work\\a.ikw")
            self.assertEqual(self.finish(first), 0)
            desk.wait_for("one editor", lambda: self.titles() == ["a - Inkwright"])
            self.assertEqual(path.read_bytes(), WRITTEN)
            self.close(second, "a - Inkwright")
            self.assertEqual(path.read_bytes(), WRITTEN)

    def test_a_second_manager_takes_the_place_of_all_that_is_open(self):
        path = self.put_note("Work/a.ikw")
        first = self.open("/manage", f"{desk.ROOT}\\Work")
        manager = self.window("Inkwright")
        self.keys("Right", "Return")
        self.write_and_ask(FULL_ERASE)
        self.window(" Confirm Full Erase")
        second = self.open()
        self.assertEqual(self.finish(first), 0)
        desk.wait_for("one manager", lambda: self.titles() == ["Inkwright"])
        self.assertNotEqual(self.window("Inkwright")["handle"], manager["handle"])
        self.assertEqual(path.read_bytes(), WRITTEN)
        self.close(second, "Inkwright")


if __name__ == "__main__":
    desk.main()

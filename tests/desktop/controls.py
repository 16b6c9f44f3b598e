"""Every window as a screen reader has it: each control has a role and a name, and does what it is for when pressed."""
import desk

LINE = [(60, 120), (100, 130), (140, 120)]
NAMELESS = ("filler", "unknown", "panel", "invalid")


class Controls(desk.Case):
    def check(self, title, *expected):
        """All that can have the keyboard says what it is; `expected` are controls that must be there."""
        window = self.window(title)
        for role, name in expected:
            self.control(window, role, name)
        # Cells of a table may be empty.
        nodes = [node for node in desk.below(window) if node.get_role_name() != "table cell" and
                 (desk.is_in(node, desk.FOCUSABLE) or node.get_role_name() == "push button")]
        nameless = [desk.described(node) for node in nodes
                    if not (node.get_name() or desk.label_of(node)) or node.get_role_name() in NAMELESS]
        self.assertTrue(nodes)
        self.assertEqual(nameless, [], title)
        return window

    def leave(self, title):
        self.keys("Escape")
        desk.wait_for(f"{title!r} to go away", lambda: len(desk.windows()) == 1)

    def of_note(self, entry):
        self.click(self.control(self.window("Inkwright"), "table cell", "a"), button=3)
        self.choose(entry)

    def test_dialogs_of_the_manager(self):
        self.put_note("Work/a.ikw", desk.note_bytes(588, [[(100, 200), (140, 220)]])).with_suffix(".txt").write_text("tea")
        program = self.open("/manage", f"{desk.ROOT}\\Work\\a.ikw")
        self.check("Inkwright", ("table cell", "a"), ("push button", "New Note"))
        self.press("Inkwright", "Find...")
        self.check(" Find...", ("text", "Text to search for"), ("check box", "Text Memo"), ("push button", "Next"))
        self.leave(" Find...")
        for entry, title in (("About Inkwright", " About Inkwright"), ("Options...", "Options")):
            self.press("Inkwright", "Tools")
            self.choose(entry)
            options = self.check(title, ("push button", "OK"))
            if title == "Options":
                self.assertEqual(desk.label_of(self.control(options, "combo box", "Smooth")), "Pen Style")
                self.press(title, "Default File Name", "page tab")
                self.check(title, ("page tab list", "Default File Name"), ("text", "Reminders"), ("check box", "Use Default Name Format"))
            self.leave(title)
        for entry, title, expected in (
                ("Text Memo...", "Inkwright", ("text", "Text Memo")), ("Set Alarm...", "Set Alarm", ("spin button", "Time")),
                ("Move To Reminders...", " Inkwright - Date", ("table", "Date"))):
            self.of_note(entry)
            self.check(title, expected)
            self.leave(title)
        self.press("Inkwright", "Tools")
        self.choose("Storage")
        self.choose("Other Folder...")
        self.check("Choose the folder that holds your notes.")
        self.leave("the chooser")
        self.press("Inkwright", "Calendar")
        self.check("Inkwright", ("canvas", "Calendar"))
        self.close(program, "Inkwright")

    def test_the_editor(self):
        self.put_note("Work/a.ikw", desk.note_bytes(588, [[(100, 200), (140, 220)]]))
        program = self.open(f"{desk.ROOT}\\Work\\a.ikw")
        self.check("a - Inkwright", ("canvas", "Page"), ("scroll bar", "Scroll bar"), ("push button", "Eraser"))
        self.stroke(self.page("a - Inkwright"), LINE)
        self.press("a - Inkwright", "Menu")
        self.act(self.control(self.window("a - Inkwright"), "menu item", "Undo\tCtrl+Z"))
        self.wait_for_ink(self.page("a - Inkwright"), [LINE], there=False)
        self.press("a - Inkwright", "More Colors")
        self.check("a - Inkwright", ("canvas", "Color Palette"))
        self.keys("Escape")
        self.wait_until_gone("Color Palette")
        self.press("a - Inkwright", "Full Erase")
        self.check(" Confirm Full Erase", ("push button", "Yes"))
        self.leave(" Confirm Full Erase")
        self.close(program, "a - Inkwright")


if __name__ == "__main__":
    desk.main()

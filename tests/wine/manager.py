"""The note manager, used with the keyboard and the pointer."""
import case
import desk

ADD_NOTE, OPEN, DELETE, CALENDAR, FIND, CREATE_FOLDER = 32801, 32802, 32803, 32805, 32810, 32900
PRESSED = 2


class Manager(case.Case):
    def manager(self, arguments=""):
        program = self.desk.start(arguments)
        frame = self.desk.window("Inkwright")
        tree = self.desk.child(frame, id=1010)
        self.assertEqual(tree["class"], "SysTreeView32")
        return program, frame

    def wait_for_state(self, frame, command, bit, expected):
        desk.wait_for(f"tool {command} to change",
                      lambda: bool(self.desk.tool_state(frame, command) & bit) == expected)

    def test_a_folder_is_made_and_named(self):
        program, frame = self.manager()
        self.assertTrue((self.desk.root / "Reminders").is_dir())
        self.desk.post_command(frame, CREATE_FOLDER)
        desk.wait_for("the new folder", (self.desk.root / "New Folder").is_dir)
        self.desk.xdotool("type", "Plans")
        self.desk.key("Return")
        desk.wait_for("its name", (self.desk.root / "Plans").is_dir)
        self.close(program, frame)

    def test_a_note_is_opened_renamed_and_deleted(self):
        path = self.put_note("Work/a.ikw")
        path.with_suffix(".txt").write_text("memo")
        program, frame = self.manager("/manage Work")
        self.wait_for_state(frame, ADD_NOTE, desk.ENABLED, True)
        self.desk.key("Down")
        self.wait_for_state(frame, OPEN, desk.ENABLED, True)
        self.assertTrue(self.desk.tool_state(frame, FIND) & desk.ENABLED)

        self.desk.key("Return")
        editor = self.desk.window("a - Inkwright")
        self.assertFalse(self.desk.window("Inkwright")["enabled"])
        self.desk.ask(f"post {editor['handle']} {desk.WM_CLOSE} 0 0")
        self.desk.wait_until_gone(editor)

        self.desk.key("F2")
        self.desk.xdotool("type", "b")
        self.desk.key("Return")
        desk.wait_for("the new name", lambda: sorted(p.name for p in path.parent.iterdir()) == ["b.ikw", "b.txt"])
        self.desk.key("Delete")
        message = self.desk.window(" Confirm File Delete")
        self.assertEqual(self.desk.child(message, id=0xFFFF)["text"], "'b.ikw' will be permanently deleted. Continue?")
        self.desk.key("Return")
        desk.wait_for("note and memo to go", lambda: not list(path.parent.iterdir()))
        self.close(program, frame)

    def test_the_calendar_is_remembered(self):
        program, frame = self.manager()
        self.desk.press_tool(frame, CALENDAR)
        self.wait_for_state(frame, CALENDAR, PRESSED, True)
        self.close(program, frame)
        self.assertEqual(self.desk.number_setting("ViewCalMode")[1], 1)
        program, frame = self.manager()
        self.wait_for_state(frame, CALENDAR, PRESSED, True)
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

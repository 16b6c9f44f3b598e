"""The text memo in the real program, used from outside as another program would."""
import case
import desk

TEXT_MEMO, SAVE, CANCEL, WORD_WRAP, EDIT = 32911, 1017, 1018, 1027, 1016
BM_CLICK, EM_GETSEL = 0x00F5, 0x00B0
WRAPPED, UNWRAPPED = 0x50211044, 0x503110C4  # the control takes the mark of its border away
MENU = "#32768"


class Memo(case.Case):
    def open_memo(self, frame):
        self.desk.post_command(frame, TEXT_MEMO)
        return desk.wait_for("the memo dialog", lambda: next(
            (w for w in self.desk.windows() if w["class"] == "#32770" and w["text"] == frame["text"]), None))

    def click(self, dialog, button):
        self.desk.ask(f"post {self.desk.child(dialog, id=button)['handle']} {BM_CLICK} 0 0")

    def edit(self, dialog):
        return self.desk.child(dialog, id=EDIT)

    def style(self, dialog):
        return self.desk.ask(f"style {self.edit(dialog)['handle']}") & 0xFFFFFFFF

    def test_written_wrapped_and_deleted_in_the_editor(self):
        path = self.put_note("Work/a.ikw").with_suffix(".txt")
        text = bytes(range(32, 256)) + b"\r\nlone\rand\nlines\r\n" + b"many words of text\r\n" * 10000
        path.write_bytes(text)
        program, frame, page = self.open(f"{desk.ROOT}\\Work\\a.ikw", "a - Inkwright")
        memo = self.open_memo(frame)
        left, top, right, bottom = memo["place"]
        self.assertEqual((right - left, bottom - top), (210, 170))
        edit = self.edit(memo)
        self.assertEqual(edit["class"].lower(), "edit")
        self.assertEqual(edit["place"], [left + 6, top + 26, left + 204, top + 141])
        self.assertEqual(self.style(memo), UNWRAPPED)
        self.assertEqual(self.desk.ask(f"send {edit['handle']} {EM_GETSEL} 0 0"), 0)
        self.click(memo, WORD_WRAP)
        desk.wait_for("word wrap", lambda: self.style(memo) == WRAPPED)
        self.assertEqual(self.desk.number_setting("TextMemoWordWrap"), (3, 1))
        self.desk.xdotool("type", "new ")
        self.desk.key("Return")
        desk.wait_for("the typed words", lambda: self.edit(memo)["text"].startswith("new \r\n !"))
        self.click(memo, SAVE)
        self.desk.wait_until_gone(memo)
        self.assertEqual(path.read_bytes(), b"new \r\n" + text)

        memo = self.open_memo(frame)
        x, y = memo["client"][0] + 20, memo["client"][1] + 10
        self.desk.xdotool("mousemove", x, y, "mousedown", 1, "mousemove", x + 40, y + 30, "mouseup", 1)
        desk.wait_for("the drag", lambda: next(
            w for w in self.desk.windows() if w["handle"] == memo["handle"])["place"][:2] == [left + 40, top + 30])
        self.desk.click([left + 235, top + 35, left + 245, top + 45])
        question = self.desk.window("Confirm Text Memo Delete")
        self.assertEqual(self.desk.child(question, id=0xFFFF)["text"], "Contents will permanently be lost! Continue?")
        self.click(question, 6)
        desk.wait_for("the memo to go", lambda: not path.exists() and self.edit(memo)["text"] == "")
        self.desk.key("Escape")
        self.desk.wait_until_gone(memo)
        self.close(program, frame)

    def test_the_clipboard_menu_and_the_managers_marks(self):
        path = self.put_note("Work/a.ikw").with_suffix(".txt")
        program, frame, page = self.open("/manage Work", "Inkwright")
        self.desk.key("Down")
        tree = self.desk.child(frame, id=1010)
        desk.wait_for("the note", lambda: self.desk.ask(f"selected {tree['handle']}") == "a")
        strip = page["client"][3] - page["client"][1] - 75  # the header above tells the free space of a busy machine
        shown = lambda: (self.desk.ask(f"picture {tree['handle']}"), self.desk.ask(f"picture {page['handle']} {strip}"))
        before = shown()
        memo = self.open_memo(frame)
        self.desk.ask(f"sendtext {self.edit(memo)['handle']} plum jam")
        left, top, right, bottom = self.edit(memo)["place"]
        self.desk.xdotool("mousemove", left + 60, top + 60, "mousedown", 1)
        menu = desk.wait_for("the menu", lambda: next(
            (w for w in self.desk.windows() if w["class"] == MENU), None))
        self.desk.xdotool("mouseup", 1)
        self.desk.key("Up")
        self.desk.key("Return")
        whole = len("plum jam") << 16
        desk.wait_for("all to be selected",
                      lambda: self.desk.ask(f"send {self.edit(memo)['handle']} {EM_GETSEL} 0 0") == whole)
        self.desk.key("ctrl+c")
        self.desk.key("Right")
        self.desk.key("ctrl+v")
        self.desk.key("ctrl+a")
        desk.wait_for("twice", lambda: self.desk.ask(f"send {self.edit(memo)['handle']} {EM_GETSEL} 0 0") == 2 * whole)
        self.click(memo, SAVE)
        self.desk.wait_until_gone(memo)
        self.assertEqual(path.read_bytes(), b"plum jamplum jam")
        desk.wait_for("both marks", lambda: all(a != b for a, b in zip(before, shown())))
        memo = self.open_memo(frame)
        self.desk.key("ctrl+a")
        self.desk.key("Delete")
        desk.wait_for("no text", lambda: self.edit(memo)["text"] == "")
        self.click(memo, SAVE)
        self.desk.wait_until_gone(memo)
        self.assertFalse(path.exists())
        desk.wait_for("the marks to go", lambda: before == shown())
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

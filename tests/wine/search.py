"""The search with its real worker thread: cancelled and closed while it runs."""
import desk

FIND, FIRST, MEMOS = 32810, 1029, 1034
BM_CLICK = 0x00F5
IDOK, IDCANCEL = 1, 2


class Search(desk.Case):
    def click(self, button):
        self.post(self.child(self.find, id=button), BM_CLICK)

    def open_find(self):
        self.post(self.window("Inkwright"), desk.WM_COMMAND, FIND)
        self.find = self.window(" Find...")

    def test_it_is_cancelled_and_closed_a_hundred_times(self):
        for i in range(500):
            self.put_note(f"Folder {i // 25}/Note {i}.ikw").with_suffix(".txt").write_text("some words\n" * 20)
        program = self.open()
        self.open_find()
        self.xdotool("type", "nowhere")
        self.click(MEMOS)
        for round_number in range(100):
            self.click(FIRST)
            self.child(self.find, id=FIRST, enabled=0)
            if round_number < 60:
                self.click(IDCANCEL)
                self.child(self.find, id=FIRST, enabled=1)
                continue
            self.post(self.find, desk.WM_COMMAND, IDOK)
            self.wait_until_gone(self.find)
            self.open_find()
        self.click(IDCANCEL)
        self.wait_until_gone(self.find)
        self.close(program, "Inkwright")


if __name__ == "__main__":
    desk.main()

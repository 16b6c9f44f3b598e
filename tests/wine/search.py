"""The search with its real worker thread: cancelled and closed while it runs."""
import case
import desk

FIND, FIRST, TEXT, MEMOS = 32810, 1029, 1031, 1034
BM_CLICK = 0x00F5
IDOK, IDCANCEL = 1, 2


class Search(case.Case):
    def click(self, button):
        self.desk.ask(f"post {self.desk.child(self.find, id=button)['handle']} {BM_CLICK} 0 0")

    def wait_for_search(self, runs):
        desk.wait_for("the search", lambda: self.desk.child(self.find, id=FIRST)["enabled"] != runs)

    def test_it_is_cancelled_and_closed_a_hundred_times(self):
        for i in range(500):
            self.put_note(f"Folder {i // 25}/Note {i}.ikw").with_suffix(".txt").write_text("some words\n" * 20)
        program, frame, _ = self.open("", "Inkwright")
        self.desk.post_command(frame, FIND)
        self.find = self.desk.window(" Find...")
        self.desk.xdotool("type", "nowhere")
        self.click(MEMOS)
        for round_number in range(100):
            self.click(FIRST)
            self.wait_for_search(True)
            if round_number < 60:
                self.click(IDCANCEL)
                self.wait_for_search(False)
                continue
            self.desk.ask(f"post {self.find['handle']} {desk.WM_COMMAND} {IDOK} 0")
            self.desk.wait_until_gone(self.find)
            self.desk.post_command(frame, FIND)
            self.find = self.desk.window(" Find...")
        self.click(IDCANCEL)
        self.desk.wait_until_gone(self.find)
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

"""The options sheet and the search, used from outside as another program would."""
import case
import desk

FIND, OPTIONS = 32810, 33001
BM_GETCHECK, BM_CLICK, WM_GETTEXT = 0x00F0, 0x00F5, 0x000D
EM_GETLIMITTEXT = 0x00D5
CB_GETCURSEL, CB_SETCURSEL, CBN_SELCHANGE = 0x0147, 0x014E, 1
UDM_SETPOS, UDM_GETPOS = 0x0400 + 103, 0x0400 + 104
TCM_GETITEMCOUNT, PSM_SETCURSEL = 0x1304, 0x0400 + 101
IDOK, IDCANCEL = 1, 2


class Dialogs(case.Case):
    def send(self, window, message, wparam=0, lparam=0):
        return self.desk.ask(f"send {window['handle']} {message} {wparam} {lparam}")

    def choose(self, page, list_id, index):
        combo = self.desk.child(page, id=list_id)
        self.send(combo, CB_SETCURSEL, index)
        self.send(page, desk.WM_COMMAND, CBN_SELCHANGE << 16 | list_id, combo["handle"])

    def click(self, parent, button_id):
        self.desk.ask(f"post {self.desk.child(parent, id=button_id)['handle']} {BM_CLICK} 0 0")

    def text_setting(self, name):
        kind, data = self.desk.ask("setting " + name)
        return kind, bytes(data).decode("utf-16-le")

    def test_the_options_are_shown_and_stored(self):
        program, frame, _ = self.open("", "Inkwright")
        self.desk.post_command(frame, OPTIONS)
        sheet = self.desk.window("Options")
        self.assertFalse(self.desk.window("Inkwright")["enabled"])
        tabs = self.desk.child(sheet, **{"class": "SysTabControl32"})
        self.assertEqual(self.send(tabs, TCM_GETITEMCOUNT), 2)
        misc = self.desk.child(sheet, **{"class": "#32770", "text": "Misc."})
        size, offset = self.desk.child(misc, id=1023), self.desk.child(misc, id=1027)
        self.assertEqual((size["class"], offset["class"]), ("msctls_updown32", "msctls_updown32"))
        self.assertEqual(self.send(self.desk.child(misc, id=1021), CB_GETCURSEL), 0)
        self.assertEqual(self.desk.child(misc, id=1022)["text"], "1")
        self.send(size, UDM_SETPOS, 0, 7)
        self.choose(misc, 1012, 3)
        self.send(offset, UDM_SETPOS, 0, 1500)
        self.assertEqual(self.desk.child(misc, id=1026)["text"], "1500")
        self.choose(misc, 1021, 1)
        self.assertFalse(self.desk.child(misc, id=1023)["enabled"])
        self.assertEqual(self.send(size, UDM_GETPOS), 1)

        self.send(sheet, PSM_SETCURSEL, 1)
        names = self.desk.child(sheet, **{"class": "#32770", "text": "Default File Name"})
        pattern = self.desk.child(names, id=1032)
        self.assertEqual((pattern["text"], pattern["enabled"]), ("Reminder %f", False))
        limits = [self.send(self.desk.child(names, id=edit), EM_GETLIMITTEXT) for edit in (1031, 1032)]
        self.assertEqual(limits, [259, 259], "what can be read back")
        self.assertTrue(self.desk.child(names, id=1035)["text"].endswith("for file names.)\r\n"))
        self.click(names, 1034)
        desk.wait_for("the pattern to be free", lambda: self.desk.child(names, id=1032)["enabled"])
        self.desk.xdotool("type", "%d at %G")
        desk.wait_for("the pattern", lambda: self.desk.child(names, id=1032)["text"] == "%d at %G")
        self.click(sheet, IDOK)
        self.desk.wait_until_gone(sheet)
        self.assertEqual(self.desk.number_setting("PenInfo"), (4, 0x0001000A))
        self.assertEqual(self.desk.number_setting("FirstDayOfWeek"), (4, 3))
        self.assertEqual(self.desk.number_setting("AlarmTimeOffset"), (4, 1500))
        self.assertEqual(self.text_setting("SaveAs_ReminderFN"), (4, "%d at %G\0"))
        self.assertIsNone(self.desk.ask("setting SaveAs_NoteFN"))
        self.close(program, frame)

    def open_search(self, options, text):
        program, frame, _ = self.open("", "Inkwright")
        self.desk.post_command(frame, FIND)
        find = self.desk.window(" Find...")
        for bit, box in enumerate((1032, 1033, 1034)):
            control = self.desk.child(find, id=box)
            if self.send(control, BM_GETCHECK) != (options >> bit & 1):
                self.send(control, BM_CLICK)
        self.send_text(find, 1031, text)
        return program, frame, find

    def send_text(self, window, control, text):
        handle = self.desk.child(window, id=control)["handle"]
        self.desk.ask(f"sendtext {handle} {text}")
        self.assertEqual(self.desk.child(window, id=control)["text"], text)

    def is_idle(self, find):
        return self.desk.child(find, id=1029)["enabled"]

    def selected(self, frame):
        tree = self.desk.child(frame, id=1010)
        return self.desk.ask(f"selected {tree['handle']}")

    def put_store(self, folders, notes):
        for i in range(folders):
            for j in range(notes):
                self.put_note(f"Folder {i}/Note {j}.ikw").with_suffix(".txt").write_text("some words\n" * 20)

    def test_matches_are_found_one_after_another(self):
        self.put_note("Work/Garden.ikw")
        self.put_note("Work/Plan.ikw").with_suffix(".txt").write_text("the GARDEN door")
        program, frame, find = self.open_search(7, "garden")
        place, around = find["place"], self.desk.window("Inkwright")["place"]
        self.assertEqual(place[2:], around[2:], "bottom right of its parent")
        for button, name in ((1029, "Garden"), (1030, "Plan")):
            self.click(find, button)
            desk.wait_for(f"{name} to be found", lambda: self.selected(frame) == name and self.is_idle(find))
        self.click(find, 1030)
        message = self.desk.window(" Inkwright")
        self.assertEqual(self.desk.child(message, id=0xFFFF)["text"], "Finished searching for files/folders.")
        self.desk.key("Return")
        desk.wait_for("the search to end", lambda: self.is_idle(find))
        self.click(find, IDCANCEL)
        self.desk.wait_until_gone(find)
        self.assertEqual(self.text_setting("SearchLastText"), (1, "garden\0"))
        self.assertEqual(self.desk.number_setting("SearchOpt"), (4, 7))
        self.close(program, frame)

    def test_it_is_cancelled_and_closed_a_hundred_times(self):
        self.put_store(20, 25)
        program, frame, find = self.open_search(4, "nowhere")
        for round_number in range(60):
            self.click(find, 1029)
            desk.wait_for("the search", lambda: not self.is_idle(find))
            self.click(find, IDCANCEL)
            desk.wait_for("its end", lambda: self.is_idle(find))
        for round_number in range(40):
            self.click(find, 1029)
            desk.wait_for("the search", lambda: not self.is_idle(find))
            self.desk.ask(f"post {find['handle']} {desk.WM_COMMAND} {IDOK} 0")
            self.desk.wait_until_gone(find)
            self.desk.post_command(frame, FIND)
            find = self.desk.window(" Find...")
        self.click(find, IDCANCEL)
        self.desk.wait_until_gone(find)
        self.close(program, frame)


if __name__ == "__main__":
    case.main()

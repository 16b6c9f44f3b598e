"""Alarms that fire: the note opens by itself after the program has ended, once."""
import datetime

import desk

LINE = [(100, 200), (140, 220)]


class Alarms(desk.Case):
    def set_alarm(self, seconds, folder, **environment):
        """Writes a note with an alarm so many seconds from now and closes it. Gives its moment and name."""
        moment = datetime.datetime.now() + datetime.timedelta(seconds=seconds)
        weekday = moment.isoweekday() % 7 + 1  # 1 = Sunday
        program = self.open("/newalarm", f"{moment:%Y%m}{weekday}{moment:%d%H%M%S}", folder, **environment)
        self.stroke(self.page("[new] - Inkwright"), LINE)
        self.post(self.window("[new] - Inkwright"), desk.WM_CLOSE)
        self.window(" Inkwright - Save As")
        self.keys("Return")
        done = desk.wait_for("the answer", lambda: next(
            (w for w in self.windows() if w["text"].startswith(f" {moment.month}/{moment.day}/")), None))
        self.assertEqual(self.child(done, id=desk.MESSAGE_TEXT)["text"], "Alarm is successfully set!")
        self.keys("Return")
        self.assertEqual(self.finish(program), 0)
        return moment, next((self.root / folder).iterdir()).stem

    def notes_shown(self):
        return [w for w in self.windows() if w["text"].endswith(" - Inkwright")]

    def notices(self):
        return [w for w in self.windows("inkalarms.exe") if w["text"] == "Inkwright \u00bb Alarm"]

    def text_of(self, notice):
        return self.child(notice, **{"class": "Static"})["text"]

    def keepers(self):
        return [w for w in self.ask("windows") if w["class"] == "InkwrightAlarmKeeper"]

    def start_keeper(self, **environment):
        self.start(desk.PROGRAMS / "inkalarms.exe", environment=environment)
        desk.wait_for("the keeper", self.keepers)

    def test_notes_open_by_themselves_and_notices_follow(self):
        """Of two alarms each has its notice. One that the session's end takes away comes back, once."""
        names = [self.set_alarm(seconds, folder)[1] for seconds, folder in ((12, "Work"), (9, "Home"))]
        self.assertEqual(self.notes_shown(), [])
        desk.wait_for("a note", self.notes_shown)
        desk.wait_for("both notices", lambda: len(self.notices()) == 2)
        expected = sorted(f"Inkwright \u00bb {name.split()[0]}\n\n{name}" for name in names)
        self.assertEqual(sorted(map(self.text_of, self.notices())), expected)
        first, second = sorted(self.notices(), key=lambda notice: notice["place"][1])
        self.assertLessEqual(first["place"][3], second["place"][1], "one above the other")

        kept = self.text_of(first)
        self.post(first, desk.WM_ENDSESSION, 1)
        self.post(second, desk.WM_CLOSE)
        desk.wait_for("both to go", lambda: not self.notices())
        for expected in ([kept], []):
            self.assertEqual(self.finish(self.start(desk.PROGRAMS / "inkalarms.exe", "/stop")), 0)
            self.assertEqual(self.keepers(), [])
            self.start_keeper()
            desk.wait_for(f"{len(expected)} notices", lambda: len(self.notices()) == len(expected))
            for notice in self.notices():
                self.assertEqual(self.text_of(notice), kept)
                self.post(notice, desk.WM_CLOSE)
            desk.wait_for("it to go", lambda: not self.notices())

    def test_whoever_ends_the_keeper_loses_no_alarm(self):
        """The note opens as it was left, whoever started the keeper."""
        moment, name = self.set_alarm(5, "Work", INKWRIGHT_SCREEN="240x320")
        self.finish(self.start("taskkill", "/f", "/im", "inkalarms.exe"))
        desk.wait_for("the alarm to be past", lambda: datetime.datetime.now() > moment + datetime.timedelta(seconds=1))
        self.assertEqual(self.notes_shown(), [])
        for _ in range(2):  # the second one finds the first at work, or nothing left to do
            self.start_keeper(INKWRIGHT_DEVICE="Z:\\elsewhere", INKWRIGHT_SCREEN="600x600")
        left, _, right, _ = self.page(f"{name} - Inkwright")["client"]
        self.assertLess(right - left, 241)
        self.assertEqual(len(self.notes_shown()), 1)


if __name__ == "__main__":
    desk.main()

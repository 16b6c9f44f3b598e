"""Alarms that fire: the note opens by itself after the program has ended, once."""
import datetime
import subprocess

import case
import desk

LINE = [(100, 200), (140, 220)]


class Alarms(case.Case):
    def set_alarm(self, seconds, folder="Work"):
        """Writes a note with an alarm so many seconds from now and closes it."""
        return self.set_alarm_at(datetime.datetime.now() + datetime.timedelta(seconds=seconds), folder)

    def set_alarm_at(self, moment, folder):
        weekday = moment.isoweekday() % 7 + 1  # 1 = Sunday
        code = f"{moment:%Y%m}{weekday}{moment:%d%H%M%S}"
        program, frame, page = self.open(f"/newalarm {code} {folder}", "[new] - Inkwright")
        self.desk.stroke(page, LINE)
        self.desk.ask(f"post {frame['handle']} {desk.WM_CLOSE} 0 0")
        self.desk.window(" Inkwright - Save As")
        self.desk.key("Return")
        done = desk.wait_for("the answer", lambda: next(
            (w for w in self.desk.windows() if w["text"].startswith(f" {moment.month}/{moment.day}/")), None))
        self.assertEqual(self.desk.child(done, id=0xFFFF)["text"], "Alarm is successfully set!")
        self.desk.key("Return")
        self.assertEqual(self.desk.finish(program), 0)
        return next((self.desk.root / folder).iterdir()).stem

    def notes_shown(self):
        return [w for w in self.desk.windows() if w["text"].endswith(" - Inkwright")]

    def notices(self):
        return [w for w in self.desk.ask("windows") if w["text"] == "Inkwright \u00bb Alarm" and w["visible"]]

    def end_keeper(self):
        subprocess.run(["wine", "taskkill", "/f", "/im", "inkalarms.exe"], env=self.desk.environment, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def test_notes_open_by_themselves_and_notices_follow(self):
        """Two alarms of the same second: the second note takes the first one's place, each has its notice."""
        moment = datetime.datetime.now() + datetime.timedelta(seconds=10)
        names = [self.set_alarm_at(moment, folder) for folder in ("Work", "Home")]
        self.assertEqual(self.notes_shown(), [])
        desk.wait_for("a note", self.notes_shown)
        desk.wait_for("both notices", lambda: len(self.notices()) == 2)
        texts = sorted(self.desk.child(notice, **{"class": "Static"})["text"] for notice in self.notices())
        self.assertEqual(texts, sorted(f"Inkwright \u00bb {name.split()[0]}\n\n{name}" for name in names))

    def test_whoever_ends_the_keeper_loses_no_alarm(self):
        name = self.set_alarm(5)
        self.end_keeper()
        due = datetime.datetime.now() + datetime.timedelta(seconds=6)
        desk.wait_for("the alarm to be due", lambda: datetime.datetime.now() > due)
        self.assertEqual(self.notes_shown(), [])
        for _ in range(2):  # the second one finds the first at work, or nothing left to do
            self.desk.running.append(
                subprocess.Popen(["wine", str(desk.PROGRAMS / "inkalarms.exe")], env=self.desk.environment))
        self.desk.window(f"{name} - Inkwright")
        self.assertEqual(len(self.notes_shown()), 1)


if __name__ == "__main__":
    case.main()

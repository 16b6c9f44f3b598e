"""Alarms that fire: the note opens by itself after the program has ended, once."""
import datetime
import pathlib
import shutil
import subprocess
import tempfile

import case
import desk

LINE = [(100, 200), (140, 220)]
RUN_KEY = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"


class Alarms(case.Case):
    def set_alarm(self, seconds, folder="Work", answer="Alarm is successfully set!", **environment):
        """Writes a note with an alarm so many seconds from now and closes it."""
        moment = datetime.datetime.now() + datetime.timedelta(seconds=seconds)
        return self.set_alarm_at(moment, folder, answer, **environment)

    def set_alarm_at(self, moment, folder, answer="Alarm is successfully set!", **environment):
        weekday = moment.isoweekday() % 7 + 1  # 1 = Sunday
        code = f"{moment:%Y%m}{weekday}{moment:%d%H%M%S}"
        program, frame, page = self.open(f"/newalarm {code} {folder}", "[new] - Inkwright", **environment)
        self.desk.stroke(page, LINE)
        self.desk.ask(f"post {frame['handle']} {desk.WM_CLOSE} 0 0")
        self.desk.window(" Inkwright - Save As")
        self.desk.key("Return")
        done = desk.wait_for("the answer", lambda: next(
            (w for w in self.desk.windows() if w["text"].startswith(f" {moment.month}/{moment.day}/")), None))
        self.assertEqual(self.desk.child(done, id=0xFFFF)["text"], answer)
        self.desk.key("Return")
        self.assertEqual(self.desk.finish(program), 0)
        return next((self.desk.root / folder).iterdir()).stem

    def notes_shown(self):
        return [w for w in self.desk.windows() if w["text"].endswith(" - Inkwright")]

    def notices(self):
        return [w for w in self.desk.ask("windows") if w["text"] == "Inkwright \u00bb Alarm" and w["visible"]]

    def text_of(self, notice):
        return self.desk.child(notice, **{"class": "Static"})["text"]

    def keepers(self):
        return [w for w in self.desk.ask("windows") if w["class"] == "InkwrightAlarmKeeper"]

    def start_keeper(self, **environment):
        self.desk.running.append(subprocess.Popen(["wine", str(self.desk.programs / "inkalarms.exe")],
                                                  env={**self.desk.environment, **environment}))
        desk.wait_for("the keeper", self.keepers)

    def stop_keeper(self, programs=None):
        stop = subprocess.run(["wine", str((programs or self.desk.programs) / "inkalarms.exe"), "/stop"], env=self.desk.environment,
                              check=False)
        self.assertEqual(stop.returncode, 0)
        self.assertEqual(self.keepers(), [])

    def starts_with_sessions(self):
        query = subprocess.run(["wine", "reg", "query", RUN_KEY, "/v", "InkwrightAlarms"], env=self.desk.environment,
                               check=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return query.returncode == 0

    def kill_keeper(self):
        subprocess.run(["wine", "taskkill", "/f", "/im", "inkalarms.exe"], env=self.desk.environment, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def wait_until(self, moment):
        desk.wait_for("the alarm to be due", lambda: datetime.datetime.now() > moment)

    def test_notes_open_by_themselves_and_notices_follow(self):
        """Two alarms of the same second: the second note takes the first one's place, each has its notice. One that
        the session's end takes away comes back, once."""
        moment = datetime.datetime.now() + datetime.timedelta(seconds=10)
        names = [self.set_alarm_at(moment, folder) for folder in ("Work", "Home")]
        self.assertEqual(self.notes_shown(), [])
        desk.wait_for("a note", self.notes_shown)
        desk.wait_for("both notices", lambda: len(self.notices()) == 2)
        expected = sorted(f"Inkwright \u00bb {name.split()[0]}\n\n{name}" for name in names)
        self.assertEqual(sorted(map(self.text_of, self.notices())), expected)
        first, second = sorted(self.notices(), key=lambda notice: notice["place"][1])
        self.assertLessEqual(first["place"][3], second["place"][1], "one above the other")

        kept = self.text_of(first)
        self.desk.ask(f"post {first['handle']} {desk.WM_ENDSESSION} 1 0")
        self.desk.click(self.desk.child(second, **{"class": "Static"})["place"])
        self.desk.key("Escape")
        desk.wait_for("both to go", lambda: not self.notices())
        for expected in ([kept], []):
            self.stop_keeper()
            self.start_keeper()
            desk.wait_for(f"{len(expected)} notices", lambda: len(self.notices()) == len(expected))
            self.assertEqual(list(map(self.text_of, self.notices())), expected)
            for notice in self.notices():
                self.desk.ask(f"post {notice['handle']} {desk.WM_CLOSE} 0 0")
            desk.wait_for("it to go", lambda: not self.notices())

    def test_whoever_ends_the_keeper_loses_no_alarm(self):
        name = self.set_alarm(5)
        self.kill_keeper()
        self.wait_until(datetime.datetime.now() + datetime.timedelta(seconds=6))
        self.assertEqual(self.notes_shown(), [])
        for _ in range(2):  # the second one finds the first at work, or nothing left to do
            self.start_keeper()
        self.desk.window(f"{name} - Inkwright")
        self.assertEqual(len(self.notes_shown()), 1)

    def test_an_alarm_waits_for_its_program(self):
        """Nothing is promised without a keeper; the note opens as it was left, whoever started the keeper."""
        self.desk.programs = pathlib.Path(tempfile.mkdtemp(prefix="inkwright-programs-"))
        self.addCleanup(shutil.rmtree, self.desk.programs)
        self.stop_keeper(desk.PROGRAMS)  # for an earlier test, it may start with sessions
        shutil.copy(desk.PROGRAMS / "inkwright.exe", self.desk.programs)
        self.set_alarm(60, "Lost", answer="Setting alarm failed!")
        self.assertFalse(self.starts_with_sessions())

        shutil.copy(desk.PROGRAMS / "inkalarms.exe", self.desk.programs)
        moment = datetime.datetime.now() + datetime.timedelta(seconds=5)
        name = self.set_alarm_at(moment, "Work", INKWRIGHT_SCREEN="240x320")
        self.assertTrue(self.starts_with_sessions())
        (self.desk.programs / "inkwright.exe").rename(self.desk.programs / "away.exe")
        self.wait_until(moment + datetime.timedelta(seconds=1))
        (self.desk.programs / "away.exe").rename(self.desk.programs / "inkwright.exe")
        self.stop_keeper()
        self.assertFalse(self.starts_with_sessions())
        self.start_keeper(INKWRIGHT_DEVICE="Z:\\elsewhere", INKWRIGHT_SCREEN="600x600")
        page = self.desk.page(self.desk.window(f"{name} - Inkwright"))
        self.assertLess(page["client"][2] - page["client"][0], 241)


if __name__ == "__main__":
    case.main()

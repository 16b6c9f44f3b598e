"""Two devices whose stores are kept in step by two real Syncthing instances: nothing that was written is lost."""
import json
import shutil
import socket
import struct
import subprocess
import sys
import urllib.request

import desk

ROW = 60
FOLDER, NOTE_CHANGED = "store", " Note Changed"
IDOK = 1


def strokes(path):
    """The first points of a note's strokes; raises on anything but a whole note."""
    data = path.read_bytes()
    version, _, slots, _ = struct.unpack_from("<IIii", data)
    assert version == 5
    at, found = 16, set()
    for _ in range(slots):
        (count,) = struct.unpack_from("<I", data, at)
        at += 4
        for _ in range(count):
            points, dx, _, _, _, _ = struct.unpack_from("<6i", data, at)
            x, y = struct.unpack_from("<2i", data, at + 24)
            found.add((x, y))
            at += 24 + 8 * points
    assert at == len(data), "a part of a note"
    return found


class Engine:
    """A Syncthing of its own home, reached on the loopback alone."""

    def __init__(self, home, store):
        self.home, self.store = home, store
        subprocess.run(["syncthing", "generate", "--no-default-folder", "--skip-port-probing", f"--home={home}"], check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        config = (home / "config.xml").read_text()
        self.key = config.partition("<apikey>")[2].partition("<")[0]
        self.device = config.partition('<device id="')[2].partition('"')[0]
        self.gui, self.listen = (self.free_port() for _ in range(2))
        self.process = None

    @staticmethod
    def free_port():
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            return probe.getsockname()[1]

    def start(self):
        self.process = subprocess.Popen(
            ["syncthing", "serve", f"--home={self.home}", "--no-browser", "--no-restart", "--no-upgrade",
             f"--gui-address=http://127.0.0.1:{self.gui}"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        desk.wait_for("the engine", self.answers)

    def stop(self):
        if self.process:
            self.process.terminate()
            self.process.wait()
        self.process = None

    def ask(self, path, method="GET", body=None):
        request = urllib.request.Request(f"http://127.0.0.1:{self.gui}/rest/{path}", method=method,
                                         data=None if body is None else json.dumps(body).encode(),
                                         headers={"X-API-Key": self.key, "Content-Type": "application/json"})
        with urllib.request.urlopen(request, timeout=10) as answer:
            return answer.read()

    def answers(self):
        try:
            return self.ask("system/ping")
        except OSError:
            return None

    def join(self, other):
        options = json.loads(self.ask("config/options"))
        options.update(globalAnnounceEnabled=False, localAnnounceEnabled=False, relaysEnabled=False, natEnabled=False,
                       urAccepted=-1, crashReportingEnabled=False, reconnectionIntervalS=1,
                       listenAddresses=[f"tcp://127.0.0.1:{self.listen}"])
        self.ask("config/options", "PUT", options)
        self.ask("config/devices", "POST",
                 {"deviceID": other.device, "name": "other", "addresses": [f"tcp://127.0.0.1:{other.listen}"]})
        self.ask("config/folders", "POST",
                 {"id": FOLDER, "path": str(self.store), "fsWatcherEnabled": True, "fsWatcherDelayS": 1,
                  "rescanIntervalS": 5, "devices": [{"deviceID": self.device}, {"deviceID": other.device}]})


class Sync(desk.Case):
    def setUp(self):
        super().setUp()
        self.other_root = self.device.parent / (self.device.name + "-other") / "My Documents" / "Inkwright"
        self.addCleanup(shutil.rmtree, self.other_root.parent.parent, ignore_errors=True)
        # A program file of its own: it is no other copy of the first.
        self.other_program = self.other_root.parent.parent / "other.exe"
        self.engines = []
        for root in (self.root, self.other_root):
            (root / "Work").mkdir(parents=True)
            (root / ".stignore").write_text("Temp\n*~\n")
            engine = Engine(root.parent.parent / "engine", root)
            self.engines.append(engine)
            self.addCleanup(engine.stop)
            engine.start()
        shutil.copy(desk.PROGRAMS / "inkwright.exe", self.other_program)
        for engine, other in (self.engines, self.engines[::-1]):
            engine.join(other)

    def open_other(self):
        return self.start(self.other_program, f"{desk.ROOT}\\Work\\a.ikw",
                          environment={"INKWRIGHT_DEVICE": desk.windows_path(self.other_root.parent.parent)})

    def other_window(self, title):
        return desk.wait_for(f"the other's {title!r}",
                             lambda: next((w for w in self.windows("other.exe") if w["text"] == title), None))

    def write(self, window, x):
        page = self.child(window, **{"class": "InkwrightPage"})
        self.stroke(page, [(x, ROW + 60), (x, ROW + 80)])

    def shows(self, window, x):
        page = self.child(window, **{"class": "InkwrightPage"})
        return self.pixel(page, x, ROW + 70) != desk.WHITE

    def written_here(self, x):
        """Another device's program opens the note, writes and closes."""
        program = self.open(f"{desk.ROOT}\\Work\\a.ikw")
        self.write(self.window("a - Inkwright"), x)
        self.close(program, "a - Inkwright")

    def notes(self, root):
        return {path.name: strokes(path) for path in (root / "Work").glob("*.ikw")}

    def wait_for_both(self, what, condition):
        def holds():
            try:
                return condition(self.notes(self.root)) and condition(self.notes(self.other_root))
            except (AssertionError, struct.error, FileNotFoundError):
                return False
        desk.wait_for(what, holds)

    def test_what_two_devices_write_is_all_there(self):
        def all_ink(notes):
            return set().union(*notes.values())
        self.put_note("Work/a.ikw", desk.note_bytes(588, [[(30, 120), (30, 140)]]))
        self.wait_for_both("the note on both", lambda notes: notes.get("a.ikw") == {(30, 120)})

        other = self.open_other()
        there = self.other_window("a - Inkwright")
        self.written_here(60)
        desk.wait_for("what came to show by itself", lambda: self.shows(there, 60))

        self.write(there, 90)
        self.written_here(120)
        ours = {(30, 120), (60, 120), (120, 120)}
        desk.wait_for("the change to come", lambda: strokes(self.other_root / "Work" / "a.ikw") == ours)
        self.post(there, desk.WM_CLOSE)
        self.post(self.other_window(NOTE_CHANGED), desk.WM_COMMAND, IDOK)
        self.assertEqual(self.finish(other), 0)
        self.wait_for_both("both versions", lambda notes: notes.get("a.ikw") == ours
                           and notes.get("a (conflict).ikw") == {(30, 120), (60, 120), (90, 120)})

        # Apart from each other: the engine keeps both.
        self.engines[1].stop()
        self.written_here(150)
        other = self.open_other()
        there = self.other_window("a - Inkwright")
        self.write(there, 180)
        self.post(there, desk.WM_CLOSE)
        self.assertEqual(self.finish(other), 0)
        self.engines[1].start()
        wanted = {(x, 120) for x in (30, 60, 90, 120, 150, 180)}
        self.wait_for_both("three versions", lambda notes: len(notes) == 3 and all_ink(notes) == wanted)
        for root in (self.root, self.other_root):
            self.assertEqual([p.name for p in (root / "Work").iterdir() if p.suffix != ".ikw"], [], "remnants")


if __name__ == "__main__":
    if not shutil.which("syncthing"):
        print("Skipped: no syncthing")
        sys.exit(77)
    desk.DEADLINE_SECONDS = 60
    desk.main()

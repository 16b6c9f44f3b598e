"""A desk for each test of the real Windows program: a display of its own, and eyes on the program's windows."""
import json
import os
import pathlib
import subprocess
import sys
import unittest

import whole
from whole import DEADLINE_SECONDS, ROOT, WHITE, note_bytes, wait_for  # noqa: F401 - for the tests

PROGRAMS = pathlib.Path(os.environ["INKWRIGHT_WINDOWS_BUILD"])
PREFIX = os.environ.get("WINEPREFIX", os.environ["INKWRIGHT_WINE_STATE"])
TOOLS = pathlib.Path(__file__).resolve().parent.parent.parent / "tools"
SETTINGS = "HKCU\\Software\\Larkspur Works\\Inkwright"
WM_CLOSE, WM_ENDSESSION, WM_COMMAND = 0x0010, 0x0016, 0x0111
MESSAGE_TEXT = 0xFFFF


def windows_path(path):
    return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")


class Case(whole.Case):
    """An empty device and empty settings for each test."""

    def setUp(self):
        super().setUp()
        self.environment = dict(os.environ, WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree=;mshtml=", LC_ALL="C.UTF-8",
                                WINEPREFIX=PREFIX, INKWRIGHT_DEVICE=windows_path(self.device))
        display, self.environment["DISPLAY"] = whole.start_display()
        self.addCleanup(display.wait)
        self.addCleanup(display.terminate)
        self.running = []
        self.addCleanup(self.stop_wine)
        subprocess.run(["bash", "-c", '. "$0" && use_wine_prefix "$1" && let_wine_manage_windows yes',
                        TOOLS / "environment.sh", PREFIX], env=self.environment, check=True)
        # Alarms of an earlier test would fire in this one.
        self.finish(self.start("reg", "delete", SETTINGS.rpartition("\\")[0], "/f"))
        self.assertEqual(self.finish(self.start("reg", "add", SETTINGS, "/v", "RootDirPath", "/d", ROOT)), 0)
        self.probe = self.start(PROGRAMS / "wine_probe.exe", stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def stop_wine(self):
        subprocess.run(["wineserver", "--kill"], env=self.environment, check=False)
        for program in self.running:
            with program:  # waits for it and closes its pipes
                pass

    # Seeing

    def ask(self, command):
        self.probe.stdin.write(command + "\n")
        self.probe.stdin.flush()
        return json.loads(self.probe.stdout.readline())

    def windows(self, program="inkwright.exe"):
        """The visible top-level windows of a program."""
        return [w for w in self.ask("windows") if w["program"].lower() == program and w["visible"]]

    def window(self, title):
        return wait_for(f"a window titled {title!r}",
                        lambda: next((w for w in self.windows() if w["text"] == title), None))

    def child(self, parent, **wanted):
        """The first window within `parent` with these properties."""
        return wait_for(f"a control with {wanted}", lambda: next(
            (c for c in self.ask(f"children {parent['handle']}") if all(c[k] == v for k, v in wanted.items())), None))

    def page(self, title):
        return self.child(self.window(title), **{"class": "InkwrightPage"})

    def pixel(self, page, x, y):
        return self.ask(f"pixel {page['handle']} {x} {y}")

    def wait_for_menu(self):
        wait_for("a menu", lambda: [w for w in self.windows() if w["class"] == "#32768"])

    def wait_until_gone(self, window):
        wait_for(f"{window['text']!r} to go away",
                 lambda: all(w["handle"] != window["handle"] for w in self.windows()))

    # Doing

    def start(self, *command, environment=None, stdout=subprocess.DEVNULL, **options):
        program = subprocess.Popen(["wine", *map(str, command)], env={**self.environment, **(environment or {})},
                                   stdout=stdout, stderr=subprocess.DEVNULL, **options)
        self.running.append(program)
        return program

    def open(self, *arguments, **environment):
        """Starts the program."""
        return self.start(PROGRAMS / "inkwright.exe", *arguments, environment=environment)

    def close(self, program, title):
        self.post(self.window(title), WM_CLOSE)
        self.assertEqual(self.finish(program), 0)

    def post(self, window, message, wparam=0):
        self.ask(f"post {window['handle']} {message} {wparam} 0")

    def stroke(self, page, points):
        """Writes with the pointer. Each step is waited for until it shows: the system merges moves that nobody fetches,
        and messages sent by hand overtake the pointer's."""
        left, top = page["client"][:2]
        has_pen = lambda: self.ask(f"haspen {page['handle']}")
        self.xdotool("mousemove", left + points[0][0], top + points[0][1], "mousedown", 1)
        wait_for("the pen to be down", has_pen)
        for x, y in points[1:]:
            self.xdotool("mousemove", left + x, top + y)
            wait_for(f"the step to {x}, {y} to show", lambda: self.pixel(page, x, y) != WHITE)
        self.xdotool("mouseup", 1)
        wait_for("the pen to be up", lambda: not has_pen())


def main():
    needed = [PROGRAMS / name for name in ("inkwright.exe", "inkwright-export.exe", "wine_probe.exe", "contract_test.exe")]
    missing = [str(path) for path in needed if not path.exists()]
    if missing:
        print("Skipped: not built:", *missing)
        sys.exit(77)
    unittest.main(module="__main__", verbosity=2)

"""A desk for the real program: a display and a Wine prefix of its own, a hand on the pointer and the keyboard,
and eyes on its windows. Nothing here sleeps for a guessed time: everything waits for what it needs, with a
deadline."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

DEADLINE_SECONDS = 20
POLL_SECONDS = 0.01
STATE = pathlib.Path(os.environ["INKWRIGHT_WINE_STATE"])
PROGRAMS = pathlib.Path(os.environ["INKWRIGHT_WINDOWS_BUILD"])

WM_CLOSE = 0x0010
WM_ENDSESSION = 0x0016
WM_COMMAND = 0x0111
TB_GETSTATE = 0x0400 + 18
CHECKED, ENABLED = 1, 4
ROOT = "\\My Documents\\Inkwright"


def wait_for(what, condition):
    """Polls until the condition gives something true, and returns that."""
    end = time.monotonic() + DEADLINE_SECONDS
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"waited {DEADLINE_SECONDS} s in vain for {what}")
        time.sleep(POLL_SECONDS)


class Desk:
    def __init__(self):
        self.programs = PROGRAMS
        self.device = pathlib.Path(tempfile.mkdtemp(prefix="inkwright-device-"))
        self.root = self.device / "My Documents" / "Inkwright"
        self.environment = dict(os.environ, WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree=;mshtml=", LC_ALL="C.UTF-8",
                                WINEPREFIX=os.environ.get("WINEPREFIX", str(STATE / "prefix")))
        self.environment["INKWRIGHT_DEVICE"] = self.windows_path(self.device)
        self.running = []
        self._probe = None
        self._start_display()
        try:
            self._prepare_prefix()
            self._start_probe()
        except BaseException:
            self.close()
            raise

    def _start_probe(self):
        self._probe = subprocess.Popen(["wine", str(PROGRAMS / "wine_probe.exe")], env=self.environment, text=True,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.ask("clean")
        self.ask("settext RootDirPath " + ROOT)

    def _start_display(self):
        reader, writer = os.pipe()
        self._display = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()

    def _prepare_prefix(self):
        prefix = pathlib.Path(self.environment["WINEPREFIX"])
        if (prefix / ".ready").exists():
            return
        prefix.mkdir(parents=True, exist_ok=True)
        for command in (["wineboot", "--init"], ["wineserver", "--wait"]):
            subprocess.run(command, env=self.environment, check=True, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL)
        (prefix / ".ready").touch()

    def windows_path(self, path):
        return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")

    def close(self):
        subprocess.run(["wineserver", "--kill"], env=self.environment, check=False, stderr=subprocess.DEVNULL)
        for program in self.running + ([self._probe] if self._probe else []):
            program.wait(DEADLINE_SECONDS)
        if self._probe:
            self._probe.stdin.close()
            self._probe.stdout.close()
        self._display.terminate()
        self._display.wait()
        shutil.rmtree(self.device, ignore_errors=True)

    # Seeing

    def ask(self, command):
        self._probe.stdin.write(command + "\n")
        self._probe.stdin.flush()
        return json.loads(self._probe.stdout.readline())

    def windows(self):
        """The visible top-level windows of the program."""
        return [w for w in self.ask("windows") if w["program"].lower() == "inkwright.exe" and w["visible"]]

    def window(self, title):
        return wait_for(f"a window titled {title!r}",
                        lambda: next((w for w in self.windows() if w["text"] == title), None))

    def child(self, parent, **wanted):
        """The first window within `parent` with these properties."""
        return wait_for(f"a control with {wanted}", lambda: next(
            (c for c in self.ask(f"children {parent['handle']}") if all(c[k] == v for k, v in wanted.items())), None))

    def page(self, frame):
        return self.child(frame, **{"class": "InkwrightPage"})

    def pixel(self, page, x, y):
        return self.ask(f"pixel {page['handle']} {x} {y}")

    def tool_state(self, frame, command):
        bar = self.child(frame, **{"class": "ToolbarWindow32"})
        return self.ask(f"send {bar['handle']} {TB_GETSTATE} {command} 0")

    def text_setting(self, name):
        return bytes(self.ask("setting " + name)[1]).decode("utf-16-le").rstrip("\0")

    def wait_until_gone(self, window):
        wait_for(f"{window['text']!r} to go away",
                 lambda: all(w["handle"] != window["handle"] for w in self.windows()))

    # Doing

    def start(self, arguments="", **environment):
        """Starts the program; `arguments` reach it exactly as they are written."""
        program = subprocess.Popen(["wine", str(self.programs / "inkwright.exe"), *arguments.split()],
                                   env={**self.environment, **environment}, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.running.append(program)
        return program

    def finish(self, program):
        """Waits for the program's own end and returns its exit code."""
        code = program.wait(DEADLINE_SECONDS)
        self.running.remove(program)
        return code

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True)

    def key(self, name):
        self.xdotool("key", name)

    def click(self, place):
        left, top, right, bottom = place
        self.xdotool("mousemove", (left + right) // 2, (top + bottom) // 2, "click", 1)

    def post_command(self, window, command):
        self.ask(f"post {window['handle']} {WM_COMMAND} {command} 0")

    def stroke(self, page, points):
        """Writes with the pointer."""
        paper = self.pixel(page, *points[-1])
        self.drag(page, points, lambda x, y: self.pixel(page, x, y) != paper)

    def drag(self, page, points, is_shown):
        """Moves the pointer with its button down. Each step is waited for until it shows: the system merges moves
        that nobody fetches, and messages sent by hand overtake the pointer's."""
        left, top = page["client"][:2]
        has_pen = lambda: self.ask(f"haspen {page['handle']}")
        self.xdotool("mousemove", left + points[0][0], top + points[0][1], "mousedown", 1)
        wait_for("the pen to be down", has_pen)
        for x, y in points[1:]:
            self.xdotool("mousemove", left + x, top + y)
            wait_for(f"the step to {x}, {y} to show", lambda: is_shown(x, y))
        self.xdotool("mouseup", 1)
        wait_for("the pen to be up", lambda: not has_pen())

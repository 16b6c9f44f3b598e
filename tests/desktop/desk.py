"""A desk for the tests of the real native program: a display and a session bus of their own, and eyes on the program's
controls as a screen reader has them. The tests of a file share display and bus; each has its own device and home."""
import contextlib
import ctypes
import mmap
import os
import pathlib
import signal
import struct
import subprocess
import sys
import tempfile
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

import whole  # noqa: E402
from whole import ROOT, WHITE, note_bytes  # noqa: E402, F401 - for the tests

PROGRAMS = pathlib.Path(os.environ["INKWRIGHT_LINUX_BUILD"])
SCREEN = "INKWRIGHT_TEST_SCREEN"
SETTINGS = r"""[Software\Larkspur Works\Inkwright]
"RootDirPath" = text "\\My Documents\\Inkwright"
"""
BECOME_PARENT_OF_ORPHANS = 36  # prctl

FOCUSABLE, SHOWING, ACTIVE, ENABLED, FOCUSED = (
    Atspi.StateType.FOCUSABLE, Atspi.StateType.SHOWING, Atspi.StateType.ACTIVE, Atspi.StateType.ENABLED,
    Atspi.StateType.FOCUSED)


def is_in(node, *states):
    """Whether a control is in all these states; one that has gone is in none."""
    with contextlib.suppress(GLib.Error):
        found = node.get_state_set()
        return all(found.contains(state) for state in states)
    return False


def children(node):
    """Those that show. What goes away meanwhile is left out."""
    with contextlib.suppress(GLib.Error):
        found = [node.get_child_at_index(i) for i in range(node.get_child_count())]
        return [child for child in found if child and is_in(child, SHOWING)]
    return []


def below(node):
    """A control and all that shows in it."""
    yield node
    for child in children(node):
        yield from below(child)


def described(node):
    with contextlib.suppress(GLib.Error):
        return node.get_role_name(), node.get_name()
    return "", ""


def windows():
    """All that show, of whatever program."""
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)
    return [window for application in children(desktop) for window in children(application)]


def everything():
    return [node for window in windows() for node in below(window)]


def wait_for(what, condition):
    try:
        return whole.wait_for(what, condition)
    except AssertionError as failure:
        seen = "\n".join(str(described(node)) for node in everything())
        if picture := os.environ.get("INKWRIGHT_PICTURE"):
            subprocess.run(["import", "-window", "root", picture], check=False)
        raise AssertionError(f"{failure}; on the screen are\n{seen}") from None


def label_of(node):
    """What the label beside a control says."""
    with contextlib.suppress(GLib.Error):
        for relation in node.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
    return ""


class Display:
    """What is on the screen, read from the display's own memory."""

    def __init__(self, folder):
        with open(pathlib.Path(folder) / "Xvfb_screen0", "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        head = struct.unpack(">20I", self.memory[:80])
        self.start, self.row = head[0] + 12 * head[19], head[12]

    def pixel(self, x, y):
        return int.from_bytes(self.memory[(at := self.start + y * self.row + 4 * x):at + 3], "little")


class Case(whole.Case):
    """An empty device and home for each test, and nothing running from the one before."""

    def setUp(self):
        super().setUp()
        home = pathlib.Path(tempfile.mkdtemp(dir=self.device))
        folders = {name: str(home / name.lower()) for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR")}
        for folder in folders.values():
            os.mkdir(folder, 0o700)
        self.environment = dict(os.environ, HOME=str(home), INKWRIGHT_DEVICE=str(self.device), LC_ALL="C.UTF-8",
                                QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", **folders)
        settings = pathlib.Path(folders["XDG_CONFIG_HOME"]) / "inkwright" / "settings"
        settings.parent.mkdir()
        settings.write_text(SETTINGS)
        self.display = Display(os.environ[SCREEN])
        self.addCleanup(self.end_all)

    def end_all(self):
        """Ends whatever was started here, by whomever."""
        children = pathlib.Path(f"/proc/self/task/{os.getpid()}/children")
        while numbers := children.read_text().split():
            for number in numbers:
                os.kill(int(number), signal.SIGKILL)
                os.waitpid(int(number), 0)

    def open(self, *arguments, program="inkwright", **environment):
        return subprocess.Popen([PROGRAMS / program, *map(str, arguments)], env={**self.environment, **environment})

    # Seeing

    def window(self, title):
        """Waits until it is the one that has the keyboard."""
        return wait_for(f"a window titled {title!r}", lambda: next(
            (w for w in windows() if described(w)[1] == title and is_in(w, ACTIVE)), None))

    def wait_until_gone(self, name):
        wait_for(f"{name!r} to go away", lambda: name not in [described(node)[1] for node in everything()])

    def control(self, window, role, name):
        return wait_for(f"{role} {name!r}", lambda: next(
            (node for node in below(window) if described(node) == (role, name)), None))

    def place(self, node):
        """Its left, top, width and height on the screen."""
        box = node.get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    # Doing

    def click(self, node, button=1):
        left, top, width, height = self.place(node)
        self.xdotool("mousemove", left + width // 2, top + height // 2, "click", button)

    def press(self, title, name, role="push button"):
        """What can be pressed in the window that has the keyboard."""
        control = wait_for(f"{role} {name!r} of {title!r}", lambda: next(
            (node for window in windows() if described(window)[1] == title and is_in(window, ACTIVE)
             for node in below(window) if described(node) == (role, name) and is_in(node, ENABLED)), None))
        self.act(control)

    def act(self, control):
        """As a screen reader does."""
        self.assertTrue(Atspi.Action.do_action(control, 0))

    def choose(self, name):
        """An entry of the menu that is open."""
        entry = wait_for(f"the entry {name!r}", lambda: next(
            (node for node in everything() if described(node) == ("menu item", name)), None))
        self.click(entry)

    def page(self, title):
        return self.control(self.window(title), "canvas", "Page")

    def stroke(self, page, points):
        """Writes with the pointer, and waits until the end shows."""
        left, top = self.place(page)[:2]
        on_screen = [(left + x, top + y) for x, y in points]
        steps = [word for place in on_screen[1:] for word in ("mousemove", *place)]
        self.xdotool("mousemove", *on_screen[0], "mousedown", 1, *steps, "mouseup", 1)
        self.wait_for_ink(page, [points])

    def wait_for_ink(self, page, strokes, there=True):
        left, top = self.place(page)[:2]
        wait_for("the ink" if there else "no ink", lambda: all(
            (self.display.pixel(left + x, top + y) != WHITE) == there for points in strokes for x, y in points))

    def close(self, program, title):
        self.window(title)
        self.keys("ctrl+w")
        self.assertEqual(self.finish(program), 0)


def main():
    if not (PROGRAMS / "inkwright").exists():
        print("Skipped: not built:", PROGRAMS / "inkwright")
        sys.exit(77)
    if SCREEN in os.environ:
        ctypes.CDLL(None).prctl(BECOME_PARENT_OF_ORPHANS, 1)
        windows()  # starts what programs tell of themselves; one that comes first may not be heard
        unittest.main(module="__main__", verbosity=2)
    with tempfile.TemporaryDirectory(prefix="inkwright-screen-") as folder:
        display, number = whole.start_display("-nocursor", "-fbdir", folder)
        # The bus of the accessible programs is started by the session's, for this display.
        status = subprocess.run(["dbus-run-session", "--", sys.executable, "-B", *sys.argv],
                                env={**os.environ, "DISPLAY": number, SCREEN: folder}, check=False).returncode
        display.terminate()
        display.wait()
    sys.exit(status)

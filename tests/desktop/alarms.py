"""Alarms that fire after the program has ended: the note opens by itself, and a notice tells which it was."""
import datetime

from gi.repository import Gio, GLib

import desk

LINE = [(100, 200), (140, 220)]
NOTICE = "Inkwright \u00bb Alarm"
NAME, PLACE = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
INTERFACE = f"""<node><interface name="{NAME}"><method name="Notify">
{"".join(f'<arg type="{kind}" direction="in"/>' for kind in ("s", "u", "s", "s", "s", "as", "a{sv}", "i"))}
<arg type="u" direction="out"/></method></interface></node>"""


class Desktop:
    """A stand-in for the desktop's service of notices, which takes one."""

    def __init__(self):
        self.notices = []
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        Gio.bus_own_name_on_connection(self.bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
        self.bus.register_object(PLACE, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], self.on_call, None, None)

    def on_call(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        if self.notices:
            return invocation.return_dbus_error("org.freedesktop.DBus.Error.ServiceUnknown", "gone")
        self.notices.append(arguments.unpack())
        return invocation.return_value(GLib.Variant("(u)", (7,)))

    def look(self):
        """Answers what has come."""
        while GLib.MainContext.default().iteration(False):
            pass
        return self.notices

    def press(self, action):
        self.bus.emit_signal(None, PLACE, NAME, "ActionInvoked", GLib.Variant("(us)", (7, action)))


class Alarms(desk.Case):
    def set_alarm(self, seconds):
        """Writes a note and sets an alarm so many seconds from now, which ends the program. Gives the note's name."""
        program = self.open("/newnotes", "Work")
        self.stroke(self.page("[new] - Inkwright"), LINE)
        self.press("[new] - Inkwright", "Tools")
        self.choose("Set Alarm and Exit")
        self.click(self.control(self.window("Set Alarm"), "spin button", "Time"))
        moment = datetime.datetime.now() + datetime.timedelta(seconds=seconds)
        self.keys("Home")
        self.xdotool("type", f"{moment:%I:%M:%S%p}")
        self.press("Set Alarm", "Set")
        self.press(" Inkwright - Save As", "OK")
        done = desk.wait_for("the answer", lambda: next((
            title for _, title in map(desk.described, desk.windows()) if f"{moment.month}/{moment.day}/" in title), None))
        self.assertIn(f"{moment:%I:%M:%S}".lstrip("0"), done)
        self.control(self.window(done), "label", "Alarm is successfully set!")
        self.press(done, "OK")
        self.assertEqual(self.finish(program), 0)
        note, = (self.root / "Work").iterdir()
        return note.stem

    def test_the_note_opens_by_itself_and_a_notice_follows(self):
        """One to the desktop's service, and one in a window of ours, when that takes none."""
        desktop = Desktop()
        name = self.set_alarm(seconds=6)
        self.assertEqual(desk.windows(), [])
        self.wait_for_ink(self.page(f"{name} - Inkwright"), [LINE])
        self.keys("ctrl+w")
        self.close(self.open(self.put_note("Work/Second.ikw"), "/alarm"), "Second - Inkwright")
        desk.wait_for("the notice", desktop.look)
        _, _, _, title, text, actions, _, _ = desktop.notices[0]
        self.assertEqual((title, text), (NOTICE, f"Inkwright \u00bb Work\n\n{name}"))
        self.assertIn("open", actions)
        ours = desk.wait_for("a window of ours", lambda: desktop.look() and next(
            (w for w in desk.windows() if desk.described(w)[1] == NOTICE), None))
        self.control(ours, "label", "Inkwright \u00bb Work\n\nSecond")
        desktop.press("open")
        self.window("Inkwright")
        self.act(self.control(ours, "push button", "Open"))
        self.wait_until_gone(NOTICE)
        self.window("Inkwright")


if __name__ == "__main__":
    desk.main()

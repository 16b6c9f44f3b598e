"""The native program on Wayland: a note that is written, saved and opened again, below a compositor that shows what it
has on the tests' own display."""
import pathlib
import subprocess

import desk

LINES = ([(300, 200), (300, 260), (340, 300)], [(60, 150), (100, 160), (140, 150)])


class Wayland(desk.Case):
    def setUp(self):
        super().setUp()
        socket = pathlib.Path(self.environment["XDG_RUNTIME_DIR"]) / "compositor"
        # The shell of kiosks puts a window over all of the screen, which tells where it is.
        subprocess.Popen(["weston", "--backend=x11-backend.so", "--use-pixman", "--shell=kiosk-shell.so", "--no-config",
                          "--width=1024", "--height=768", f"--socket={socket.name}", f"--log={socket}.log"],
                         env=self.environment)
        desk.wait_for("the compositor", socket.is_socket)
        self.environment.update(QT_QPA_PLATFORM="wayland", WAYLAND_DISPLAY=socket.name)
        del self.environment["DISPLAY"]

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], check=True, timeout=desk.whole.DEADLINE_SECONDS)

    def test_a_note_is_written_saved_and_opened_again(self):
        program = self.open("/newnotes", "Work")
        page = self.page("[new] - Inkwright")
        height = self.place(page)[3]
        for points in LINES:
            self.stroke(page, points)
        # Compositors let menus open where a button was pressed only.
        self.click(self.control(self.window("[new] - Inkwright"), "push button", "More Colors"))
        self.control(self.window("[new] - Inkwright"), "canvas", "Color Palette")
        self.keys("Escape")
        self.wait_until_gone("Color Palette")
        self.click(self.control(self.window("[new] - Inkwright"), "push button", "Tools"))
        self.control(self.window("[new] - Inkwright"), "menu item", "Edit Text Memo")
        self.keys("Escape")
        self.wait_until_gone("Edit Text Memo")
        self.keys("ctrl+w")
        self.press(" Inkwright - Save As", "OK")
        self.assertEqual(self.finish(program), 0)
        note, = (self.root / "Work").iterdir()
        self.assertEqual(note.read_bytes(), desk.note_bytes(height, LINES))
        program = self.open(note)
        self.wait_for_ink(self.page(f"{note.stem} - Inkwright"), LINES)
        self.close(program, f"{note.stem} - Inkwright")


if __name__ == "__main__":
    desk.main()

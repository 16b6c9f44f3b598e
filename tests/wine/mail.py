"""The mail programs: an independent reader understands their messages, and the desktop's mail program gets the file."""
import email
import email.policy
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

import case
import desk

FAKE = """#!/bin/sh
printf '%s\\n' "$@" >"$0.arguments.new"
mv "$0.arguments.new" "$0.arguments"
"""
NOTE = "memo_2026-11-21(101010)"
SEND = 32913


def bitmap(width):
    """An 8-bit BMP of one row and any number of bytes."""
    head = 14 + 40 + 4 * 256
    size = head + width
    return (b"BM" + size.to_bytes(4, "little") + bytes(4) + head.to_bytes(4, "little") +
            b"".join(n.to_bytes(4, "little") for n in (40, width, 1, 0x80001, 0, 0, 0, 0, 0, 0)) +
            bytes(range(256)) * 4 + bytes(i * 7 & 0xFF for i in range(width)))


class Mail(case.Case):
    def setUp(self):
        super().setUp()
        self.temp = self.desk.root / "Temp"
        self.temp.mkdir(parents=True)
        self.tools = pathlib.Path(tempfile.mkdtemp(prefix="inkwright-tools-"))
        self.addCleanup(shutil.rmtree, self.tools)
        self.desk.environment["PATH"] = f"{self.tools}:{os.environ['PATH']}"

    def put_mail_tool(self, ending):
        tool = self.tools / "xdg-email"
        tool.write_text(FAKE + ending)
        tool.chmod(0o755)
        return tool.with_name("xdg-email.arguments")

    def put_picture(self, name, width=100):
        picture = self.temp / name
        picture.write_bytes(bitmap(width))
        return picture

    def start_mail(self, *arguments, program="pmail.exe"):
        run = subprocess.Popen(["wine", str(desk.PROGRAMS / program), *arguments], env=self.desk.environment,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.desk.running.append(run)
        return run

    def windows_of(self, program):
        return [w for w in self.desk.ask("windows") if w["program"].lower() == program and w["visible"]]

    def answer_box(self, *parts):
        """Dismisses the message box and checks that its text has these parts."""
        box = desk.wait_for("a message", lambda: next(iter(self.windows_of("pmail.exe")), None))
        self.assertEqual(box["text"], " Inkwright")
        text = self.desk.child(box, id=0xFFFF)["text"]
        for part in parts:
            self.assertIn(part, text)
        self.desk.ask(f"post {box['handle']} {desk.WM_CLOSE} 0 0")

    def check_message(self, path, picture):
        raw = path.read_bytes()
        self.assertTrue(raw.isascii())
        self.assertEqual(raw.count(b"\n"), raw.count(b"\r\n"))
        self.assertLessEqual(max(map(len, raw.split(b"\r\n"))), 76)
        message = email.message_from_bytes(raw, policy=email.policy.default)
        self.assertEqual([part.defects for part in message.walk()], [[]] * 3)
        self.assertEqual([h.defects for part in message.walk() for h in part.values() if h.defects], [])
        self.assertEqual(message["X-Unsent"], "1")
        self.assertEqual(message["Subject"], picture.stem)
        self.assertLess(abs(time.time() - message["Date"].datetime.timestamp()), 60)
        self.assertIn("Inkwright", message.get_body().get_content())
        attachment, = message.iter_attachments()
        self.assertEqual(attachment.get_content_type(), "image/bmp")
        self.assertEqual(attachment.get_filename(), picture.name)
        self.assertEqual(attachment.get_param("name"), picture.name)
        self.assertEqual(attachment.get_content(), picture.read_bytes())

    def test_messages_carry_any_picture(self):
        arguments = self.put_mail_tool("exit 0\n")
        for program, name, width in (("pmail.exe", NOTE, 200000), ("tmail.exe", "\u00df\u6771\U0001f58b" * 20, 1),
                                     ("pmail.exe", "$HOME & `id` 'a'; %41 = #" + "long" * 12, 2)):
            with self.subTest(name=name):
                picture = self.put_picture(name + ".bmp", width)
                path = "\\My Documents\\Inkwright\\Temp\\" + picture.name
                if width == 2:
                    path = self.desk.windows_path(picture)
                self.assertEqual(self.desk.finish(self.start_mail("-attach", path, program=program)), 0)
                switch, attached = arguments.read_text().splitlines()
                self.assertEqual(switch, "--attach")
                self.assertTrue(os.path.samefile(attached, picture))
                arguments.unlink()
                self.check_message(picture.with_suffix(".eml"), picture)

    def test_the_editor_sends_a_note(self):
        arguments = self.put_mail_tool("exit 0\n")
        self.put_note("a.ikw", case.note_bytes(588, [[(0x800000, [(100, 200), (140, 220)])]]))
        program, frame, _ = self.open(f"{desk.ROOT}\\a.ikw", "a - Inkwright")
        self.desk.post_command(frame, SEND)
        desk.wait_for("the mail program", arguments.exists)
        picture = pathlib.Path(arguments.read_text().splitlines()[1])
        self.assertEqual(picture.read_bytes()[:2], b"BM")
        self.check_message(picture.with_suffix(".eml"), picture)
        self.close(program, frame)

    def test_without_a_mail_program_the_folder_opens(self):
        """Nor are others' files touched, whatever their names; old messages of ours go."""
        arguments = self.put_mail_tool("exit 3\n")
        picture = self.put_picture(NOTE + ".bmp")
        foreign = picture.with_suffix(".eml")
        old, old_foreign, young = (self.temp / f"memo_{n}.eml" for n in ("old", "letter", "young"))
        for path, text, days in ((foreign, "mine", 0), (old_foreign, "mine", 2),
                                 (old, "X-Unsent: 1\r\nX-Mailer: Inkwright\r\n", 1.1),
                                 (young, "X-Unsent: 1\r\nX-Mailer: Inkwright\r\n", 0.9)):
            path.write_text(text, newline="")
            os.utime(path, (time.time() - days * 86400,) * 2)
        program = self.start_mail("-attach", self.desk.windows_path(picture))
        self.answer_box("No mail program was found.", self.desk.windows_path(picture))
        self.assertTrue(arguments.exists())
        self.assertNotEqual(self.desk.finish(program), 0)
        desk.wait_for("the folder", lambda: [w for w in self.windows_of("explorer.exe") if w["text"] == "Temp"])
        self.assertEqual(foreign.read_text(), "mine")
        self.assertEqual([p.exists() for p in (old, old_foreign, young)], [False, True, True])

    def registry(self, *arguments):
        subprocess.run(["wine", "reg", *arguments, "/f"], env=self.desk.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def test_a_message_opens_with_its_registered_program(self):
        self.put_mail_tool("exit 3\n")
        picture = self.put_picture(NOTE + ".bmp")
        classes = "HKLM\\Software\\Classes\\"
        for key, below, text in ((".eml", "", "InkwrightTestMail"),
                                 ("InkwrightTestMail", "\\shell\\open\\command", 'notepad.exe "%1"')):
            self.registry("add", classes + key + below, "/ve", "/d", text)
            self.addCleanup(self.registry, "delete", classes + key)
        self.assertEqual(self.desk.finish(self.start_mail("-attach", self.desk.windows_path(picture))), 0)
        desk.wait_for("the message", lambda: [w for w in self.windows_of("notepad.exe") if NOTE in w["text"]])

    def test_a_mail_program_that_stays_open_is_left_alone(self):
        go_on = self.tools / "go_on"
        arguments = self.put_mail_tool(f"while ! test -e '{go_on}'; do sleep 0.1; done\ntouch '{go_on}.seen'\n")
        picture = self.put_picture(NOTE + ".bmp")
        self.assertEqual(self.desk.finish(self.start_mail("-attach", self.desk.windows_path(picture))), 0)
        self.assertTrue(arguments.exists())
        go_on.touch()
        desk.wait_for("the mail program's own end", (self.tools / "go_on.seen").exists)

    def test_it_tells_what_is_missing(self):
        none = self.desk.windows_path(self.desk.device / "none.bmp")
        for arguments, parts in (([], ["-attach"]), (["-attach"], ["-attach"]),
                                 (["-attach", "\\none.bmp"], ["cannot be read", none]),
                                 (["-attach", "C:\\none.bmp"], ["cannot be read", "C:\\none.bmp"]),
                                 (["-attach", "\\a?b.bmp"], ["cannot be read", "\\a?b.bmp"])):
            with self.subTest(arguments=arguments):
                program = self.start_mail(*arguments)
                self.answer_box(*parts)
                self.assertNotEqual(self.desk.finish(program), 0)


if __name__ == "__main__":
    case.main()

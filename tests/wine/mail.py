"""The mail programs: an independent reader understands their messages, and the desktop's mail program gets the file."""
import email
import email.policy
import os
import pathlib

import desk

FAKE = """#!/bin/sh
printf '%s\\n' "$@" >"$0.arguments.new"
mv "$0.arguments.new" "$0.arguments"
"""
SEND = 32913


class Mail(desk.Case):
    def setUp(self):
        super().setUp()
        self.environment["PATH"] = f"{self.device}:{os.environ['PATH']}"
        self.temp = self.root / "Temp"
        self.temp.mkdir(parents=True)

    def put_mail_tool(self, ending):
        tool = self.device / "xdg-email"
        tool.write_text(FAKE + ending)
        tool.chmod(0o755)
        return tool.with_name("xdg-email.arguments")

    def put_picture(self, name):
        picture = self.temp / name
        picture.write_bytes(b"BM" + bytes(range(256)) * 800)
        return picture

    def start_mail(self, *arguments, program="pmail.exe"):
        return self.start(desk.PROGRAMS / program, *arguments)

    def check_message(self, arguments):
        """That of the picture which the mail program got."""
        switch, attached = arguments.read_text().splitlines()
        self.assertEqual(switch, "--attach")
        picture = pathlib.Path(attached)
        raw = picture.with_suffix(".eml").read_bytes()
        self.assertTrue(raw.isascii() and raw.count(b"\n") == raw.count(b"\r\n"))
        message = email.message_from_bytes(raw, policy=email.policy.default)
        self.assertEqual([part.defects for part in message.walk()], [[]] * 3)
        self.assertEqual((message["X-Unsent"], message["Subject"]), ("1", picture.stem))
        attachment, = message.iter_attachments()
        self.assertEqual(attachment.get_filename(), picture.name)
        self.assertEqual(attachment.get_content(), picture.read_bytes())

    def test_messages_carry_any_picture(self):
        arguments = self.put_mail_tool("exit 0\n")
        for program, name in (("tmail.exe", "\u00df\u6771\U0001f58b" * 20), ("pmail.exe", "$HOME & `id` 'a'; %41 = #")):
            picture = self.put_picture(name + ".bmp")
            self.assertEqual(self.finish(self.start_mail("-attach", desk.windows_path(picture), program=program)), 0)
            self.check_message(arguments)

    def test_the_editor_sends_a_note(self):
        arguments = self.put_mail_tool("exit 0\n")
        self.put_note("a.ikw", desk.note_bytes(588, [[(100, 200), (140, 220)]]))
        program = self.open(f"{desk.ROOT}\\a.ikw")
        self.post(self.window("a - Inkwright"), desk.WM_COMMAND, SEND)
        desk.wait_for("the mail program", arguments.exists)
        self.check_message(arguments)
        self.close(program, "a - Inkwright")

    def test_without_a_mail_program_the_folder_opens(self):
        """Nor is another's file touched, whatever its name."""
        arguments = self.put_mail_tool("exit 3\n")
        picture = self.put_picture("memo_2026-11-21(101010).bmp")
        picture.with_suffix(".eml").write_text("mine")
        program = self.start_mail("-attach", desk.windows_path(picture))
        box = desk.wait_for("a message", lambda: next(iter(self.windows("pmail.exe")), None))
        text = self.child(box, id=desk.MESSAGE_TEXT)["text"]
        self.assertIn("No mail program was found.", text)
        self.assertIn(desk.windows_path(picture), text)
        self.post(box, desk.WM_CLOSE)
        self.assertTrue(arguments.exists())
        self.assertNotEqual(self.finish(program), 0)
        desk.wait_for("the folder", lambda: [w for w in self.windows("explorer.exe") if w["text"] == "Temp"])
        self.assertEqual(picture.with_suffix(".eml").read_text(), "mine")

    def test_a_mail_program_that_stays_open_is_left_alone(self):
        go_on = self.device / "go_on"
        self.put_mail_tool(f"while ! test -e '{go_on}'; do sleep 0.1; done\ntouch '{go_on}.seen'\n")
        self.assertEqual(self.finish(self.start_mail("-attach", desk.windows_path(self.put_picture("a.bmp")))), 0)
        go_on.touch()
        desk.wait_for("the mail program's own end", go_on.with_name("go_on.seen").exists)


if __name__ == "__main__":
    desk.main()

"""Pictures made by the Windows program are those of the native one, byte for byte."""
import os
import pathlib
import subprocess

import desk

FIXTURES = pathlib.Path(__file__).resolve().parent.parent / "fixtures"


class Export(desk.Case):
    def export(self, *arguments):
        program = self.start(desk.PROGRAMS / "inkwright-export.exe", *arguments, stdout=subprocess.PIPE, cwd=self.device)
        text = program.communicate(timeout=desk.DEADLINE_SECONDS)[0]
        return program.returncode, text

    def test_pictures_and_exit_codes(self):
        name = "\u00df\u6771\U0001f58b"
        note, other = self.device / f"{name}.ikw", self.device / "other.ikw"
        note.write_bytes((FIXTURES / "version-5.ikw").read_bytes())
        other.write_bytes((FIXTURES / "damaged-half-point.ikw").read_bytes())
        (self.device / "out").mkdir()
        for ending in ("png", "svg", "pdf"):
            picture, native = self.device / f"out/{name}.{ending}", self.device / "native"
            # The pattern finds both notes.
            arguments = "--format", ending, "--scale", "1.5", "--style=classic"
            self.assertEqual(self.export("*.ikw", "-o", "out\\", *arguments)[0], 1)
            subprocess.run([os.environ["INKWRIGHT_EXPORT"], note, "-o", native, "--force", *arguments], check=True)
            self.assertEqual(picture.read_bytes(), native.read_bytes())
            picture.write_bytes(b"mine")
            self.assertEqual(self.export(note.name, "-o", desk.windows_path(picture)), (1, b""))
            self.assertEqual(picture.read_bytes(), b"mine")
            self.assertEqual(self.export(note.name, "-o", desk.windows_path(picture), *arguments, "--force")[0], 0)
            self.assertEqual(picture.read_bytes(), native.read_bytes())
        self.assertEqual(len(list((self.device / "out").iterdir())), 3)
        self.assertEqual(self.export()[0], 2)
        self.assertIn(b"Usage", self.export("--help")[1])


if __name__ == "__main__":
    desk.main()

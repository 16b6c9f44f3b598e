"""Runs the contract tests of the Windows port."""
import subprocess

import desk


class Contract(desk.Case):
    def test_windows_port(self):
        # A zone that keeps summer time.
        run = self.start(desk.PROGRAMS / "contract_test.exe", environment={"TZ": "Europe/Berlin"},
                         stdout=subprocess.PIPE, text=True)
        print(run.communicate(timeout=250)[0])
        self.assertEqual(run.returncode, 0)


if __name__ == "__main__":
    desk.main()

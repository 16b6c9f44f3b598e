"""Runs the contract tests of the Windows port."""
import subprocess
import unittest

import case
import desk


class Contract(unittest.TestCase):
    def test_windows_port(self):
        table = desk.Desk()
        self.addCleanup(table.close)
        run = subprocess.run(["wine", str(desk.PROGRAMS / "contract_test.exe")], text=True,
                             # A zone that keeps summer time.
                             env={**table.environment, "TZ": "Europe/Berlin"},
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=250, check=False)
        print(run.stdout)
        self.assertEqual(run.returncode, 0)


if __name__ == "__main__":
    case.main()

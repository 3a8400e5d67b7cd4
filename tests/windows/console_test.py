#!/usr/bin/env python3
"""zirvo-batch.exe in a console, which wine makes of a terminal, and Ctrl-C typed there: nothing is left half done, no solver
works on, and the exit status is 130. Called by ctest.
"""
import os
import pathlib
import pty
import re
import shutil
import tempfile
import unittest

from wine import in_wine, main, samples, temporary_folders, windows

CTRL_C = b"\x03"
BEHIND_CTRL_C = 130
MOST_TRIES = 20
ESCAPES = re.compile(rb"\x1b\[[?0-9;]*[A-Za-z]")
LOADS, POINTS = 100, 10000


def long_work():
    """A runway with so many loads and points that there is time to change one's mind."""
    head, points = (samples / "runway.eva").read_bytes().split(b"POINT OF INTEREST\r\n")
    front, loads = head.split(b"LOAD POINT\r\n")
    head_of_loads, first = loads.split(b"\r\n")[:2]
    head_of_points = points.split(b"\r\n")[0]
    front = re.sub(rb"(?m)^  4 +4 +30", b"  4         %d       %d" % (LOADS, POINTS), front)
    places = [b"    1%16d%13d%13.2f" % (i % 100, i // 100, i % 1499 / 100) for i in range(POINTS)]
    return b"\r\n".join([front + b"LOAD POINT", head_of_loads, *[first] * LOADS, b"", b"POINT OF INTEREST", head_of_points,
                         *places, b""])


class Console(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="zirvo-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def run_until(self, word, arguments):
        """The exit status, and what was told, of a run that gets Ctrl-C as soon as it says the word."""
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(self.folder)
            os.execv(in_wine, [in_wine, windows / "zirvo-batch.exe", *arguments])
        told = b""
        typed = False
        while True:
            try:
                part = os.read(terminal, 4096)
            except OSError:  # so a terminal says that nobody is there any more
                break
            told += part
            if not typed and word in ESCAPES.sub(b"", told):
                os.write(terminal, CTRL_C)
                typed = True
            if not part:
                break
        os.close(terminal)
        self.assertTrue(typed, told)
        return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), told

    def solvers(self):
        mine = ("Z:" + str(windows).replace("/", "\\")).encode()
        lines = []
        for file in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            try:
                lines.append(file.read_bytes())
            except OSError:
                pass  # it has ended
        return [line for line in lines if line.startswith(mine) and b"ZIRVO_SV" in line]

    def interrupt(self, word, arguments, results):
        """Again where the work was done before."""
        temporary = temporary_folders()
        before = set(os.listdir(self.folder))
        for _ in range(MOST_TRIES):
            code, told = self.run_until(word, arguments)
            if code != 0:
                break
            for name in results:
                (self.folder / name).unlink()
        self.assertEqual(code, BEHIND_CTRL_C, told)
        self.assertEqual(set(os.listdir(self.folder)), before)
        self.assertEqual(temporary_folders(), temporary)
        self.assertEqual(self.solvers(), [])

    def test_an_analysis_takes_its_control_file_and_its_solver_away(self):
        (self.folder / "long.eva").write_bytes(long_work().replace(b"runway.", b"long."))
        self.interrupt(b"COMPUTING", ["analyze", "long.eva", "--units", "3", "--language", "en"],
                       ["long.bre", "long.san", "long_bre.csv", "long_san.csv"])

    def test_rows_of_results_are_whole_or_not_there(self):
        (self.folder / "long.eva").write_bytes(long_work())
        self.interrupt(b"solving", ["solve", "long.eva", "--units", "3", "--csv", "rows.csv"], ["rows.csv"])

    def test_a_map_takes_its_folder_and_its_solver_away(self):
        shutil.copy(samples / "runway_two_gears.ven", self.folder)
        self.interrupt(b"COMPUTING", ["map", "runway_two_gears.ven", "--section", "xy", "--position", "5", "--units", "1",
                                      "--language", "en", "--component", "EPSx", "-o", "map.png"], ["map.png"])


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""zirvo.exe as a user has it, run by wine on a display of its own and driven by keys, in a folder with a Japanese name.

What comes out is compared with what zirvo-batch of Linux makes of the same data. Called by ctest.
"""
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import tempfile
import unittest

from display import Display
from wine import in_wine, linux, main, windows
from wine_server import prefix, server

ANALYSIS, GRAPHICS = 1, 2


class Roads(unittest.TestCase):
    def setUp(self):
        server("-w")  # what it has started belongs to the display of another test
        top = pathlib.Path(tempfile.mkdtemp(prefix="zirvo-"))
        self.addCleanup(shutil.rmtree, top)
        self.programs = top / "ZIRVO 試験"
        shutil.copytree(windows, self.programs)
        self.work = self.programs / "データ"
        self.work.mkdir()
        # Kept data of an earlier run would be offered.
        self.state = next(prefix.glob("drive_c/users/*/AppData/Local"), prefix) / "ZIRVO"
        shutil.rmtree(self.state, ignore_errors=True)
        self.display = Display()
        self.addCleanup(self.display.close)

    def start(self, language, units, objective):
        """Up to the data screen, with the settings of an earlier day."""
        folder = "Z:" + str(self.work).replace("/", "\\")
        settings = f"{folder}\r\n {units} \r\n {objective} \r\n"
        (self.programs / "zirvo_sv.ini").write_bytes(settings.encode("cp932"))
        self.program = self.display.start([in_wine, self.programs / "zirvo.exe"], cwd=self.work,
                                          start_new_session=True)
        self.display.wait_for_window("the language screen")
        self.key("space" if language == "ja" else "Down", "Return")
        self.display.wait_for_window("the settings screen")
        self.key("Return")  # NEXT has the focus, since all is set
        self.display.wait_for_window("the data screen")

    def key(self, *keys):
        self.display.key(*keys)

    def cells(self, *texts):
        for text in texts:
            self.display.type(text)
            self.key("Return")

    def wait_for_file(self, name):
        self.display.wait_for(name, (self.work / name).exists)

    def wait_for_end(self):
        self.display.wait_for("the end of the program", lambda: self.program.poll() is not None)
        self.assertEqual(self.program.returncode, 0)

    def kill(self):
        """As a crash does: wine and the program in it, which are one group."""
        os.killpg(self.program.pid, signal.SIGKILL)
        self.program.wait()

    def batch(self, *arguments):
        """Files that zirvo-batch of Linux makes of the data that the screens have saved."""
        with tempfile.TemporaryDirectory() as folder:
            for file in self.work.glob("Untitled.[ev][ve][an]"):
                shutil.copy(file, folder)
            subprocess.run([linux / "zirvo-batch", *arguments, "--quiet"], cwd=folder, check=True, capture_output=True)
            return {path.name: path.read_bytes() for path in pathlib.Path(folder).iterdir()}

    def type_the_analysis(self):
        self.key("space", "Tab", "Up", "Up", "Tab", "Up", "Tab", "Up", "Tab")  # new data: two layers, a load, a point
        self.cells("5000", "0.35", "15", "0", "50x0")  # a letter is no digit
        self.display.type("0.4")
        self.key("Tab")
        self.cells("49", "15", "0", "0", "0")
        self.display.type("0")
        self.key("Tab")
        self.cells("1", "0", "0")
        self.display.type("15")

    def analysis(self, language):
        self.start(language, 3, ANALYSIS)
        self.type_the_analysis()
        self.key(*["Tab"] * 6)
        self.key("Return", "Return")  # DATA OK!, SAVE DATA
        self.wait_for_file("Untitled.eva")
        self.key("Return")  # ANALYZE
        self.display.wait_for_window("the reports")
        for name, wanted in self.batch("analyze", "Untitled.eva", "--units", "3", "--language", language).items():
            self.assertTrue((self.work / name).read_bytes() == wanted, f"{name} has other bytes")
        self.keep_picture(f"analysis-{language}")
        self.key("shift+Tab", "Return")  # QUIT
        self.wait_for_end()

    def graphics(self, language):
        self.start(language, 1, GRAPHICS)
        self.key("space", "Tab", "Up", "Up", "Tab", "Up", "Tab")  # new data: two layers, a load
        self.cells("35000", "0.35", "5", "0", "1000", "0.4")
        self.key("Tab")
        self.cells("5000", "15", "0", "0", "0", "0")
        self.key(*["Tab"] * 4)
        self.key("Return", "Return")  # DATA OK!, SAVE DATA
        self.wait_for_file("Untitled.ven")
        self.key("Return")  # TO GRAPHICS
        self.display.wait_for_window("the map screen")
        self.key("Down", "Tab", "space")  # EPSx, X-Y
        self.display.type("5")
        self.key("Return")
        self.display.wait_for_window("the question about the first layer")
        self.key("Tab", "Return")  # No
        self.display.wait_for_window("the question about the second layer")
        before = self.display.pixels()
        self.key("Return")  # Yes
        self.display.wait_for_window("the map screen")
        self.display.wait_until_other("the map", before)
        self.keep_picture(f"graphics-{language}")
        self.key(*["shift+Tab"] * 5)
        screen = self.display.window
        self.key("Return")  # SAVE PICTURE
        self.display.wait_for_window("the dialog of the system")
        self.key("Home", "shift+End")
        self.display.type("xy.bmp")
        self.key("Return")
        self.wait_for_file("xy.bmp")
        self.display.activate(screen, "the map screen")  # wine gives the keys to nobody behind its dialogs
        picture = (self.work / "xy.bmp").read_bytes()
        width, height = struct.unpack("<ii", picture[18:26])
        made = self.batch("map", "Untitled.ven", "--units", "1", "--language", language, "--section", "xy", "--position", "5",
                          "--layer", "2", "--component", "EPSx", "--size", f"{width}x{height}", "-o", "xy.bmp")
        self.assertTrue(picture == made["xy.bmp"], "the picture has other bytes")
        self.key("Tab", "Tab", "Return")  # HELP, QUIT
        self.display.wait_for_window("the question at the end")
        self.key("Return")
        self.wait_for_end()

    def test_what_was_typed_is_offered_after_a_crash(self):
        self.start("en", 3, ANALYSIS)
        self.type_the_analysis()
        self.key("Tab")  # out of the cell
        # All three: the thickness, the radius and, typed last, the depth.
        self.display.wait_for("the kept data", lambda: any(file.read_bytes().count(b'"15"') == 3
                                                           for file in self.state.glob("kept/*/*.json")))
        self.kill()
        self.display.wait_for("the windows to go", self.display.is_empty)
        self.start("en", 3, ANALYSIS)
        self.display.wait_for("the offer", lambda: self.display.title() == "ZIRVO Ver2.3")
        self.display.wait_until_still("the offer")
        self.key("Return")  # Yes
        self.display.wait_for("the data screen", lambda: self.display.title() == "- ZIRVO Ver2.3 -")
        self.display.wait_until_still("the data screen")
        self.key("Return", "Return")  # DATA OK!, SAVE DATA
        self.wait_for_file("Untitled.eva")
        saved = (self.work / "Untitled.eva").read_bytes()
        self.assertIn(b"\r\n         5000             0.35               15               0\r\n", saved)
        self.assertIn(b"\r\n    1               0            0           15\r\n", saved)
        self.kill()

    def keep_picture(self, name):
        """For people to look at, where ZIRVO_PICTURES names a folder."""
        if os.environ.get("ZIRVO_PICTURES"):
            self.display.save(os.path.join(os.environ["ZIRVO_PICTURES"], name + ".ppm"))

    def test_an_analysis_in_japanese_by_keys(self):
        self.analysis("ja")

    def test_an_analysis_in_english_by_keys(self):
        self.analysis("en")

    def test_a_map_in_japanese_by_keys(self):
        self.graphics("ja")

    def test_a_map_in_english_by_keys(self):
        self.graphics("en")


if __name__ == "__main__":
    main()

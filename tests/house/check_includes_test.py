"""scripts/check-includes must find what breaks the table. Plants one fault at a time in a copy of the tree."""
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


class CheckIncludes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name)
        shutil.copytree(ROOT / "src", self.tree / "src")
        shutil.copy(ROOT / "DEVELOPERS.md", self.tree)

    def plant(self, file, line):
        path = self.tree / file
        path.write_text(line + "\n" + path.read_text(encoding="utf-8"), encoding="utf-8")

    def replace(self, file, old, new):
        path = self.tree / file
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new, 1), encoding="utf-8")

    def run_check(self, tree=None):
        command = [sys.executable, ROOT / "scripts" / "check-includes", tree or self.tree]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def expect_broken(self, text):
        result = self.run_check()
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertIn(text, result.stdout)
        self.assertEqual(len(result.stdout.splitlines()), 1)

    def expect_unreadable(self, text):
        result = self.run_check()
        self.assertEqual(result.returncode, 2, result.stdout)
        self.assertIn(text, result.stderr)

    def test_the_tree_keeps_to_its_table(self):
        result = self.run_check(ROOT)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_graphics_may_not_include_analysis(self):
        self.plant("src/graphics/section.cpp", '#include "analysis/solver_run.h"')
        self.expect_broken("src/graphics/section.cpp:1: graphics does not know analysis (analysis/solver_run.h)")

    def test_an_arrow_that_runs_back_up_is_found_in_a_header(self):
        self.plant("src/text/csv_line.h", '#  include "pavement/pavement_model.h"')
        self.expect_broken("src/text/csv_line.h:1: text does not know pavement")

    def test_the_pure_half_of_a_folder_may_not_include_its_screens(self):
        self.plant("src/analysis/report_view.cpp", '#include "analysis/form4.h"')
        self.expect_broken("src/analysis/report_view.cpp:1: analysis does not know analysis_forms")

    def test_one_known_header_opens_no_other_of_its_target(self):
        self.plant("src/solver/io/words.cpp", '#include "solver/superposition.h"')
        self.expect_broken("solver_io does not know solver (solver/superposition.h)")

    def test_the_windows_half_is_read_too(self):
        self.plant("src/platform/process_windows.cpp", '#include "text/csv_line.h"')
        self.expect_broken("src/platform/process_windows.cpp:1: platform does not know text")

    def test_qt_stays_in_its_folders(self):
        self.plant("src/shell/settings.cpp", "#include <QString>")
        self.expect_broken("src/shell/settings.cpp:1: Qt is for")

    def test_a_header_that_is_not_there_is_named(self):
        self.plant("src/shell/settings.cpp", '#include "shell/nowhere.h"')
        self.expect_broken("src/shell/settings.cpp:1: there is no src/shell/nowhere.h")

    def test_a_link_that_the_table_does_not_know_is_found(self):
        self.replace("src/text/CMakeLists.txt", "LINK zirvo_base", "LINK zirvo_forms zirvo_base")
        self.expect_broken("text links forms, which it does not know")

    def test_a_circle_in_the_table_is_an_error(self):
        self.replace("DEVELOPERS.md", "in memory, for tests and benchmarks | `contour`", "in memory | `contour`, `graphics`")
        self.replace("DEVELOPERS.md", "`pavement`, `contour` |", "`pavement`, `contour`, `recording_surface` |")
        self.expect_unreadable("a circle in the table")

    def test_a_target_without_a_row_is_an_error(self):
        self.replace("DEVELOPERS.md", "| | `zirvo_batch` |", "| | zirvo-batch |")
        self.expect_unreadable("only in the table or only in the build: batch")

    def test_a_source_file_that_nobody_builds_is_an_error(self):
        (self.tree / "src" / "text" / "forgotten.cpp").write_text("", encoding="utf-8")
        self.expect_unreadable("src/text/forgotten.cpp is in no CMakeLists.txt")


if __name__ == "__main__":
    unittest.main()

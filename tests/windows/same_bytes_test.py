#!/usr/bin/env python3
"""The programs of the Windows build, run by wine, beside those of Linux: the same files, byte by byte.

Called by ctest.
"""
import concurrent.futures
import itertools
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from wine import in_wine, linux, main, samples, temporary_folders, windows

LINUX = [str(linux / "zirvo-batch")]
WINDOWS = [str(in_wine), str(windows / "zirvo-batch.exe")]
UNITS = ("1", "2", "3")
LANGUAGES = ("ja", "en")


def run(program, arguments, folder):
    # Into files: what wine starts in the background would keep the end of a pipe.
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as errors:
        done = subprocess.run([*program, *arguments], cwd=folder, stdin=subprocess.DEVNULL, stdout=out, stderr=errors,
                              timeout=300, check=False)
        for stream in (out, errors):
            stream.seek(0)
        done.stdout, done.stderr = out.read(), errors.read()
    return done


def files_of(folder):
    return {path.name: path.read_bytes() for path in sorted(folder.iterdir())}


class Case(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="ZIRVO 試験 "))
        self.addCleanup(shutil.rmtree, self.folder)
        self.temporary = temporary_folders()

    def tearDown(self):
        self.assertEqual(temporary_folders() - self.temporary, set(), "folders for work files are left")

    def both(self, sample, arguments, name):
        """What both systems make of a sample: their streams and exit codes, and the files that lie there afterwards."""
        made = []
        for system, program in (("linux", LINUX), ("windows", WINDOWS)):
            folder = self.folder / f"{name} {system}"
            folder.mkdir()
            shutil.copy(samples / sample, folder)
            done = run(program, arguments, folder)
            made.append(((done.returncode, done.stdout, done.stderr), files_of(folder)))
        return name, made

    def compare(self, works, least):
        """works: (sample, arguments, name of the work); each must make at least so many files."""
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            results = list(pool.map(lambda work: self.both(*work), works))
        for name, ((told, files), (told_there, files_there)) in results:
            with self.subTest(name):
                self.assertEqual(told[0], 0, told)
                self.assertEqual(told_there, told)
                self.assertGreaterEqual(len(files), least)
                self.assertEqual(sorted(files_there), sorted(files))
                for file, wanted in files.items():
                    self.assertTrue(files_there[file] == wanted, f"{file} has other bytes")
        self.assertGreater(len(results), 5)


def names(pattern):
    return sorted(path.name for path in samples.glob(pattern))


class SameBytes(Case):
    def test_reports_and_comma_copies_of_every_sample_in_all_units_and_languages(self):
        self.compare([(sample, ["analyze", sample, "--units", units, "--language", language],
                       f"{sample} {units} {language}")
                      for sample in names("*.eva") for units in UNITS for language in LANGUAGES], least=5)

    # Units and languages change the words of a map and no more than the numbers beside them: each pair has one sample or
    # two, each sample one pair.
    def test_maps_of_every_sample_as_bmp_and_all_units_and_languages(self):
        pairs = list(itertools.product(UNITS, LANGUAGES))
        works = [(sample, ["map", sample, "--units", units, "--language", language, "--section", "xz", "--position", "0",
                           "--component", "EPSx", "-o", "map.bmp"], f"{sample} {units} {language}")
                 for sample, (units, language) in zip(names("*.ven"), itertools.cycle(pairs))]
        self.assertGreaterEqual(len(works), len(pairs))
        self.compare(works, least=2)

    def test_maps_of_every_sample_as_pdf_svg_and_png(self):
        self.compare([(sample, ["map", sample, "--units", "3", "--language", "ja", "--section", "xz", "--position", "10",
                                "--component", "EPSz", "--items", "fill,lines,legend,points,values", "-o",
                                f"図.{kind}"], f"{sample} {kind}")
                      for sample in names("*.ven") for kind in ("pdf", "svg", "png")], least=2)

    def test_a_file_with_a_slash_in_front_is_a_file(self):
        done = run(WINDOWS, ["check", str(samples / "road.eva")], self.folder)
        self.assertEqual((done.returncode, done.stderr), (0, b""), done)

    def test_bad_input_is_told_in_the_same_words(self):
        shutil.copy(samples / "road.eva", self.folder)
        text = (self.folder / "road.eva").read_bytes()
        (self.folder / "悪い.eva").write_bytes(text.replace(b"0.35", b"0.75"))
        told = [run(program, ["check", "悪い.eva"], self.folder) for program in (LINUX, WINDOWS)]
        self.assertEqual(told[0].returncode, 1)
        self.assertIn("悪い.eva: layer".encode(), told[0].stdout + told[0].stderr)
        self.assertEqual((told[1].returncode, told[1].stdout, told[1].stderr),
                         (told[0].returncode, told[0].stdout, told[0].stderr))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Makes the corpus of each target from samples/ and tests/data/: fuzzers/make_corpus.py, then commit what has changed.

The first bytes of most targets choose what a file does not say (a language, a count); see the fuzzer's RunInput. What a
fuzzer has found on its way is not in here: it finds that again in seconds.
"""
import base64
import random
import re
import shutil
import struct
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent
SAMPLES = ROOT / "samples"
REPORTS = ROOT / "tests" / "data" / "reports"


def put(target, name, data):
    folder = HERE / "corpus" / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def cut_after(data, lines):
    return b"".join(data.splitlines(keepends=True)[:lines])


def inputs():
    for name in ("road", "braking", "overlay_slip", "runway"):
        eva = (SAMPLES / f"{name}.eva").read_bytes()
        ven = (SAMPLES / f"{name}.ven").read_bytes()
        put("eva", name, eva)
        put("ven", name, ven)
        # Solver, usual control file, real theory, English, units 3.
        put("solver_input", f"analysis_{name}", bytes([0, 2, 0, 1, 2]) + eva)
    road = (SAMPLES / "road.eva").read_bytes()
    put("solver_input", "made_up_values", bytes([0, 2, 129, 0, 1]) + road)
    put("solver_input", "short", bytes([0, 2, 0, 1, 2]) + cut_after(road, 12))
    control = b"Language\r\n 2 \r\n\r\nUnits\r\n 3 \r\n\r\nInput FileName\r\nin.eva\r\n"
    put("solver_input", "control", bytes([0, 1, 200, 1, 2, len(control)]) + control + road)
    section = (b"OUTPUT FILENAME\r\nZIRVO_SV.BRE\r\n\r\nLAYERS LOADS POINTS\r\n  2         1          2\r\n\r\n"
               b"LAYER\r\nMODULUS\r\n         5000             0.35               15               0\r\n"
               b"           50              0.4\r\n\r\nLOAD\r\nVERT.\r\n"
               b"        49             15              0              0              0                  0\r\n\r\n"
               b"POINTS\r\nX Y Z\r\n    1            0.00         0.00         0.00\r\n"
               b"    2            5.00         0.00        15.00\r\n")
    put("solver_input", "section", bytes([1, 2, 0, 1, 2]) + section)


def settings():
    put("settings", "usual", b"/home/user/roads\r\n 3 \r\n 1 \r\n")
    put("settings", "comma", b"\"/home/user/a, b\"\r\n 1 \r\n 2 \r\n")
    put("settings", "windows", b"C:\\ZIRVO\\\r\n 2 \r\n 0 \r\n")
    put("settings", "kanji", "/home/利用者/道路\r\n-1 \r\n 7 \r\n".encode("cp932"))


def reports():
    for name in ("english.bre", "japanese.bre", "english.san"):
        data = (REPORTS / name).read_bytes()
        japanese = name.startswith("japanese")
        put("report_view", name, bytes([japanese, 1, 4]) + data)
        put("copies", name, data)
    put("copies", "stamped", b"   <ZIRVO Ver2.3>\r\n" + cut_after((REPORTS / "english.bre").read_bytes(), 20))
    put("copies", "gaps", b"        X\r\n         X\r\nA" + 13 * b" " + b"B" + 12 * b" " + b"C  \n\r\n \r  1   2")
    for name, language in (("english", 1), ("japanese", 0)):
        data = (REPORTS / f"section_{name}.bre").read_bytes()
        for kind in (0, 1):
            # Report, plane, language, units 1, 3 layers, 4 points, component, 3 layers of 15 and 30 cm, 1 load.
            head = bytes([0, kind, language, 1, 3, 0, 4, 1 + kind, 2, 0, 60, 120, 60, 30, 128])
            put("section_report", f"{name}_{kind}", head + data)
    lines = "".join(f" {x} , {y} , 0 , {x * 10 - y} \r\n" for y in range(5) for x in range(7))
    csv = ("# ZIRVO Ver2.3\r\n# X,Y,Z,EPSx\r\n# (cm),(cm),(cm),micro\r\n" + lines).encode()
    for kind in (0, 1):
        put("section_report", f"comma_file_{kind}", bytes([1, kind, 1, 1, 3, 0, 35, 1, 1, 0, 60, 60, 30, 128]) + csv)


def numbers():
    texts = ["5000", "-0.35", " 1 2.5E-3 ", "+1D308", "1e400", "-1E-400", ".5", "5.", "1.E5", "2.5", "32767.5", "0." + 40 * "3",
             "179769313486231570000" + 288 * "0", "4.9406564584124654e-324", "1E+15", "0.00001", "9.99999999999999E+99"]
    for i, text in enumerate(texts):
        put("numbers", f"text{i:02}", text.encode())
    for i, value in enumerate((2.675, -0.125, 1e22, 0.1 + 0.2, 5e-324, 1.7976931348623157e308)):
        put("numbers", f"double{i}", struct.pack("<d", value))


def texts():
    put("code_page", "kanji", "道路.eva, ｱｲｳ ～ － ￢ 髙 ①".encode("cp932"))
    put("code_page", "utf8", "Straße/道路.bre".encode())
    put("code_page", "bad", bytes([0x81, 0x0D, 0x81, 0xAD, 0x80, 0xA0, 0xFD, 0xFF, 0x88]))
    put("code_page", "name", b"Untitled.bre")
    screen = ('{"format":"zirvo kept screen","version":1,"screen":"Form3","units":3,"japanese":false,"when":1795300200000,'
              '"counts":[2,1,1],"names":["Untitled.eva","道路.bre",{"hex":"FF41"}],"tables":[{"columns":4,"cells":'
              '["5000","0.35","15","0","50","0.4","",""]},{"columns":6,"cells":["49","15","0","0","0","0"]}],'
              '"open":{"table":0,"row":1,"column":2,"text":"1"}}').encode()
    put("kept", "screen", screen + (-len(screen) % 8) * b" ")
    put("kept", "cut", screen[:200])
    put("kept", "deep", 40 * b"[" + 40 * b"]")


def tables():
    put("tables", "gear", b"x,y,share\n-17.25,0,1\n17.25,0,1.5\n# middle\n\n")
    put("tables", "lives", b"\xef\xbb\xbfload, repetitions\r\n 49 , 1E5\r\n80,2.5D3\r\n0001")
    put("tables", "cells", b"5000\t0.35\t15\r\n\"a \"\"b\"\"\tc\"\t\t\n50\t\"open")
    put("tables", "function", b"fatigue=0.0796/3.291/0.854")
    put("tables", "study", b"e1,e2,h,W,EPSx\n5000,300,15,0.0421,-1.5e-4\n,x,nan,1e400,2\n")


def studies():
    for name in ("road_study", "road_sample"):
        put("study", name, (SAMPLES / f"{name}.toml").read_bytes())
    keep = b'\n[[keep]]\nvalue = "EPSx"\npoint = 2\n'
    put("study", "table", b'base = "road.eva"\nunits = 3\ntable = "t.csv"\n' + keep +
        b"\n%%%\nlayer 1 modulus,loads total\n5000,49\n4000,x\n")
    put("study", "grid", b'base = "road.eva"\nunits = 1\n[[vary]]\nwhat = "layer 1 thickness"\nvalues = [10, 20]\n'
        b'[[vary]]\nwhat = "load all radius"\nfrom = 10\nto = 20\nstep = 2.5\n' + keep)


def pavements():
    chance = random.Random(7)
    for kind in range(3):
        for layers in (0, 1, 2, 5):
            data = bytes([kind, layers]) + bytes(chance.randrange(256) for _ in range(150))
            put("solver", f"kind{kind}_layers{layers + 1}", data)
    # A pressure beside which a film's stresses are so large that it is told as zero.
    put("solver", "pressure_told_as_zero", base64.b64decode(
        "AQHVHwAAAAAAAADXERTcozIKGzzXz+QiB7KysrLGT/PTowrcGzIUPNfP5CIHxiHz0zQq8QAAB9oCBD5jIK25i6sWhqKNmAEhDHc28+7FgNz8QwUAAAAA"
        "AAAAAAAAAAD/5Nh3RNXreD6Wlo+JvoKFZeB+X32QJU5gpyHKgMZP89M0NA=="))


class Visit:
    """A visit of the screens, in the bytes of screens_user.cpp: each act is a byte, and then its choices."""

    LETTERS = "0123456789.-+eEdD ,\t\r"
    FILES = ["road.eva", "road.ven", "Untitled.eva", "Untitled.ven"]
    KEYS = ["backspace", "tab", "enter", "escape", "space", "page up", "page down", "end", "home", "left", "up", "right",
            "down", "delete"]

    def __init__(self, keeps=False):
        self.bytes = bytes([200 if keeps else 0, 0])

    def act(self, *choices):
        self.bytes += bytes(choices)
        return self

    def click(self, header, name, *choices):
        """@param header  of the form, beneath src/; @param choices  of the click, and the answers to what it asks"""
        text = (ROOT / "src" / header).read_text(encoding="utf-8")
        names = []
        for kind, control in re.findall(r"forms::([\w:<>]+) (\w+)\{\*this", text):
            names += [f"{control}({i})" for i in range(5)] if kind.startswith("ControlArray") else [control]
        return self.act(3, names.index(name), *choices)

    def type(self, text):
        return self.act(6, len(text), *(self.LETTERS.index(letter) for letter in text))

    def strike(self, *keys):
        for key in keys:
            self.act(4, self.KEYS.index(key))
        return self

    def put(self, name, sample):
        return self.act(14, 4, self.FILES.index(name), sample)

    def settings(self, objective, unit="Option3", language="Option2"):
        self.click("shell/form1.h", language).click("shell/form1.h", "Command2")
        self.click("shell/form2.h", "Command1", 0).click("shell/form2.h", unit)
        return self.click("shell/form2.h", objective).click("shell/form2.h", "Command4")


def screens():
    data, view = "analysis/form3.h", "analysis/form4.h"
    analysis = Visit().settings("Option4").put("road.eva", 0).click(data, "Option2").click(data, "Command1", 2, 0)
    for button, answers in (("Command5", ()), ("Command6", (0,)), ("Command7", (0, 0))):
        analysis.click(data, button, *answers)
    for option in ("Option2", "Option4", "Option1", "Option3"):
        analysis.click(view, option)
    put("screens", "analysis", analysis.click(view, "Command2", 0).click(data, "Command9").bytes)

    typed = Visit(keeps=True).settings("Option4", "Option1", "Option1").click(data, "Option1")
    for bar in ("VScroll1", "VScroll2", "VScroll3"):
        typed.click(data, bar, 2)
    typed.click(data, "VScroll1", 2).click(data, "MSFlexGrid1", 2, 1, 1).type("5000\r0.35\r").type("15\r0\r").type("50\r0.4\t")
    typed.click(data, "MSFlexGrid2", 2, 1, 1).type("49\r15\r0\r0\r").type("0\r0\t")
    typed.click(data, "MSFlexGrid3", 2, 1, 1).type("1\r0\r0\r5\t").act(12)
    put("screens", "typed", typed.act(4, 136, 4, 137).click(data, "Command5").click(data, "Command6").bytes)
    # Copy and paste, undo and redo, a program that is started again over what was kept.
    edited = Visit(keeps=True).settings("Option4").click(data, "Option1").click(data, "VScroll1", 1, 5)
    edited.click(data, "MSFlexGrid1", 2, 1, 1).type("12\r3").act(4, 135, 4, 133, 13, 0, 1, 1, 1, 2, 4, 134, 4, 136, 4, 137)
    edited.act(12).click(data, "Command9").act(200, 0).settings("Option4").act(12, 0)
    put("screens", "edited", edited.click(data, "Command4").bytes)

    data, map_screen = "graphics/form5.h", "graphics/form6.h"
    graphics = Visit().settings("Option5").put("road.ven", 1).click(data, "Option2").click(data, "Command1", 3, 1)
    graphics.click(data, "Command7").click(map_screen, "Combo1", 0).click(map_screen, "Option3").type("5")
    graphics.click(map_screen, "Command1", 0, 0)
    for box, answers in (("Check1(1)", ()), ("Check1(3)", ()), ("Check1(4)", (0,))):
        graphics.click(map_screen, box, *answers)
    graphics.click(map_screen, "Command5").click(map_screen, "Command6").type("12\r").click(map_screen, "Command5")
    graphics.click(map_screen, "Picture1", 0, 1, 0, 0, 200).click(map_screen, "Combo1", 1).click(map_screen, "Command5")
    graphics.click(map_screen, "Command7", 5).click(map_screen, "Option4").type("0").click(map_screen, "Command10", 0, 0)
    graphics.click(map_screen, "Command8").click(map_screen, "Command2", 0)
    put("screens", "graphics", graphics.bytes)
    # One after the other over the same files; each program but the last is left by QUIT.
    visits = analysis.bytes + graphics.click("graphics/form5.h", "Command9").bytes + typed.bytes
    put("screens", "all", visits + Visit(keeps=True).settings("Option4").act(12, 0).bytes)
    put("screens", "first", Visit().click("shell/form1.h", "Option2").click("shell/form1.h", "Command3").strike("escape").bytes)


def main():
    shutil.rmtree(HERE / "corpus", ignore_errors=True)
    inputs()
    settings()
    reports()
    numbers()
    texts()
    tables()
    studies()
    pavements()
    screens()


main()

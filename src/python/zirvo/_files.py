"""Files: ".eva", ".ven" and the reports ".bre" and ".san"."""
import os

import numpy as np

from . import _zirvo
from ._tables import LAYER_COLUMNS, LOAD_COLUMNS, POINT_COLUMNS, rows_of


class Pavement:
    """What a file holds: arrays layers [n, 4], loads [m, 6], points [k, 4] (None of a ".ven"), names of the reports."""

    __slots__ = ("layers", "loads", "points", "result", "principal")

    def __init__(self, layers, loads, points=None, result="", principal=""):
        self.layers = layers
        self.loads = loads
        self.points = points
        self.result = result
        self.principal = principal

    def __repr__(self):
        points = "no points" if self.points is None else f"{len(self.points)} points"
        return f"<zirvo.Pavement: {len(self.layers)} layers, {len(self.loads)} loads, {points}>"


def read_eva(path):
    """The pavement of an analysis input file."""
    return Pavement(*_zirvo.read_eva(os.fspath(path)))


def read_ven(path):
    """The pavement of a graphics input file, which has no points."""
    return Pavement(*_zirvo.read_ven(os.fspath(path)))


def write_eva(path, layers, loads, points, units=3, language="en", result=None, principal=None):
    """Writes an analysis input file, byte for byte as the program does. The reports are named after the file if they are
    not given."""
    path = os.fspath(path)
    stem = os.path.basename(path).split(".")[0]
    _zirvo.write_eva(path, rows_of(layers, LAYER_COLUMNS, "layers"), rows_of(loads, LOAD_COLUMNS, "loads", 2),
                     rows_of(points, POINT_COLUMNS, "points"), units, language,
                     stem + ".bre" if result is None else result, stem + ".san" if principal is None else principal)


def write_ven(path, layers, loads, units=3, language="en"):
    """Writes a graphics input file."""
    _zirvo.write_ven(os.fspath(path), rows_of(layers, LAYER_COLUMNS, "layers"), rows_of(loads, LOAD_COLUMNS, "loads", 2),
                     units, language)


_POINT = ("layer", "x", "y", "z")
_PRINCIPAL = ("SIG1", "SIG2", "SIG3", "EPS1", "EPS2", "EPS3", "TAUmax", "GAMmax", "L1", "M1", "N1", "L3", "M3", "N3")


def _read_report(path, names):
    """The table of a report: it stands between the second and the third line of "=", below two lines of headings."""
    path = os.fspath(path)
    with open(path, encoding="cp932", errors="replace") as file:
        lines = file.read().splitlines()
    marks = [number for number, line in enumerate(lines) if line.startswith("   ===")]
    if len(marks) < 3:
        raise _zirvo.Error(f"{path}: is no report with a table of results")
    rows = []
    for number in range(marks[1] + 3, marks[2]):
        fields = lines[number].split()
        try:
            if len(fields) != len(names):
                raise ValueError
            rows.append([float(field) for field in fields])
        except ValueError:
            raise _zirvo.Error(f"{path}:{number + 1}: is no row of {len(names)} numbers") from None
    columns = np.array(rows, dtype=np.float64).reshape(len(rows), len(names)).T
    table = dict(zip(names, columns))
    table["layer"] = table["layer"].astype(int)
    return table


def read_bre(path):
    """The results of a report ".bre": a dict of columns, layer, x, y, z and the 15 components."""
    return _read_report(path, _POINT + _zirvo.components)


def read_san(path):
    """The principal values of a report ".san": a dict of columns, layer, x, y, z, SIG1 to N3."""
    return _read_report(path, _POINT + _PRINCIPAL)

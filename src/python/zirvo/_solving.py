"""Solving pavements, one or many."""
from . import _zirvo
from ._tables import LAYER_COLUMNS, LOAD_COLUMNS, POINT_COLUMNS, rows_of

COMPONENTS = _zirvo.components
_PLACES = {name: place for place, name in enumerate(COMPONENTS)}


class Solution:
    """Results at the points that were asked for, in their order.

    values        array [n, 15] in the order of COMPONENTS: displacements in cm, stresses in MPa (units 1: kgf/cm2), strains in
                  micro
    estimates     array [n, 3]: bounds of the errors of displacements, stresses, strains as a share of the largest of each
    on_load_edge  array [n]: True where some values are means, because the true ones jump or are infinite there
    """

    __slots__ = ("values", "estimates", "on_load_edge")

    def __init__(self, values, estimates, on_load_edge):
        self.values = values
        self.estimates = estimates
        self.on_load_edge = on_load_edge

    def __getitem__(self, component):
        """The column of a component: solution["EPSx"]."""
        try:
            return self.values[:, _PLACES[component]]
        except KeyError:
            raise _zirvo.Error(f"{component} is no component; there are {', '.join(COMPONENTS)}") from None

    def __len__(self):
        return len(self.values)

    def __repr__(self):
        return f"<zirvo.Solution of {len(self.values)} points>"

    def to_frame(self):
        """A pandas data frame with a column for each component."""
        import pandas
        return pandas.DataFrame(self.values, columns=COMPONENTS)


def _rows(layers, loads, points):
    return (rows_of(layers, LAYER_COLUMNS, "layers"), rows_of(loads, LOAD_COLUMNS, "loads", 2),
            rows_of(points, POINT_COLUMNS, "points"))


def solve(layers, loads, points, units=3, threads=0):
    """Solves one pavement. Other threads of Python run meanwhile.

    layers   rows of modulus, Poisson ratio, thickness, slip rate; the last one's thickness and slip rate are not looked at
    loads    rows of vertical load, radius, x, y and, if there are any, horizontal load, angle
    points   rows of layer number (from 1), x, y, z
    threads  0: as many as the machine has, where the work is worth it
    Each of them is an array, a sequence of rows, a dict of columns or a data frame.
    """
    return Solution(*_zirvo.solve(*_rows(layers, loads, points), units, threads))


def _parts(pavement):
    if hasattr(pavement, "points"):
        return pavement.layers, pavement.loads, pavement.points
    if hasattr(pavement, "keys"):
        return pavement["layers"], pavement["loads"], pavement["points"]
    return pavement


def solve_many(pavements, units=3, threads=0, progress=None, errors="raise"):
    """Solves a sequence of pavements on all cores; gives a list of Solutions in their order.

    pavements  each is (layers, loads, points), a dict with these keys, or a Pavement with points
    progress   called about ten times a second as progress(done, count); what it raises stops the work
    errors     "raise": what is wrong with any pavement is raised, with its number, when all others are solved; "keep": the
               Error stands in its place in the list
    """
    if errors not in ("raise", "keep"):
        raise _zirvo.Error(f"errors {errors}: must be raise or keep")
    prepared = []
    wrong = {}
    for number, pavement in enumerate(pavements):
        try:
            prepared.append(_rows(*_parts(pavement)))
        except _zirvo.Error as problem:
            wrong[number] = str(problem)
            prepared.append(None)
    solved = _zirvo.solve_all([p for p in prepared if p is not None], units, threads, progress)
    results = []
    ready = iter(solved)
    for number, pavement in enumerate(prepared):
        result = wrong[number] if pavement is None else next(ready)
        if isinstance(result, str):
            error = _zirvo.Error(f"pavement {number}: {result}")
            error.faults = [result]
            if errors == "raise":
                raise error
            results.append(error)
        else:
            results.append(Solution(*result))
    return results


def gears():
    """The standard axles and aircraft gears: name to (what it is, load in kN, pressure in MPa, source).

    Hold the numbers against the source before you sign a design.
    """
    return _zirvo.gears()


def gear(name, units=3, load=None, pressure=None, radius=None, spacing=None, axle_spacing=None, track=None, at=(0, 0), angle=0):
    """The loads of a gear as rows for solve(): any two of load (of all wheels together), pressure and radius."""
    return _zirvo.gear(name, units, load, pressure, radius, spacing, axle_spacing, track, at[0], at[1], angle)

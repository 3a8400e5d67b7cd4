"""Rows of numbers from whatever holds them: arrays, sequences of rows, dicts of columns, data frames."""
import numpy as np

from ._zirvo import Error

LAYER_COLUMNS = ("modulus", "poisson", "thickness", "slip")
LOAD_COLUMNS = ("vertical", "radius", "x", "y", "horizontal", "angle")
POINT_COLUMNS = ("layer", "x", "y", "z")

_ALIASES = {
    "poissonratio": "poisson", "nu": "poisson", "mu": "poisson", "sliprate": "slip", "verticalload": "vertical",
    "loadx": "x", "loady": "y", "horizontalload": "horizontal", "anglefromx": "angle", "layernumber": "layer",
    "pointx": "x", "pointy": "y", "pointz": "z",
}


def _plain(name):
    short = str(name).lower().replace(" ", "").replace("_", "")
    return _ALIASES.get(short, short)


def rows_of(data, columns, name, optional=0):
    """The rows as an array of doubles. Columns with names are taken by them, whatever their order; the last `optional`
    ones may be left out and are 0 then."""
    if isinstance(data, np.ndarray):
        return data
    keys = data.keys() if hasattr(data, "keys") else None  # a dict or a data frame
    try:
        if keys is None:
            return np.asarray(data, dtype=np.float64)
        found = {_plain(key): key for key in keys}
        wanted = columns if any(c in found for c in columns[len(columns) - optional:]) else columns[:len(columns) - optional]
        missing = [c for c in wanted[:len(columns) - optional] if c not in found]
        if missing:
            raise Error(f"{name}: there is no column {missing[0]}; it has {', '.join(map(str, keys))}")
        length = len(np.atleast_1d(np.asarray(data[found[wanted[0]]])))
        taken = [np.asarray(data[found[c]], dtype=np.float64) if c in found else np.zeros(length) for c in wanted]
        return np.column_stack(np.broadcast_arrays(*map(np.atleast_1d, taken)))
    except (TypeError, ValueError) as problem:
        if isinstance(problem, Error):
            raise
        raise Error(f"{name}: are no rows of numbers: {problem}") from None

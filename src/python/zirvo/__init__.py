"""Stresses, strains and displacements in layered pavements, gears and lives, for numpy and data frames.

    import zirvo
    road = zirvo.solve(layers=[(5000, 0.35, 15, 0), (300, 0.35, 30, 0), (50, 0.4, 0, 0)],  # MPa, -, cm, slip rate
                       loads=[(49, 15, 0, 0)],                                             # kN, cm
                       points=[(1, 0, 0, 15), (3, 0, 0, 45)])                              # layer, cm
    road["EPSx"]  # micro

Units are those of `zirvo-batch --units`: 1 kgf, kgf/cm2 in and out; 2 kgf, kgf/cm2 in and MPa out; 3 (what is meant if
nothing is said) kN, MPa in and MPa out. Lengths are cm, strains micro, tension is positive, Z points down. What is wrong is
a zirvo.Error that names row and value, as `zirvo-batch check` does.
"""
from ._lives import Lives, damage, mix_factor
from ._files import Pavement, read_bre, read_eva, read_san, read_ven, write_eva, write_ven
from ._solving import COMPONENTS, Solution, gear, gears, solve, solve_many
from ._zirvo import Error, version as __version__

__all__ = [
    "COMPONENTS", "Error", "Lives", "Pavement", "Solution", "damage", "gear", "gears", "mix_factor", "read_bre", "read_eva",
    "read_san", "read_ven", "solve", "solve_many", "write_eva", "write_ven",
]

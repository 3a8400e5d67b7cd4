"""What Python adds to a call of the solver: 3 layers, 1 load, 2 points, from arrays, from lists, as one of many.

usage: PYTHONPATH=build/python python3 benchmarks/python_overhead.py

Each figure is the smallest mean of many short runs, taken in turns, so that other work of the machine counts little.
"""
import timeit

import numpy as np

import zirvo
from zirvo import _zirvo

LAYERS = [(5000, 0.35, 15, 0), (300, 0.35, 30, 0), (50, 0.4, 0, 0)]
LOADS = [(49, 15, 0, 0, 0, 0)]
POINTS = [(1, 0, 0, 15), (3, 0, 0, 45)]
CALLS = 50
TURNS = 100

arrays = [np.array(part, dtype=float) for part in (LAYERS, LOADS, POINTS)]
many = [arrays] * CALLS
runs = {
    "the solver's own call": lambda: _zirvo.solver_seconds(*arrays, 3, CALLS) * 1e6,
    "solve from arrays": lambda: timeit.timeit(lambda: zirvo.solve(*arrays, threads=1), number=CALLS) / CALLS * 1e6,
    "solve from lists": lambda: timeit.timeit(lambda: zirvo.solve(LAYERS, LOADS, POINTS, threads=1), number=CALLS) / CALLS * 1e6,
    "solve_many, one of them": lambda: timeit.timeit(lambda: zirvo.solve_many(many, threads=1), number=1) / CALLS * 1e6,
}
best = {name: min(values) for name, values in
        zip(runs, zip(*[[run() for run in runs.values()] for _ in range(TURNS)]))}
own = best["the solver's own call"]
for name, value in best.items():
    print(f"{name:26}{value:8.1f} us   overhead {value - own:6.1f} us")

"""The design chart of a road: how thick must its asphalt be for so many repetitions of the wheel?

usage: PYTHONPATH=build/python python3 examples/python/design_chart.py [ROAD.eva] [CHART.svg]
"""
import sys

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np

import zirvo

road = zirvo.read_eva(sys.argv[1] if len(sys.argv) > 1 else "samples/road.eva")
chart = sys.argv[2] if len(sys.argv) > 2 else "design_chart.svg"
thicknesses = np.arange(10, 31, 1.0)  # cm
moduli = [2000, 5000, 10000]          # MPa


def with_asphalt(modulus, thickness):
    """The road with another asphalt, its bottom and the top of the subgrade."""
    layers = road.layers.copy()
    layers[0, 0], layers[0, 2] = modulus, thickness
    depth = thickness + layers[1, 2]
    return layers, road.loads, [(1, 0, 0, thickness), (len(layers), 0, 0, depth)]


fatigue, rutting = zirvo.Lives("ai-fatigue"), zirvo.Lives("ai-rutting")
figure, axes = plt.subplots()
for modulus in moduli:
    solutions = zirvo.solve_many([with_asphalt(modulus, t) for t in thicknesses])
    lives = [min(fatigue.of(s, modulus)[0], rutting.of(s)[1]) for s in solutions]
    axes.semilogy(thicknesses, lives, label=f"{modulus} MPa")
    print(modulus, f"{lives[0]:.3g}", f"{lives[-1]:.3g}")
axes.set_xlabel("thickness of the asphalt [cm]")
axes.set_ylabel("life [repetitions of the wheel]")
axes.legend(title="modulus of the asphalt")
axes.grid(True)
figure.savefig(chart)

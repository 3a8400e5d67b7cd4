"""The map of road.ven: EPSx at the bottom of the asphalt, by matplotlib.

usage: PYTHONPATH=build/python python3 examples/python/road_map.py [ROAD.ven] [MAP.png]
"""
import sys

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np

import zirvo

road = zirvo.read_ven(sys.argv[1] if len(sys.argv) > 1 else "samples/road.ven")
picture = sys.argv[2] if len(sys.argv) > 2 else "road_map.png"
depth = road.layers[0, 2]  # cm
x, y = np.meshgrid(np.linspace(-60, 60, 61), np.linspace(-60, 60, 61))
points = np.column_stack([np.ones(x.size), x.ravel(), y.ravel(), np.full(x.size, depth)])
strains = zirvo.solve(road.layers, road.loads, points)["EPSx"].reshape(x.shape)

figure, axes = plt.subplots()
filled = axes.contourf(x, y, strains, levels=20, cmap="turbo")
figure.colorbar(filled, label="EPSx [micro]")
axes.set_xlabel("X [cm]")
axes.set_ylabel("Y [cm]")
axes.set_title(f"bottom of the asphalt, {depth:g} cm down")
axes.set_aspect("equal")
figure.savefig(picture)
print(f"largest EPSx {strains.max():.2f} micro")

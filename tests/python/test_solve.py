"""solve and solve_many: the same numbers as the program, whatever holds the rows; errors that name row and value."""
import csv
import io
import threading

import numpy as np
import pytest

import zirvo


def test_the_two_strains_of_the_road_are_those_of_the_samples(road):
    solution = zirvo.solve(*road)
    assert solution.values.shape == (2, 15)
    assert solution.estimates.shape == (2, 3)
    assert solution["EPSx"][0] == pytest.approx(182.12, abs=0.005)  # samples/README.md
    assert solution["EPSz"][1] == pytest.approx(-502.73, abs=0.005)
    assert (solution.estimates < 1e-9).all()
    assert not solution.on_load_edge.any()


@pytest.mark.parametrize("name,units", [("road", 3), ("dual_wheels", 1), ("runway_two_gears", 2), ("overlay_slip", 2)])
def test_every_value_is_that_of_the_solve_command(samples, batch, name, units):
    file = samples / (name + ".eva")
    rows = list(csv.reader(io.StringIO(batch("solve", str(file), "--units", str(units)))))
    pavement = zirvo.read_eva(file)
    solution = zirvo.solve(pavement.layers, pavement.loads, pavement.points, units=units)
    assert tuple(rows[0][4:]) == zirvo.COMPONENTS
    assert np.array_equal(np.array(rows[1:], dtype=float)[:, 4:], solution.values)


def test_arrays_sequences_dicts_and_frames_are_the_same_rows(road):
    pandas = pytest.importorskip("pandas")
    expected = zirvo.solve(*road).values
    arrays = [np.array(part, dtype=float) for part in road]
    assert np.array_equal(zirvo.solve(*arrays).values, expected)
    integers = (np.array(road[0]), np.array(road[1]), np.array(road[2], dtype=np.int32))
    assert np.array_equal(zirvo.solve(*integers).values, expected)
    transposed = [np.array(part, dtype=float).T.copy().T for part in road]  # not in rows in memory
    assert np.array_equal(zirvo.solve(*transposed).values, expected)
    layers = pandas.DataFrame(road[0], columns=["Modulus", "Poisson ratio", "thickness", "slip_rate"])
    loads = pandas.DataFrame({"radius": [15], "vertical": [49], "y": [0], "x": [0]})  # by name, not by place
    points = {"z": [15, 45], "layer": [1, 3], "x": 0, "y": 0}
    assert np.array_equal(zirvo.solve(layers, loads, points).values, expected)
    frame = zirvo.solve(*road).to_frame()
    assert list(frame.columns) == list(zirvo.COMPONENTS)


def test_the_last_layers_thickness_and_slip_are_not_looked_at(road):
    layers, loads, points = road
    layers[-1] = (50, 0.4, float("nan"), 7)
    assert zirvo.solve(layers, loads, points)["EPSx"][0] == pytest.approx(182.12, abs=0.005)


@pytest.mark.parametrize("part,row,column,value,told", [
    (0, 0, 0, -5, "layer 1, Modulus -5: is not above 0"),
    (0, 1, 1, 0.75, "layer 2, PoissonRatio 0.75: is above 0.5"),
    (0, 1, 3, 1, "layer 2, SlipRate 1: is above 0.99"),
    (1, 0, 1, 0, "load 1, Radius 0: is not above 0"),
    (1, 0, 0, 0, "load 1, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does nothing"),
    (2, 1, 0, 4, "point 2, LayerNumber 4: names no layer: there are 3"),
    (2, 0, 3, 16, "point 1, PointZ 16: lies below the bottom of layer 1 at 15 cm"),
    (2, 1, 1, float("nan"), "point 2, PointX nan: is no finite number"),
    (2, 1, 0, 1.5, "point 2, LayerNumber: is no whole number"),
    (0, 0, 0, 1e40, "point 1, U: is no finite number: such numbers are no pavement"),
])
def test_what_is_wrong_names_row_and_value(road, part, row, column, value, told):
    parts = [np.array(p, dtype=float) for p in road]
    parts[part][row, column] = value
    with pytest.raises(zirvo.Error) as caught:
        zirvo.solve(*parts)
    assert str(caught.value) == told
    assert isinstance(caught.value, ValueError)


def test_all_faults_are_listed(road):
    road[0][0] = (-1, 0.9, 15, 0)
    with pytest.raises(zirvo.Error) as caught:
        zirvo.solve(*road)
    assert caught.value.faults == ["layer 1, Modulus -1: is not above 0", "layer 1, PoissonRatio 0.9: is above 0.5"]
    assert str(caught.value).endswith("(and 1 more)")


@pytest.mark.parametrize("layers,told", [
    ([1, 2, 3], "layers: must be rows of modulus, Poisson ratio, thickness, slip rate, not an array of shape (3)"),
    ([(1, 2, 3)], "not an array of shape (1, 3)"),
    ([("stiff", 0.3, 1, 0)], "layers: are no rows of numbers"),
    ([(1, 2, 3, 4), (1, 2)], "layers: are no rows of numbers"),
    ({"modulus": [1], "poisson": [0.3]}, "layers: there is no column thickness; it has modulus, poisson"),
    ([], "layers: must be rows"),
])
def test_what_is_no_table_is_refused(road, layers, told):
    with pytest.raises(zirvo.Error, match=told.replace("(", r"\(").replace(")", r"\)")):
        zirvo.solve(layers, road[1], road[2])


def test_units_are_one_to_three(road):
    with pytest.raises(zirvo.Error, match="units 4: must be 1, 2 or 3"):
        zirvo.solve(*road, units=4)


def test_other_threads_run_while_one_solves():
    layers = [(5000 - 50 * i, 0.35, 2, 0.3) for i in range(60)] + [(50, 0.4, 0, 0)]
    points = [(1 + i % 60, 3 * i, 0, 2 * (i % 60) + 1) for i in range(3000)]
    started, ended = threading.Event(), threading.Event()

    def work():
        started.set()
        zirvo.solve(layers, [(49, 15, 0, 0)], points, threads=1)
        ended.set()
    thread = threading.Thread(target=work)
    thread.start()
    started.wait()
    turns = 0
    while not ended.is_set():
        turns += 1
    thread.join()
    assert turns > 1000  # held up for the whole solution this thread would have had none


def test_many_are_solved_in_their_order_with_progress(road):
    pavements = [([(1000 + i, 0.35, 15, 0), *road[0][1:]], road[1], road[2]) for i in range(300)]
    told = []
    solutions = zirvo.solve_many(pavements, progress=lambda done, count: told.append((done, count)))
    assert len(solutions) == 300
    for i in (0, 7, 299):
        assert np.array_equal(solutions[i].values, zirvo.solve(*pavements[i]).values)
    assert told[-1] == (300, 300)
    one = zirvo.solve_many(iter(pavements), threads=1)
    assert all(np.array_equal(a.values, b.values) for a, b in zip(one, solutions))


def test_what_is_wrong_with_one_of_many_names_it(road):
    bad = ([(-1, 0.35, 15, 0), *road[0][1:]], road[1], road[2])
    with pytest.raises(zirvo.Error, match="pavement 1: layer 1, Modulus -1: is not above 0"):
        zirvo.solve_many([road, bad, road])
    kept = zirvo.solve_many([road, bad, dict(layers=road[0], loads=[(1,)], points=road[2])], errors="keep")
    assert kept[0]["EPSx"][0] == pytest.approx(182.12, abs=0.005)
    assert str(kept[1]) == "pavement 1: layer 1, Modulus -1: is not above 0"
    assert str(kept[2]).startswith("pavement 2: loads: must be rows")


def test_what_progress_raises_stops_the_work(road):
    class Enough(Exception):
        pass

    def stop(done, count):
        raise Enough
    with pytest.raises(Enough):
        zirvo.solve_many([road] * 5000, progress=stop)


def test_nothing_to_solve_is_an_empty_list(road):
    assert zirvo.solve_many([]) == []
    assert zirvo.solve(road[0], road[1], np.empty((0, 4))).values.shape == (0, 15)

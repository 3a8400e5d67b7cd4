"""Gears, lives, and the worked examples."""
import os
import subprocess
import sys

import numpy as np
import pytest

import zirvo
from conftest import SOURCE


def test_a_gear_is_rows_of_loads(road):
    loads = zirvo.gear("us-tandem", at=(10, -20))
    assert loads.shape == (8, 6)
    assert loads[:, 0].sum() == pytest.approx(151.24, abs=1e-4)
    assert loads[:, 2].mean() == pytest.approx(10)
    assert zirvo.solve(road[0], loads, road[2]).values.shape == (2, 15)
    assert zirvo.gear("lr1132-40", load=49, radius=15)[0, 1] == 15
    assert "ms1-80" in zirvo.gears()
    with pytest.raises(zirvo.Error, match="sledge is no gear"):
        zirvo.gear("sledge")
    with pytest.raises(zirvo.Error, match="two of them decide the third"):
        zirvo.gear("ms1-80", load=1, pressure=1, radius=1)


def test_lives_are_the_hand_worked_ones(road):
    """182.12 and 502.73 micro: 1.59640E6 and 800302, worked by hand in tests/batch/lives_test.cpp."""
    fatigue, rutting = zirvo.Lives("ai-fatigue"), zirvo.Lives("ai-rutting")
    assert fatigue(182.12, 5000) == pytest.approx(1.59640e6, rel=1e-4)
    assert rutting(502.73) == pytest.approx(800302, rel=1e-4)
    solution = zirvo.solve(*road)
    assert fatigue.of(solution, 5000)[0] == pytest.approx(1.59640e6, rel=2e-4)
    assert rutting.of(solution)[1] == pytest.approx(800302, rel=2e-4)
    lives = fatigue(np.array([0, -5, 182.12]), [5000, 5000, 5000])
    assert np.isinf(lives[:2]).all() and np.isfinite(lives[2])


def test_names_sources_coefficients_and_mixes():
    assert "Asphalt Institute" in zirvo.Lives("ai-rutting").source
    assert "ai-rutting" in zirvo.Lives.names()
    assert zirvo.Lives("rutting=1E-9/4")(500) == pytest.approx(16000)  # 1E-9 (5E-4)^-4
    assert zirvo.Lives("ai-fatigue", c=2)(100, 1000) == pytest.approx(2 * zirvo.Lives("ai-fatigue")(100, 1000))
    assert zirvo.mix_factor(5, 11) == pytest.approx(0.97252, rel=1e-5)
    assert zirvo.damage([100, 50, 7], [1000, 200, np.inf]) == pytest.approx(0.35)
    for bad in ("creep", "fatigue=1/2", ""):
        with pytest.raises(zirvo.Error):
            zirvo.Lives(bad)
    with pytest.raises(zirvo.Error, match="c 0: is not above 0"):
        zirvo.Lives("ai-fatigue", c=0)


def run_example(name, *arguments):
    pytest.importorskip("matplotlib")
    script = SOURCE / "examples" / "python" / name
    return subprocess.run([sys.executable, script, *map(str, arguments)], check=True, capture_output=True, text=True,
                          env=dict(os.environ)).stdout


def test_the_example_of_a_map_draws_it(samples, tmp_path):
    assert run_example("road_map.py", samples / "road.ven", tmp_path / "map.png") == "largest EPSx 182.12 micro\n"
    assert (tmp_path / "map.png").read_bytes()[1:4] == b"PNG"


def test_the_example_of_a_design_chart_draws_it(samples, tmp_path):
    lines = run_example("design_chart.py", samples / "road.eva", tmp_path / "chart.svg").splitlines()
    assert [line.split()[0] for line in lines] == ["2000", "5000", "10000"]
    assert all(float(line.split()[1]) < float(line.split()[2]) for line in lines)
    assert b"<svg" in (tmp_path / "chart.svg").read_bytes()


def test_every_name_has_its_types():
    stub = (SOURCE / "src" / "python" / "zirvo" / "__init__.pyi").read_text()
    for name in zirvo.__all__:
        assert f"def {name}(" in stub or f"class {name}" in stub or f"{name}:" in stub, name

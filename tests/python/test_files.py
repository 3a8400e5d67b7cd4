"""Files: read and written as the program does, to the byte."""
import os
import subprocess
import sys

import numpy as np
import pytest

import zirvo


def test_every_sample_is_read_and_written_to_the_same_bytes(samples, tmp_path):
    units = {"dual_wheels": 1, "runway_two_gears": 2, "overlay_bonded": 2, "overlay_slip": 2}
    for file in sorted(samples.glob("*.eva")):
        pavement = zirvo.read_eva(file)
        for language in ("en", "ja"):
            zirvo.write_eva(tmp_path / file.name, pavement.layers, pavement.loads, pavement.points,
                            units.get(file.stem, 3), language, pavement.result, pavement.principal)
            if (tmp_path / file.name).read_bytes() == file.read_bytes():
                break
        else:
            pytest.fail(file.name)
    for file in sorted(samples.glob("*.ven")):
        pavement = zirvo.read_ven(file)
        assert pavement.points is None
        zirvo.write_ven(tmp_path / file.name, pavement.layers, pavement.loads, units.get(file.stem, 3))
        again = zirvo.read_ven(tmp_path / file.name)
        assert np.array_equal(again.layers, pavement.layers) and np.array_equal(again.loads, pavement.loads)


def test_files_are_the_same_in_every_locale(tmp_path):
    """A program of the user's own may have set any; German has a comma for the point. Python starts by itself there, so
    that no other test runs in it."""
    made = subprocess.run(["localedef", "--no-archive", "-i", "de_DE", "-f", "UTF-8", tmp_path / "de_DE.UTF-8"],
                          capture_output=True)
    assert made.returncode == 0, made.stderr
    write = "import zirvo; zirvo.write_eva('%s.eva', [(5000.5, .35, 15.25, 0), (50, .4, 0, 0)], [(49.5, 15, 0, 0)], " \
            "[(1, 0.5, 0, 15.25)], result='a.bre', principal='a.san')"
    for name, start in (("here", ""), ("there", "import locale; locale.setlocale(locale.LC_ALL, 'de_DE.UTF-8'); ")):
        subprocess.run([sys.executable, "-c", start + write % name], cwd=tmp_path, check=True,
                       env=os.environ | {"LOCPATH": str(tmp_path)})
    assert (tmp_path / "there.eva").read_bytes() == (tmp_path / "here.eva").read_bytes()


def test_numbers_beyond_all_measure_are_refused_by_the_rules(road, tmp_path):
    with pytest.raises(zirvo.Error, match="a.ven: "):  # 15 digits and an exponent do not fit its column
        zirvo.write_ven(tmp_path / "a.ven", road[0], [(49, 1e-320, 0, 0)])
    with pytest.raises(zirvo.Error, match="load 1, LoadX inf: is no finite number"):
        zirvo.write_ven(tmp_path / "a.ven", road[0], [(49, 15, float("inf"), 0)])
    assert list(tmp_path.iterdir()) == []


def test_reports_are_named_after_the_file(road, tmp_path):
    zirvo.write_eva(tmp_path / "new.eva", *road)
    assert (zirvo.read_eva(tmp_path / "new.eva").result, zirvo.read_eva(tmp_path / "new.eva").principal) == \
        ("new.bre", "new.san")


def test_a_file_that_breaks_a_rule_names_row_and_value(samples, tmp_path):
    text = (samples / "road.eva").read_bytes().replace(b"0.35", b"0.75")
    (tmp_path / "bad.eva").write_bytes(text)
    with pytest.raises(zirvo.Error) as caught:
        zirvo.read_eva(tmp_path / "bad.eva")
    assert str(caught.value) == f"{tmp_path / 'bad.eva'}: layer 1, PoissonRatio 0.75: is above 0.5"
    assert len(caught.value.faults) == 2
    with pytest.raises(zirvo.Error, match="none.ven: file: "):
        zirvo.read_ven(tmp_path / "none.ven")


def test_what_cannot_stand_in_a_file_is_refused_and_nothing_is_written(road, tmp_path):
    with pytest.raises(zirvo.Error, match="layer 1, Modulus -1"):
        zirvo.write_eva(tmp_path / "a.eva", [(-1, 0.3, 1, 0), (1, 0.3, 0, 0)], road[1], [(1, 0, 0, 0)])
    with pytest.raises(zirvo.Error, match="ResultFileName a.txt: has another extension"):
        zirvo.write_eva(tmp_path / "a.eva", *road, result="a.txt")
    with pytest.raises(zirvo.Error):  # fills its column, so that it touches the number before it
        zirvo.write_eva(tmp_path / "a.eva", road[0], road[1], [(1, -0.123456789012345, -0.123456789012345, 1)])
    with pytest.raises(zirvo.Error, match="cannot be written"):
        zirvo.write_eva(tmp_path / "no" / "a.eva", *road)
    with pytest.raises(zirvo.Error, match="language de: must be ja or en"):
        zirvo.write_eva(tmp_path / "a.eva", *road, language="de")
    assert list(tmp_path.iterdir()) == []


@pytest.mark.parametrize("language", ["en", "ja"])
def test_reports_are_read_into_columns(batch, tmp_path, language):
    batch("analyze", "road.eva", "--units", "3", "--language", language)
    results = zirvo.read_bre(tmp_path / "road.bre")
    pavement = zirvo.read_eva(tmp_path / "road.eva")
    solution = zirvo.solve(pavement.layers, pavement.loads, pavement.points)
    assert list(results) == ["layer", "x", "y", "z", *zirvo.COMPONENTS]
    assert np.array_equal(results["layer"], pavement.points[:, 0])
    for name in zirvo.COMPONENTS:
        # Five digits are printed; what is nothing but rounding is printed as 0.
        np.testing.assert_allclose(results[name], solution[name], rtol=5e-5, atol=1e-9 * np.abs(solution.values).max())
    principal = zirvo.read_san(tmp_path / "road.san")
    assert principal["SIG1"][1] == pytest.approx(1.3228)
    assert principal["EPS3"][4] == pytest.approx(-502.73)
    with pytest.raises(zirvo.Error, match=r"road.san:\d+: is no row of 19 numbers"):
        zirvo.read_bre(tmp_path / "road.san")
    with pytest.raises(zirvo.Error, match="is no report with a table"):
        zirvo.read_bre(tmp_path / "road.eva")

"""What the tests share: a road, its files, the programs of the build."""
import os
import shutil
import subprocess
from pathlib import Path

import pytest

SOURCE = Path(os.environ["ZIRVO_SOURCE"])
PROGRAMS = Path(os.environ["ZIRVO_BIN"])


@pytest.fixture
def road():
    """samples/road.eva, two of its points."""
    return ([(5000, 0.35, 15, 0), (300, 0.35, 30, 0), (50, 0.4, 0, 0)], [(49, 15, 0, 0, 0, 0)],
            [(1, 0, 0, 15), (3, 0, 0, 45)])


@pytest.fixture
def samples():
    return SOURCE / "samples"


@pytest.fixture
def batch(tmp_path):
    """Runs zirvo-batch in a fresh folder with road.eva in it; gives standard output."""
    shutil.copy(SOURCE / "samples" / "road.eva", tmp_path)

    def run(*arguments):
        return subprocess.run([PROGRAMS / "zirvo-batch", *arguments], cwd=tmp_path, check=True, capture_output=True,
                              text=True).stdout
    return run

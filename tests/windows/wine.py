"""What the tests are called with: TEST LINUX_BIN WINDOWS_BIN IN_WINE SAMPLES [NAME...]."""
import os
import pathlib
import subprocess
import sys
import unittest

linux, windows, in_wine, samples = (pathlib.Path(word).resolve() for word in sys.argv[1:5])
prefix = pathlib.Path(os.environ.get("WINEPREFIX") or
                      pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "zirvo/wine")
SKIPPED = 77


def server(option):
    """wine's server, which by itself ends with its last program: -w waits for that, -p60 lets it stay for 60 s more, and
    -k ends it. The folder of wine's files is for tests alone."""
    subprocess.run(["wineserver", option], env={**os.environ, "WINEPREFIX": str(prefix)}, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)


def temporary_folders():
    """Those of our programs that are there now."""
    return {str(folder) for folder in prefix.glob("drive_c/users/*/Temp/zirvo-*-*")}


def main():
    if not (linux / "zirvo-batch").exists():
        print(f"Skipped: there is no zirvo-batch in {linux}; build the preset release", file=sys.stderr)
        sys.exit(1 if os.environ.get("ZIRVO_NO_SKIPS") else SKIPPED)
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[5:]])

"""What the tests are called with: TEST LINUX_BIN WINDOWS_BIN IN_WINE SAMPLES [NAME...]."""
import os
import pathlib
import sys
import unittest

from wine_server import prefix

linux, windows, in_wine, samples = (pathlib.Path(word).resolve() for word in sys.argv[1:5])
SKIPPED = 77


def temporary_folders():
    """Those of our programs that are there now."""
    return {str(folder) for folder in prefix.glob("drive_c/users/*/Temp/zirvo-*-*")}


def main():
    if not (linux / "zirvo-batch").exists():
        print(f"Skipped: there is no zirvo-batch in {linux}; build the preset release", file=sys.stderr)
        sys.exit(1 if os.environ.get("ZIRVO_NO_SKIPS") else SKIPPED)
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[5:]])

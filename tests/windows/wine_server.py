"""Wine's folder for tests and its server."""
import os
import pathlib
import subprocess

prefix = pathlib.Path(os.environ.get("WINEPREFIX") or
                      pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "zirvo/wine")


def server(option):
    """wine's server, which by itself ends with its last program: -w waits for that, and -k ends it. The folder of wine's
    files is for tests alone."""
    subprocess.run(["wineserver", option], env={**os.environ, "WINEPREFIX": str(prefix)}, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)

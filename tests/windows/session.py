#!/usr/bin/env python3
"""A session of wine that lasts as long as its tests: session.py start|end FILE IN_WINE.

What takes a second or two at the start of a program is wine's server and its services, which come with the first program
and go with the last: so one waits in the background, beside which others start in a twentieth of a second. FILE keeps its
number. The session has no display. It ends by itself after a quarter of an hour, should nobody end it. Called by ctest.
"""
import os
import pathlib
import signal
import subprocess
import sys

from wine_server import server

WAITS = 'sleep 900 | exec "$0" cmd /c pause'

what, file, in_wine = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
if what == "start":
    environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
    server("-k")  # what others have left, maybe on a display that is gone
    # What wine starts in the background would keep the end of a pipe.
    nowhere = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
    subprocess.run([in_wine, "hostname"], env=environment, check=True, **nowhere)  # wine's folder is there from now on
    waiting = subprocess.Popen(["sh", "-c", WAITS, in_wine], env=environment, start_new_session=True, **nowhere)
    file.write_text(str(waiting.pid))
else:
    server("-k")
    try:
        os.killpg(int(file.read_text()), signal.SIGTERM)
    except (OSError, ValueError):
        pass  # it has ended by itself
    file.unlink(missing_ok=True)

#!/usr/bin/env python3
"""What the program finds on a desktop, a frozen one and none at all; and nothing private.

    diagnosis.py PROGRAM PICTURES
"""

import os
import signal
import subprocess
import sys

from virtual_desktop.bars import XfcePanel
from virtual_desktop.panel import Panel
from virtual_desktop.program import Program
from virtual_desktop.session import Session, wait_until

DESKTOP = {"store": "readable", "places": "readable", "bars": "xfce4-panel",
           "window manager": "Openbox", "session bus": "answers", "running copy": "yes",
           "items on the bus": "a bar shows them", "banners": "dunst", "sound module": "loaded",
           "own sounds": "0 readable, 1 not"}
FROZEN = {"display": "no answer within", "session bus": "does not answer", "map": "readable"}
NOTHING = {"store": "damaged", "X server": "none", "session bus": "none"}


def diagnose(session, executable, expected):
    report = subprocess.run([executable, "--diagnose"], env=session.environment, check=True,
                            stdout=subprocess.PIPE, encoding="utf-8").stdout
    lines = dict(line.split(": ", 1) for line in report.splitlines())
    for subject, found in expected.items():
        assert found in lines.get(subject, "nothing"), f"{subject}: not \"{found}\" in\n{report}"
    for private in (session.folder, "Mecca", "21.4", "39.8"):
        assert private not in report, f"{private} in\n{report}"


def main():
    executable = os.path.abspath(sys.argv[1])
    with Session("diagnosis") as session:
        XfcePanel(session).start()
        session.start("dunst")
        os.makedirs(session.path("data", "hilalor", "sounds"))
        os.mkfifo(session.path("data", "hilalor", "sounds", "pipe.mp3"))
        Program(session, executable).start(menuBarStyle="nextPrayer")
        wait_until(Panel(session, executable).item, "the item is in the bar")
        diagnose(session, executable, DESKTOP)
        for process in session.processes:
            os.killpg(process.pid, signal.SIGSTOP)
        diagnose(session, executable, FROZEN)
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            del session.environment[name]
        store = session.path("config", "hilalor", "defaults.sqlite")
        os.remove(f"{store}-wal")
        with open(store, "r+b") as file:
            file.write(b"x" * 3000)
        diagnose(session, executable, NOTHING)


if __name__ == "__main__":
    main()

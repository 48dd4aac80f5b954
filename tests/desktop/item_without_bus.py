#!/usr/bin/env python3
"""The item where no message bus runs, and where the bus ends while the program runs.

    item_without_bus.py PROGRAM PICTURES
"""

import os
import sys

from item_on_bars import COUNTDOWN, Check
from virtual_desktop.session import Session


class CheckWithoutBus(Check):
    def run_without_bus(self):
        for name in ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            del self.screen.session.environment[name]
        self.start_program("nextPrayer")
        self.quit_by_menu(self.see(COUNTDOWN.fullmatch, "without-bus"))

    def run_while_bus_ends(self):
        self.start_program("nextPrayer")
        self.see(COUNTDOWN.fullmatch, "before-bus-ends")
        self.screen.session.stop_bus()
        self.quit_by_menu(self.see(COUNTDOWN.fullmatch, "after-bus-ended"))


def main():
    executable, pictures = map(os.path.abspath, sys.argv[1:])
    with Session("without-bus") as session:
        CheckWithoutBus("no-bar", session, executable, pictures).run_without_bus()
    with Session("bus-ends") as session:
        CheckWithoutBus("no-bar", session, executable, pictures).run_while_bus_ends()


if __name__ == "__main__":
    main()

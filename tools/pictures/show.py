#!/usr/bin/env python3
"""Shows the program on a virtual desktop: a screen, a session bus, a window manager and a panel.

    show.py PROGRAM PICTURES

Leaves pictures of the screen in the folder PICTURES: the item in each style, the panel in each
calendar, light and dark, and the settings.
"""

import os
import sys

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), *[os.pardir] * 2))
sys.path.insert(0, os.path.join(ROOT, "tools"))

# pylint: disable=wrong-import-position
from virtual_desktop.bars import XfcePanel
from virtual_desktop.panel import Panel
from virtual_desktop.program import Program
from virtual_desktop.screen import centre
from virtual_desktop.session import Session, wait_until

# What is opened and under which settings.
PICTURES = {
    "next-prayer": ("item", {"menuBarStyle": "nextPrayer"}),
    "date": ("item", {"menuBarStyle": "date"}),
    "emoji": ("item", {"menuBarStyle": "emoji"}),
    "panel-gregorian-light": ("panel", {"primaryCalendar": "gregorian", "appTheme": "light"}),
    "panel-hijri-dark": ("panel", {"primaryCalendar": "hijri", "appTheme": "dark"}),
    "settings": ("settings", {"primaryCalendar": "gregorian", "appTheme": "light"}),
}


def show(session, executable, what, settings):
    program = Program(session, executable)
    program.start(**settings)
    panel = Panel(session, executable)
    item = wait_until(panel.item, "the item is in the bar")
    if what != "item":
        panel.screen.click(centre(item))
        frame = panel.wait_for()
    if what == "settings":
        panel.click((frame.width - 21, frame.height - 19))
        wait_until(lambda: any(window.title == "Hilalor Settings"
                               for window in panel.screen.windows()), "the settings are open")
    panel.screen.settled_picture()
    return program, panel.screen


def main():
    executable, folder = map(os.path.abspath, sys.argv[1:])
    os.makedirs(folder, exist_ok=True)
    with Session("show") as session:
        XfcePanel(session).start()
        for name, (what, settings) in PICTURES.items():
            program, screen = show(session, executable, what, settings)
            picture = os.path.join(folder, f"show-{name}.png")
            screen.save(picture)
            print(picture)
            program.end()


if __name__ == "__main__":
    main()

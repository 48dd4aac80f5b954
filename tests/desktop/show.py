#!/usr/bin/env python3
"""Shows the program on a virtual desktop: a screen, a session bus, a window manager and a panel.

    show.py PROGRAM PICTURES

Prints the item's text and leaves a picture of the screen for each style in the folder PICTURES.
"""

import os
import sys

from item_on_bars import ItemWindow
from session.bars import XfcePanel
from session.program import Program
from session.screen import Screen
from session.session import Session, wait_until

STYLES = ["nextPrayer", "date", "emoji"]


def show(session, executable, pictures):
    screen = Screen(session)
    bar = XfcePanel(session)
    bar.start()
    for style in STYLES:
        program = Program(session, executable)
        item = ItemWindow(screen, bar, program)
        program.start(menuBarStyle=style)
        title = wait_until(item.title, f"the item has its title ({style})")
        wait_until(item.place, f"the item has its place ({style})")
        screen.settled_picture()
        picture = os.path.join(pictures, f"show-{style}.png")
        screen.save(picture)
        print(f"{style}: \"{title}\" in {picture}")
        program.end()


def main():
    executable, pictures = map(os.path.abspath, sys.argv[1:])
    os.makedirs(pictures, exist_ok=True)
    with Session("show") as session:
        show(session, executable, pictures)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Shows the program on a virtual desktop: a screen, a session bus, a window manager and a panel.

    show.py PROGRAM PICTURES

Prints the item's text and leaves pictures of the screen in the folder PICTURES: for each style of the
item, of the panel in each calendar, light and dark, and of the settings.
"""

import os
import sys

from item_on_bars import ItemWindow
from session.bars import XfcePanel
from session.panel import Panel
from session.program import Program
from session.screen import Screen, centre
from session.session import Session, wait_until
from settings_on_desktop import SettingsWindow

STYLES = ["nextPrayer", "date", "emoji"]
PANELS = {"gregorian": "light", "hijri": "dark"}


def show_items(session, bar, executable, pictures):
    screen = Screen(session)
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


def open_panel(session, executable, **settings):
    program = Program(session, executable)
    program.start(menuBarStyle="nextPrayer", **settings)
    panel = Panel(session, executable)
    panel.screen.click(centre(wait_until(panel.item, "the item is in the bar")))
    panel.wait_for()
    return program, panel


def show_panels(session, executable, pictures):
    for calendar, theme in PANELS.items():
        program, panel = open_panel(session, executable, primaryCalendar=calendar, appTheme=theme)
        panel.screen.settled_picture()
        picture = os.path.join(pictures, f"show-panel-{calendar}-{theme}.png")
        panel.screen.save(picture)
        print(f"panel, {calendar}, {theme}: {picture}")
        program.end()


def show_settings(session, executable, pictures):
    program, panel = open_panel(session, executable, appTheme="light")
    frame = panel.rect()
    panel.click((frame.width - 21, frame.height - 19))
    SettingsWindow(session, panel.screen).wait_for()
    panel.screen.settled_picture()
    picture = os.path.join(pictures, "show-settings.png")
    panel.screen.save(picture)
    print(f"settings: {picture}")
    program.end()


def main():
    executable, pictures = map(os.path.abspath, sys.argv[1:])
    os.makedirs(pictures, exist_ok=True)
    with Session("show") as session:
        bar = XfcePanel(session)
        bar.start()
        show_items(session, bar, executable, pictures)
        show_panels(session, executable, pictures)
        show_settings(session, executable, pictures)


if __name__ == "__main__":
    main()

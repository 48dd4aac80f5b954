#!/usr/bin/env python3
"""The settings window, opened from the panel and used as a hand does it, with the program killed
right after a click.

    settings_on_desktop.py CASE PROGRAM PICTURES

The pictures taken are left in the folder PICTURES.
"""

import os
import signal
import sqlite3
import sys

from virtual_desktop.bars import XfcePanel
from virtual_desktop.panel import Panel
from virtual_desktop.program import Program
from virtual_desktop.screen import Screen, centre
from virtual_desktop.session import Session, wait_until
from virtual_desktop.settings import HOLIDAYS, MENU_BAR_ICON, SettingsWindow

SIZE = (380, 520)

# Within the window once it is scrolled to its end, from the bottom.
DARK = (296, 79)

WHEEL_UP, WHEEL_DOWN = "4", "5"


class Check:
    def __init__(self, session, executable, pictures):
        self.session = session
        self.pictures = pictures
        os.makedirs(pictures, exist_ok=True)
        self.program = Program(session, executable)
        self.panel = Panel(session, executable)
        self.screen = Screen(session)
        self.bar = XfcePanel(session)
        self.window = SettingsWindow(session, self.screen)

    def run(self):
        self.bar.start()
        self.program.start(menuBarStyle="date")
        self.open()
        self.is_one_window_beside_the_panel()
        self.leaves_the_panel_open()
        self.comes_from_another_workspace()
        self.stores_what_is_clicked()
        self.survives_a_kill_right_after_a_click()

    def open(self):
        """As a user does: the item, the panel, the gear in its corner."""
        self.screen.click(centre(wait_until(self.panel.item, "the item is in the bar")))
        self.panel.wait_for()
        self.click_gear()
        return self.window.wait_for()

    def click_gear(self):
        frame = self.panel.rect()
        self.panel.click((frame.width - 21, frame.height - 19))

    def is_one_window_beside_the_panel(self):
        frame = self.window.rect()
        assert (frame.width, frame.height) == SIZE, f"{frame} is not {SIZE}"
        bar_and_title = 60
        assert abs(centre(frame)[1] - centre(self.screen.rect)[1]) <= bar_and_title
        apart = self.panel.rect().x - frame.x - frame.width
        assert 0 < apart < 20, f"{apart} pixels to the panel"
        first = self.window.windows()
        self.click_gear()
        self.window.picture()
        assert len(first) == 1 and self.window.windows() == first, "a second window was opened"
        self.save("opened")

    def leaves_the_panel_open(self):
        across, title_bar = SIZE[0] // 2, -9
        for place in ((across, title_bar), (across, 12)):
            self.window.click(place)
            self.window.picture()
            assert self.panel.rect(), f"a press at {place} of the window closed the panel"

    def comes_from_another_workspace(self):
        before = self.window.rect()
        self.session.ask("xdotool", "set_desktop", "1")
        wait_until(lambda: not self.window.rect(), "the window is left behind")
        self.click_gear()
        wait_until(lambda: self.window.rect() == before, "it comes to where the user is")

    def stores_what_is_clicked(self):
        self.window.choose(MENU_BAR_ICON, 1)
        self.wait_for_stored("menuBarStyle", "emoji")
        self.scroll()
        across, above_bottom = DARK
        self.window.click((across, self.window.rect().height - above_bottom))
        self.wait_for_stored("appTheme", "dark")
        wait_until(lambda: self.window.picture().is_dark(), "the window is dark")
        self.save("dark")
        self.session.ask("xdotool", "key", "alt+F4")
        wait_until(lambda: not self.window.rect(), "the window is closed")
        self.program.end()

    def scroll(self):
        """To the theme and the place: the card below them takes nine turns of the wheel."""
        self.screen.point(centre(self.window.rect()))
        # The window manager's word of the other workspace lies over it for a while.
        wait_until(self.window.is_pointed_at, "the wheel is the window's")
        for turns, wheel in (("40", WHEEL_DOWN), ("9", WHEEL_UP)):
            self.session.ask("xdotool", "click", "--repeat", turns, "--delay", "5", wheel)
        self.window.picture()

    def survives_a_kill_right_after_a_click(self):
        self.program.process = self.session.start(self.program.executable)
        self.open()
        switch = self.window.part(HOLIDAYS)
        before = self.screen.picture(switch)
        self.window.click(HOLIDAYS)
        wait_until(lambda: self.screen.picture(switch).difference(before), "the switch moves")
        self.session.end(self.program.process, signal.SIGKILL)
        for key, value in {"showHolidays": 0, "menuBarStyle": "emoji", "appTheme": "dark"}.items():
            assert self.stored(key) == value, f"{key} is {self.stored(key)!r}"

    def wait_for_stored(self, key, value):
        wait_until(lambda: self.stored(key) == value, f"{key} is {value}")

    def stored(self, key):
        file = os.path.join(self.session.environment["XDG_CONFIG_HOME"], "hilalor",
                            "defaults.sqlite")
        store = sqlite3.connect(f"file:{file}?mode=ro", uri=True)
        try:
            row = store.execute("SELECT value FROM defaults WHERE key = ?", (key,)).fetchone()
            return row and row[0]
        finally:
            store.close()

    def save(self, what):
        self.screen.save(os.path.join(self.pictures, f"settings-{what}.png"))


def main():
    name, executable, pictures = sys.argv[1:]
    # So narrow that in its middle the window would be under the panel.
    with Session(name, "860x800x24") as session:
        Check(session, os.path.abspath(executable), os.path.abspath(pictures)).run()


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""A user whose desktop tells no place finds a town by its name, and the bar counts down for it.

    place_by_name.py CASE PROGRAM PICTURES

The pictures taken are left in the folder PICTURES.
"""

import os
import sys

from item_on_bars import COUNTDOWN, ItemWindow
from virtual_desktop.session import Session, wait_until
from settings_on_desktop import Check

NOWHERE = {"locationMode": "automatic", "manualLatitude": 0.0, "manualLongitude": 0.0,
           "manualLocationName": "", "manualTimeZoneId": ""}

# From the left and the bottom of the window, scrolled to them, and of the sheet.
SET_MANUALLY, MAP_BUTTON = (85, 230), (85, 229)
CONFIRM = (589, 24)
FIRST_FOUND = (497, 98)  # From its top.


class PlaceByName(Check):
    def run(self):
        self.bar.start()
        item = ItemWindow(self.screen, self.bar, self.program)
        self.program.start(menuBarStyle="nextPrayer", **NOWHERE)
        wait_until(lambda: COUNTDOWN.fullmatch(item.title()), "it counts down somewhere")
        self.open()
        self.scroll()
        self.click_above_bottom(self.window.rect(), SET_MANUALLY)
        self.wait_for_stored("locationMode", "manual")
        self.scroll()
        self.click_above_bottom(self.window.rect(), MAP_BUTTON)
        sheet = wait_until(self.sheet, "the map is open")
        self.screen.settled_picture(sheet)
        self.session.ask("xdotool", "type", "--delay", "40", "kuala lum")
        self.screen.settled_picture(sheet)
        self.save("map-search")
        self.screen.click((sheet.x + FIRST_FOUND[0], sheet.y + FIRST_FOUND[1]))
        self.screen.settled_picture(sheet)
        self.save("map-found")
        self.click_above_bottom(sheet, CONFIRM)
        self.wait_for_stored("manualTimeZoneId", "Asia/Kuala_Lumpur")
        wait_until(lambda: not self.sheet(), "the map is closed")
        assert self.stored("manualLocationName").startswith("Kuala Lumpur"), \
            self.stored("manualLocationName")
        assert abs(self.stored("manualLatitude") - 3.14) < 0.1
        assert abs(self.stored("manualLongitude") - 101.69) < 0.1
        self.program.end()
        self.program.process = self.session.start(self.program.executable)
        wait_until(lambda: COUNTDOWN.fullmatch(item.title()), "it counts down there")
        self.save("map-counts-down")
        self.program.end()

    def sheet(self):
        return next((window.rect for window in self.screen.windows()
                     if window.title == "Choose Location" and self.screen.is_shown(window)), None)

    def click_above_bottom(self, frame, place):
        self.screen.click((frame.x + place[0], frame.y + frame.height - place[1]))


def main():
    name, executable, pictures = sys.argv[1:]
    with Session(name) as session:
        PlaceByName(session, os.path.abspath(executable), os.path.abspath(pictures)).run()


if __name__ == "__main__":
    main()

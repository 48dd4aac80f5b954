#!/usr/bin/env python3
"""The item as a strip of its own: dragged to another place, out of the way of other windows.

    item_without_bar.py PROGRAM PICTURES
"""

import os
import sys

from item_on_bars import COUNTDOWN, Check, today
from virtual_desktop.screen import centre
from virtual_desktop.session import Session, wait_until

NEW_PLACE = 300
# Buttons of title bars, three of them, are within this far from the screen's end.
BUTTONS = 80


class CheckOfStrip(Check):
    def run(self):
        self.start_program("nextPrayer")
        place = self.see(COUNTDOWN.fullmatch, "at-first")
        assert place.x + place.width == self.screen.rect.width and place.y == 0, place
        self.drag(place, NEW_PLACE)
        self.program.end()

        self.start_program("date")
        place = self.see(lambda title: title == today(), "again")
        assert abs(centre(place)[0] - NEW_PLACE) < 30, f"forgot its place: {place}"
        self.give_way_to_full_screen()
        self.drag(place, self.screen.rect.width - 1)
        self.give_way_to_buttons()
        self.quit_by_menu(self.see(lambda title: title == today(), "beside-buttons"))

    def drag(self, place, to):
        middle = centre(place)
        steps = [str(word) for x in range(middle[0], to, 40 if to > middle[0] else -40)
                 for word in ("mousemove", x, middle[1])]
        self.screen.session.ask("xdotool", "mousemove", str(middle[0]), str(middle[1]), "mousedown",
                                "1", *steps, "mousemove", str(to), str(middle[1]), "mouseup", "1")
        end = min(to + place.width // 2, self.screen.rect.width)
        wait_until(lambda: abs(sum(self.item.place()[0:3:2]) - end) <= 1, "it follows the pointer")
        windows = [window for window in self.screen.windows()
                   if window.name == self.item.window_name and self.screen.is_shown(window)]
        assert len(windows) == 1, f"a drag opens nothing: {windows}"

    def give_way_to_full_screen(self):
        screen = self.screen.rect
        cover = self.screen.session.start("xev", "-geometry", f"{screen.width}x{screen.height}+0+0")
        wait_until(lambda: not self.item.place(), "it hides below what fills the screen", 5)
        self.screen.session.end(cover)
        wait_until(self.item.place, "it comes back", 5)

    def give_way_to_buttons(self):
        session = self.screen.session
        session.start("openbox")
        session.start("xev", "-name", "maximised")
        window = wait_until(self.window_in_frame, "openbox has a window")
        self.screen.point((centre(window)[0], window.y - 10))
        session.ask("xdotool", "click", "--repeat", "2", "--delay", "20", "1")
        wait_until(lambda: sum(self.item.place()[0:3:2]) < self.screen.rect.width - BUTTONS,
                   "it stands beside the buttons", 5)

    def window_in_frame(self):
        """Where the window is, once it keeps still in what openbox put around it."""
        places = [next((window.rect for window in self.screen.windows()
                        if window.title == "maximised" and window.depth > 1), None)
                  for _ in range(2)]
        return places[0] if places[0] == places[1] else None


def main():
    executable, pictures = sys.argv[1:]
    with Session("no-bar") as session:
        CheckOfStrip("no-bar", session, os.path.abspath(executable), os.path.abspath(pictures)).run()


if __name__ == "__main__":
    main()

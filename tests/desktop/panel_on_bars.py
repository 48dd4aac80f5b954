#!/usr/bin/env python3
"""The panel under the item: opened, used and closed as a hand and a keyboard do it.

    panel_on_bars.py CASE PROGRAM PICTURES

CASE is a key of CASES; the pictures taken are left in the folder PICTURES.
"""

import glob
import os
import pathlib
import sys

from virtual_desktop.bars import XfcePanel, XfcePanelWithoutSystemTray
from virtual_desktop.panel import TITLE, WIDTH, Panel, cell
from virtual_desktop.program import Program
from virtual_desktop.screen import Rect, centre
from virtual_desktop.session import Session, SessionWithTwoScreens, wait_until

SCREEN, LOW_SCREEN = "1280x800x24", "1024x600x24"
NOTE = b"call home"


class ItemAtLeftEnd(XfcePanel):
    starts_with_space = False


class BarOnLeftScreen(XfcePanel):
    """Of two, so that there is room on the right of the item, but on the other screen."""

    def screen(self, whole):
        return Rect(0, 0, whole.rect.width // 2, whole.rect.height)


class Check:
    def __init__(self, name, session, executable, pictures):
        self.name = name
        self.bar, self.checks = CASES[name]
        self.bar = self.bar(session)
        self.session = session
        self.pictures = pictures
        os.makedirs(pictures, exist_ok=True)
        self.program = Program(session, executable)
        self.panel = Panel(session, executable)
        self.screen = self.panel.screen
        self.item = None

    def run(self):
        self.bar.start()
        self.other = self.other_program("other")
        self.empty_bar = self.screen.settled_picture(self.bar.rect(self.screen))
        self.program.start(menuBarStyle="date")
        self.item = wait_until(self.find_item, "the item is in the bar")
        for check in self.checks:
            check(self)
            self.save(check.__name__)
            self.close_if_open()

    def find_item(self):
        bar = self.bar.rect(self.screen)
        item = self.panel.item() or self.screen.picture(bar).difference(self.empty_bar)
        return item if item == (self.panel.item() or item) else None

    def other_program(self, name):
        """One that has the keyboard, and prints what it is told of it."""
        self.session.start("xev", "-name", name, "-geometry", "200x200+100+300")
        window = wait_until(
            lambda: self.session.ask("xdotool", "search", "--name", f"^{name}$").strip(),
            "another program is there")
        self.session.ask("xdotool", "windowfocus", "--sync", window)
        return window

    def focus(self):
        return self.session.ask("xdotool", "getwindowfocus").strip()

    def press(self, *keys):
        self.session.ask("xdotool", "key", *keys)

    def save(self, what):
        self.screen.save(os.path.join(self.pictures, f"panel-{self.name}-{what}.png"))

    def open(self):
        self.screen.click(centre(self.item))
        return self.panel.wait_for()

    def close_if_open(self):
        if self.panel.rect():
            self.screen.click(centre(self.item))
            self.panel.wait_for_closed()

    # What is checked.

    def opens_under_the_item(self):
        frame = self.open()
        bar, screen = self.bar.rect(self.screen), self.bar.screen(self.screen)
        middle = centre(self.item)[0] - WIDTH // 2
        left = min(screen.x + screen.width - WIDTH, max(screen.x, middle))
        assert abs(frame.x - left) <= 1, f"{frame} should begin at x {left}"
        # The bar keeps a pixel more than its height free.
        assert frame.y - bar.height in (0, 1), f"{frame} should hang from the bar"
        assert frame.y + frame.height <= screen.height, f"{frame} should be on the screen"
        assert self.focus() == self.other, "the keyboard stays where it was"

    def closes_by_a_second_click(self):
        self.open()
        self.screen.click(centre(self.item))
        self.panel.wait_for_closed()
        self.open()

    def closes_by_a_press_elsewhere(self):
        for place in ((150, 350), (500, 500)):
            self.open()
            self.panel.click(TITLE)
            assert self.panel.rect(), "a click inside leaves it open"
            self.screen.click(place)
            self.panel.wait_for_closed()

    def closes_by_escape(self):
        self.open()
        self.press("Escape")
        self.panel.wait_for_closed()

    def keeps_a_note(self):
        before = self.focus()
        self.open()
        self.panel.click(cell(1, 3), times=2)
        wait_until(self.panel.note, "the note is open")
        wait_until(lambda: self.focus() != before, "the note has the keyboard")
        self.session.ask("xdotool", "type", "--delay", "20", NOTE.decode())
        wait_until(self.is_stored, "the note is stored")
        self.save("note")
        self.press("Escape")
        wait_until(lambda: not self.panel.note(), "the note is closed")
        self.press("Escape")
        self.panel.wait_for_closed()
        wait_until(lambda: self.focus() == before, "the keyboard is given back")
        self.program.end()
        self.program.start()
        self.item = wait_until(self.find_item, "the item is back")
        self.open()
        self.panel.click(cell(1, 3), times=2)
        wait_until(self.panel.note, "the note is open again")
        assert self.is_stored()

    def grows_with_what_it_shows(self):
        frame = self.open()
        self.panel.click(TITLE, times=2)
        wait_until(lambda: self.panel.rect().height > frame.height, "it grows a line")

    def is_stored(self):
        """Whether the note is in the store's bytes, its log's among them."""
        files = glob.glob(os.path.join(self.session.environment["XDG_CONFIG_HOME"], "hilalor", "*"))
        return any(NOTE in pathlib.Path(file).read_bytes() for file in files)


USE = [Check.closes_by_a_second_click, Check.closes_by_a_press_elsewhere, Check.closes_by_escape,
       Check.grows_with_what_it_shows, Check.keeps_a_note]

CASES = {
    "bar-at-top": (XfcePanel, [Check.opens_under_the_item, *USE]),
    "item-on-bus": (XfcePanelWithoutSystemTray,
                    [Check.closes_by_a_second_click, Check.closes_by_a_press_elsewhere]),
    "item-at-left-end": (ItemAtLeftEnd, [Check.opens_under_the_item]),
    "two-screens": (BarOnLeftScreen,
                    [Check.opens_under_the_item, Check.closes_by_a_press_elsewhere]),
}


def main():
    name, executable, pictures = sys.argv[1:]
    session = SessionWithTwoScreens(name) if name == "two-screens" else Session(
        name, LOW_SCREEN if name == "item-at-left-end" else SCREEN)
    with session:
        Check(name, session, os.path.abspath(executable), os.path.abspath(pictures)).run()


if __name__ == "__main__":
    main()

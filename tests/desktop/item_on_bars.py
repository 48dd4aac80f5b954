#!/usr/bin/env python3
"""The item on real bars: there with the right text, back after the bar's end, ended by its menu.

    item_on_bars.py BAR PROGRAM PICTURES

BAR is a key of CASES; the pictures taken are left in the folder PICTURES.
"""

import collections
import datetime
import os
import re
import sys

from virtual_desktop.bars import (NoBar, XfcePanelWithIndicators, XfcePanelWithSquareIcons,
                          XfcePanelWithoutSystemTray)
from virtual_desktop.panel import Panel
from virtual_desktop.program import Program
from virtual_desktop.screen import Rect, Screen, centre
from virtual_desktop.session import Session, wait_until

COUNTDOWN = re.compile(r"(Fajr|Dhuhr|Asr|Maghrib|Isha) (\d+h )?\d+m")
LEAST_CONTRAST = 90
LEFT_BUTTON, RIGHT_BUTTON = 1, 3
FIRST_LINE, LAST_LINE = "first", "last"
HALF_LINE = 14


class ItemWindow:
    """The item as a window of the program's own: in a tray, or alone at the screen's edge."""

    def __init__(self, screen, bar, program):
        self.screen = screen
        self.window_name = os.path.basename(program.executable)

    def title(self):
        window = self._window()
        # Qt adds the program's name to that of its windows.
        return window.title.removesuffix(" \u2014 Hilalor") if window else ""

    def place(self):
        window = self._window()
        return window.rect if window else None

    def _window(self):
        return next((window for window in self.screen.windows()
                     if window.name == self.window_name and self.screen.is_shown(window)), None)


class ItemOnBus:
    """The item as the bar draws it: what is new on the bar since it had none."""

    def __init__(self, screen, bar, program):
        self.screen = screen
        self.bar_rect = Rect(0, 0, screen.rect.width, bar.height)
        self.empty_bar = screen.settled_picture(self.bar_rect)
        self.name = ""

    def title(self):
        told = {self._property("Title").strip("'"), self._property("XAyatanaLabel").strip("'"),
                self._tool_tip()}
        return told.pop() if len(told) == 1 else ""

    def place(self):
        return self.screen.picture(self.bar_rect).difference(self.empty_bar)

    def _property(self, key):
        names = re.findall(r"':\d+\.\d+'", self.screen.session.bus_names())
        if self.name not in names:
            self.name = next((name for name in names if self._property_of(name, "Id")), "")
        return self._property_of(self.name, key) if self.name else ""

    def _property_of(self, name, key):
        return self.screen.session.bus_property(
            name.strip("'"), "/StatusNotifierItem", "org.kde.StatusNotifierItem", key)

    def _tool_tip(self):
        texts = re.findall(r"'(.*?)'", self._property("ToolTip"))
        return texts[1] if len(texts) > 1 else ""


Case = collections.namedtuple("Case", "bar item is_wide menu_button", defaults=[RIGHT_BUTTON])

CASES = {
    "tray": Case(XfcePanelWithSquareIcons, ItemWindow, False),
    "notifier": Case(XfcePanelWithoutSystemTray, ItemOnBus, False),
    # Which keep the right button to themselves.
    "indicator": Case(XfcePanelWithIndicators, ItemOnBus, True, LEFT_BUTTON),
    "no-bar": Case(NoBar, ItemWindow, True),
}


class Check:
    def __init__(self, name, session, executable, pictures):
        self.name = name
        self.case = CASES[name]
        self.pictures = pictures
        os.makedirs(pictures, exist_ok=True)
        self.screen = Screen(session)
        self.bar = self.case.bar(session)
        self.program = Program(session, executable)
        self.item = None

    def run(self):
        self.bar.start()
        self.start_program("nextPrayer")
        self.see(COUNTDOWN.fullmatch, "countdown")
        self.bar.restart()
        place = self.see(COUNTDOWN.fullmatch, "countdown-after-restart")
        self.bar.darken()
        self.look_at(place, "countdown-on-darkened-bar")
        self.program.end()

        self.start_program("date")
        place = self.see(lambda title: title == today(), "date")
        if self.case.item is ItemOnBus:
            self.open_by_menu(place)
        self.quit_by_menu(place)

    def start_program(self, style):
        self.item = self.case.item(self.screen, self.bar, self.program)
        self.program.start(menuBarStyle=style)

    def see(self, is_right, picture):
        """Waits for the item with the right title; its place."""
        wait_until(lambda: is_right(self.item.title()), f"the item has its title ({picture})")
        shape = "wide" if self.case.is_wide else "square"
        place = wait_until(self.settled_place, f"the item keeps its place and is {shape} ({picture})")
        self.look_at(place, picture)
        return place

    def settled_place(self):
        """Where the item is, once it keeps still there and the bar has given it its shape."""
        place = self.item.place()
        if not place or place != self.item.place():
            return None
        is_wide = place.width > 1.5 * place.height
        return place if is_wide == self.case.is_wide else None

    def look_at(self, place, picture):
        wait_until(lambda: self.screen.picture(place).contrast() >= LEAST_CONTRAST,
                   f"the item can be read ({picture})")
        file = os.path.join(self.pictures, f"item-{self.name}-{picture}.png")
        self.screen.save(file, Rect(self.screen.rect.width - 240, 0, 240, 60))

    def open_by_menu(self, place):
        self.choose(place, FIRST_LINE)
        panel = Panel(self.screen.session, self.program.executable)
        panel.wait_for()
        self.screen.settled_picture()
        assert panel.rect(), "what closes the menu leaves the panel open"
        # It has the keyboard, which is given back.
        self.screen.session.ask("xdotool", "key", "Escape")
        panel.wait_for_closed()

    def quit_by_menu(self, place):
        self.choose(place, LAST_LINE)
        assert self.program.status() == 0, f"ended with status {self.program.status()}"

    def choose(self, place, line):
        """Opens the menu and clicks on its first or last line."""
        below = Rect(0, place.y + place.height + 8, self.screen.rect.width, 120)
        without_menu = self.screen.settled_picture(below)
        self.screen.click(centre(place), self.case.menu_button)
        wait_until(lambda: self.screen.picture(below).difference(without_menu), "the menu opens")
        menu = self.screen.settled_picture(below).difference(without_menu)
        self.screen.save(os.path.join(self.pictures, f"item-{self.name}-menu.png"),
                         Rect(self.screen.rect.width - 240, 0, 240, 120))
        y = menu.y + HALF_LINE if line == FIRST_LINE else menu.y + menu.height - HALF_LINE
        self.screen.click((menu.x + menu.width // 2, y))


def today():
    """As the date style has it, in the sessions' time zone."""
    riyadh = datetime.timezone(datetime.timedelta(hours=3))
    return datetime.datetime.now(riyadh).strftime("%-d %b")


def main():
    name, executable, pictures = sys.argv[1:]
    with Session(name) as session:
        Check(name, session, os.path.abspath(executable), os.path.abspath(pictures)).run()


if __name__ == "__main__":
    main()

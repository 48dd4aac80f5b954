#!/usr/bin/env python3
"""The item's titles of all widths in Xfce's tray, as the eye sees them.

    item_widths.py some|all PROBE PICTURES

"some" is the panel as it comes with Xfce, and then light without square icons; "all" is every
height, both themes and four scales, and takes a minute. Items of all scales stand in the tray side by side. After each title,
what is seen of an item must be as wide and high as what the probe draws of that title, stand clear
of its edges and be readable. A picture of each look of the panel, a row for each title, is left in
the folder PICTURES.
"""

import itertools
import os
import subprocess
import sys
import time

from virtual_desktop.bars import XfcePanelWithSquareIcons
from virtual_desktop.screen import Rect, Screen
from virtual_desktop.session import Session, wait_until

# As the probe takes them.
SOME_TITLES = ["|Dhuhr 10m|Dhu|10m|", "|Dhuhr 9m|Dhu|9m|", "|Maghrib 1h 0m|Mag|1h|00",
               "mosque|Maghrib Athan|Mag|now|"]
ALL_TITLES = [*SOME_TITLES, "|6 Apr|6||", "|14 Rab. II|14||"]
# Whether windows keep their width, the panel's height, whether it is dark.
SOME_LOOKS = [(False, 26, True), (True, 26, False)]
HEIGHTS, SCALES = (26, 18, 40), ("1", "1.25", "1.5", "2")
# Of 255: between letters and their ground, and what is no longer ground.
LEAST_CONTRAST, LEAST_INK = 90, 30
# Pixels at the soft edges of letters that may count or not.
TOLERANCE = 2
# As long as the item waits for its tray's answer, and so long between two looks.
VERDICT, BETWEEN_LOOKS = 1.2, 0.15


class Item:
    """A probe with an item of its scale."""

    def __init__(self, session, probe, scale):
        self.name = f"item-{scale}"
        self.process = subprocess.Popen(
            [probe, "-name", self.name], env={**session.environment, "QT_SCALE_FACTOR": scale},
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, start_new_session=True)
        session.processes.append(self.process)

    def say(self, line):
        self.process.stdin.write(f"{line}\n".encode())
        self.process.stdin.flush()

    def drawing(self, shape, height):
        """How wide and high the title is as the probe draws it."""
        self.say(f"{shape} {height}")
        return tuple(map(int, self.process.stdout.readline().split()))

    def faults(self, bar, ground, parts, shape):
        visible = parts.get(self.name)
        if not visible or min(visible.width, visible.height) < 8 or visible.x <= bar.rect.x:
            return [f"{self.name} is not seen"]
        faults = []
        ink = bar.part(visible).ink(ground, LEAST_INK) or Rect(0, 0, 0, 0)
        wanted = self.drawing(shape, visible.height)
        if any(abs(is_ - should) > TOLERANCE for is_, should in zip(ink[2:], wanted)):
            faults.append(f"{self.name} is {ink[2:]}, not {wanted}")
        if any(bar.part(end).ink(ground, LEAST_INK) for end in ends_of(visible, shape, parts)):
            faults.append(f"{self.name} has no margin")
        if bar.part(visible).contrast(ground) < LEAST_CONTRAST:
            faults.append(f"{self.name} cannot be read")
        return faults


def ends_of(visible, shape, parts):
    """The columns that must be free: just outside a square, where it has no neighbour, and those
    at the ends of a text."""
    left, right = visible.x, visible.x + visible.width - 1
    columns = {left, right} if shape == "whole" else {left - 1, right + 1}
    taken = {x for part in parts.values() for x in (part.x, part.x + part.width - 1)}
    return [Rect(x, visible.y, 1, visible.height)
            for x in (columns if shape == "whole" else columns - taken)]


class Check:
    def __init__(self, session, titles, scales, probe, pictures):
        self.titles = titles
        self.pictures = pictures
        os.makedirs(pictures, exist_ok=True)
        self.screen = Screen(session)
        self.bar = XfcePanelWithSquareIcons(session)
        self.bar.start()
        self.items = [Item(session, probe, scale) for scale in scales]

    def run(self, keeps_width, height, is_dark):
        self.bar.change(height, is_dark, keeps_width)
        name = "-".join(["natural" if keeps_width else "square", str(height),
                         "dark" if is_dark else "light"])
        shape = "whole" if keeps_width else "square"
        rows = []
        for title in self.titles:
            for item in self.items:
                item.say(f"title {title}")
            try:
                rows.append(self.wait_for(shape, rows[-1:], f"{name}, {title}"))
            except AssertionError:
                self.save([self.picture()], f"{name}-wrong")
                raise
        time.sleep(VERDICT)
        self.wait_for(shape, [], f"{name}, in the end")
        self.save(rows, name)

    def wait_for(self, shape, before, what):
        """The bar, once every item is right in it and stays so."""
        faults = []

        def right_picture():
            bar = self.picture()
            seen = bar.ground(), self.screen.visible_parts(), shape
            faults[:] = [fault for item in self.items for fault in item.faults(bar, *seen)]
            return not faults and bar.pixels not in [old.pixels for old in before] and bar

        try:
            wait_until(right_picture, f"all is right ({what})", timeout=8)
            time.sleep(BETWEEN_LOOKS)
            return wait_until(right_picture, f"all stays right ({what})", timeout=0)
        except AssertionError as error:
            raise AssertionError(f"{error}: {'; '.join(faults)}") from error

    def picture(self):
        bar = self.bar.rect(self.screen)
        return self.screen.picture(Rect(bar.width - 700, 0, 700, bar.height))

    def save(self, rows, name):
        rect = rows[0].rect
        subprocess.run(["convert", "-size", f"{rect.width}x{len(rows) * rect.height}", "-depth",
                        "8", "rgb:-", "-scale", "200%",
                        os.path.join(self.pictures, f"item-widths-{name}.png")],
                       input=b"".join(row.pixels for row in rows), check=True)


def main():
    extent, probe, pictures = sys.argv[1], *map(os.path.abspath, sys.argv[2:])
    is_all = extent == "all"
    with Session("item-widths") as session:
        check = Check(session, ALL_TITLES if is_all else SOME_TITLES,
                      SCALES if is_all else ("1", "1.5"), probe, pictures)
        looks = itertools.product((False, True), HEIGHTS, (True, False))
        for look in looks if is_all else SOME_LOOKS:
            check.run(*look)


if __name__ == "__main__":
    main()

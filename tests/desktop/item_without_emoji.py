#!/usr/bin/env python3
"""The calendar glyph on a machine without an emoji font, drawn by us and by the bar.

    item_without_emoji.py PROGRAM PICTURES
"""

import os
import sys

from item_on_bars import Check
from virtual_desktop.session import Session, wait_until

FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir><cachedir prefix="xdg">fonts</cachedir>
</fontconfig>
"""

# The band of our own calendar.
GREEN = (34, 120, 70)


class CheckWithoutEmoji(Check):
    def run(self):
        self.forget_emoji()
        self.bar.start()
        self.start_program("emoji")
        place = wait_until(self.place_of_own_calendar, "the item is our own calendar")
        self.look_at(place, "without-emoji")

    def forget_emoji(self):
        session = self.screen.session
        file = session.path("fonts.conf")
        with open(file, "w", encoding="utf-8") as fonts:
            fonts.write(FONTS)
        session.environment["FONTCONFIG_FILE"] = file

    def place_of_own_calendar(self):
        place = self.item.place()
        is_own = place and any(all(abs(one - other) < 8 for one, other in zip(colour, GREEN))
                               for colour in self.screen.picture(place).all())
        return place if is_own else None


def main():
    executable, pictures = map(os.path.abspath, sys.argv[1:])
    for bar in ("tray", "indicator"):
        with Session("without-emoji") as session:
            CheckWithoutEmoji(bar, session, executable, pictures).run()


if __name__ == "__main__":
    main()

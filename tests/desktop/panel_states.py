#!/usr/bin/env python3
"""The open panel follows what changes: the theme, the calendar, the sections, a sound.

    panel_states.py PROBE PICTURES [SCALE]

PROBE is the panel_probe; the pictures taken are left in the folder PICTURES.
"""

import os
import subprocess
import sys

from session.bars import XfcePanel
from session.panel import TITLE, Panel, cell
from session.screen import centre
from session.session import Session, wait_until

GREEN = (34, 120, 70)
# In points from the panel's lower left corner.
STOP = (130, -20)


class States:
    def __init__(self, session, probe, pictures, scale):
        self.pictures = pictures
        self.scale = scale
        os.makedirs(pictures, exist_ok=True)
        session.environment.update(QT_SCALE_FACTOR=str(scale), GDK_SCALE=str(scale))
        XfcePanel(session).start()
        self.panel = Panel(session, probe, scale)
        self.screen = self.panel.screen
        self.process = subprocess.Popen(
            [probe], env=session.environment, stdin=subprocess.PIPE, start_new_session=True)
        session.processes.append(self.process)
        self.item = wait_until(self.panel.item, "the item is in the bar")
        self.screen.click(centre(self.item))
        self.panel.wait_for()

    def say(self, command):
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()

    def picture(self, name):
        self.screen.point((5, 790))
        picture = self.panel.picture()
        self.screen.save(os.path.join(self.pictures, f"panel-{name}-{self.scale}x.png"),
                         self.panel.rect())
        return picture

    def height(self):
        frame = self.panel.rect()
        return frame.height / self.scale if frame else 0

    def changes_height_to(self, is_right, what):
        wait_until(lambda: is_right(self.height()), what)

    def run(self):
        assert not self.picture("light").is_dark()
        self.follows_the_theme()
        self.follows_the_calendar()
        self.shows_a_day_with_a_note()
        self.follows_the_sections()
        self.offers_to_stop_a_sound()

    def follows_the_theme(self):
        self.say("theme dark")
        wait_until(lambda: self.panel.picture().is_dark(), "it is dark")
        self.picture("dark")
        self.say("theme system")
        wait_until(lambda: not self.panel.picture().is_dark(), "it is as the desktop is")

    def follows_the_calendar(self):
        self.panel.click(TITLE, times=2)
        height = self.height()
        self.changes_height_to(lambda now: now > height - 1, "the title has a second line")
        self.picture("year")
        gregorian = self.panel.picture()
        self.say("calendar hijri")
        wait_until(lambda: self.panel.picture().pixels != gregorian.pixels, "it is another month")
        self.picture("hijri")
        self.say("theme dark")
        wait_until(lambda: self.panel.picture().is_dark(), "it is dark")
        self.picture("hijri-dark")
        self.say("theme system")
        self.say("calendar gregorian")

    def shows_a_day_with_a_note(self):
        wait_until(lambda: not self.panel.picture().is_dark(), "it is as the desktop is")
        self.panel.click(cell(3, 0), times=2)
        wait_until(self.panel.note, "the note is open")
        self.screen.session.ask("xdotool", "type", "--delay", "20", "a national day")
        self.screen.session.ask("xdotool", "key", "Escape")
        wait_until(lambda: not self.panel.note(), "the note is closed")
        self.panel.point_at(cell(3, 0))
        self.screen.settled_picture(self.panel.rect())
        self.screen.save(os.path.join(self.pictures, f"panel-holiday-note-{self.scale}x.png"),
                         self.panel.rect())

    def follows_the_sections(self):
        whole = self.height()
        self.say("sunnah on")
        self.changes_height_to(lambda now: now > whole, "there are Sunnah times")
        self.picture("sunnah")
        self.say("month off")
        self.changes_height_to(lambda now: 0 < now < whole / 2 + 50, "there is no month")
        self.picture("times-only")
        self.say("times off")
        self.changes_height_to(lambda now: 0 < now < 80, "there is the lower bar alone")
        self.picture("bar-only")
        self.say("sunnah off")
        self.say("month on")
        self.say("times on")
        self.changes_height_to(lambda now: now == whole, "it is whole again")

    def offers_to_stop_a_sound(self):
        def offers():
            frame = self.panel.rect()
            row = self.panel.picture()
            y = frame.y + frame.height + STOP[1] * self.scale
            around = range(frame.x + 60 * self.scale, frame.x + 200 * self.scale)
            return any(row.at(x, y) == GREEN for x in around)

        for sound in ("voice", "dua"):
            assert not offers()
            self.say(f"{sound} on")
            wait_until(offers, f"{sound} can be stopped")
            self.picture(f"stop-{sound}")
            self.panel.click((STOP[0], self.height() + STOP[1]))
            wait_until(lambda: not offers(), f"{sound} has stopped")


def main():
    probe, pictures, *scale = sys.argv[1:]
    with Session("panel-states", "1280x1400x24") as session:
        States(session, os.path.abspath(probe), os.path.abspath(pictures),
               int(scale[0]) if scale else 1).run()


if __name__ == "__main__":
    main()

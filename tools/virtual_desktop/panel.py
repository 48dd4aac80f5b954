"""The program's windows: the item, the panel, the note."""

import os
import time

from virtual_desktop.screen import Screen
from virtual_desktop.session import wait_until

# In points, as the panel is laid out with the secondary calendar in it.
WIDTH = 260
NOTE_WIDTH = 264
BAR_HEIGHT = 40
TITLE = (130, 28)


def cell(row, column):
    """The middle of a place of the month grid."""
    return 12 + 34 * column + 16, 90 + 42 * row + 20


class Panel:
    def __init__(self, session, executable, scale=1):
        self.session = session
        self.screen = Screen(session)
        self.name = os.path.basename(executable)
        self.scale = scale

    def rect(self):
        """The panel's frame; none while it is closed."""
        return self._window(lambda window: window.rect.width == WIDTH * self.scale)

    def note(self):
        return self._window(lambda window: window.rect.width == NOTE_WIDTH * self.scale)

    def item(self):
        """A tray window of ours that rests in its bar; on D-Bus the item is the bar's to draw."""
        item = self._item()
        # Trays move it about before it stands where it stays.
        time.sleep(0.1 if item else 0)
        return item if item == self._item() else None

    def wait_for(self):
        return wait_until(self.rect, "the panel is open")

    def wait_for_closed(self):
        wait_until(lambda: self.rect() is None, "the panel is closed")

    def point_at(self, place):
        frame = self.rect()
        self.screen.point((frame.x + place[0] * self.scale, frame.y + place[1] * self.scale))

    def click(self, place, times=1):
        self.point_at(place)
        self.session.ask("xdotool", "click", "--repeat", str(times), "--delay", "60", "1")

    def picture(self):
        return self.screen.settled_picture(self.rect())

    def _item(self):
        return self._window(lambda window: window.rect.height < BAR_HEIGHT * self.scale
                            and window.depth > 1 and window.rect.x >= 0)

    def _window(self, is_it):
        return next((window.rect for window in self.screen.windows()
                     if window.name == self.name and is_it(window)
                     and self.screen.is_shown(window)), None)

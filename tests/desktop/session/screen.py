"""What is on the screen, and the hand on the mouse."""

import collections
import re
import subprocess

from session.session import wait_until

Rect = collections.namedtuple("Rect", "x y width height")

WINDOW_LINE = re.compile(
    r'^(\s+)(0x[0-9a-f]+) "(.*)": \((?:"(.*?)" "(.*?)")?\)\s+'
    r"(\d+)x(\d+)[+-]-?\d+[+-]-?\d+\s+\+(-?\d+)\+(-?\d+)$")
# `depth` is 1 for a window of the root, 2 for a window in that, and so on.
Window = collections.namedtuple("Window", "id title name rect depth")


def centre(rect):
    return rect.x + rect.width // 2, rect.y + rect.height // 2


class Picture:
    """The pixels of a part of the screen."""

    def __init__(self, rect, pixels):
        self.rect = rect
        self.pixels = pixels

    def at(self, x, y):
        place = 3 * ((y - self.rect.y) * self.rect.width + x - self.rect.x)
        return tuple(self.pixels[place:place + 3])

    def all(self):
        return (tuple(self.pixels[i:i + 3]) for i in range(0, len(self.pixels), 3))

    def ground(self):
        """The colour most of it has."""
        return collections.Counter(self.all()).most_common(1)[0][0]

    def is_dark(self):
        return lightness(self.ground()) < 110

    def contrast(self):
        """How far the lightness of anything in it is from the ground's, 0 to 255."""
        ground = lightness(self.ground())
        return max(abs(lightness(colour) - ground) for colour in set(self.all()))

    def difference(self, other):
        """The smallest rectangle outside which both are alike; none where all is."""
        places = [i // 3 for i in range(0, len(self.pixels), 3)
                  if self.pixels[i:i + 3] != other.pixels[i:i + 3]]
        if not places:
            return None
        columns = [place % self.rect.width for place in places]
        left, right = min(columns), max(columns)
        top, bottom = places[0] // self.rect.width, places[-1] // self.rect.width
        return Rect(self.rect.x + left, self.rect.y + top, right - left + 1, bottom - top + 1)


def lightness(colour):
    red, green, blue = colour
    return 0.299 * red + 0.587 * green + 0.114 * blue


class Screen:
    def __init__(self, session):
        self.session = session
        width, height, _ = session.screen.split("x")
        self.rect = Rect(0, 0, int(width), int(height))

    def picture(self, rect=None):
        rect = rect or self.rect
        pixels = subprocess.run(
            ["import", "-silent", "-window", "root", "-crop",
             f"{rect.width}x{rect.height}+{rect.x}+{rect.y}", "-depth", "8", "rgb:-"],
            env=self.session.environment, stdout=subprocess.PIPE, timeout=20, check=True).stdout
        if len(pixels) != 3 * rect.width * rect.height:
            raise AssertionError(f"no picture of {rect}")
        return Picture(rect, pixels)

    def settled_picture(self, rect=None):
        """A picture that the next one is like."""
        pictures = [self.picture(rect)]

        def is_settled():
            pictures.append(self.picture(rect))
            return pictures[-2].pixels == pictures[-1].pixels

        wait_until(is_settled, "the screen rests")
        return pictures[-1]

    def save(self, file, rect=None):
        rect = rect or self.rect
        self.session.ask("import", "-silent", "-window", "root", "-crop",
                         f"{rect.width}x{rect.height}+{rect.x}+{rect.y}", "+repage", file)

    def windows(self):
        windows = []
        for line in self.session.ask("xwininfo", "-root", "-tree").splitlines():
            match = WINDOW_LINE.match(line)
            if match:
                indent, id, title, name, _, width, height, x, y = match.groups()
                windows.append(Window(id, title, name or "",
                                      Rect(int(x), int(y), int(width), int(height)),
                                      (len(indent) - 2) // 3))
        return windows

    def is_shown(self, window):
        """Whether it is there for the eye; bars keep hidden windows outside the screen."""
        is_within = window.rect.x >= 0 and window.rect.y >= 0
        return is_within and "IsViewable" in self.session.ask("xwininfo", "-id", window.id)

    def point(self, place):
        self.session.ask("xdotool", "mousemove", str(place[0]), str(place[1]))

    def click(self, place, button=1):
        self.point(place)
        self.session.ask("xdotool", "click", str(button))

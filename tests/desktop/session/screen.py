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
        return self._around(self._changes(other))

    def new_ground(self, other):
        """The smallest rectangle around the colour that most of what differs has in this."""
        places = list(self._changes(other))
        colours = collections.Counter(self.pixels[3 * place:3 * place + 3] for place in places)
        ground = max(colours, key=colours.get, default=None)
        return self._around(place for place in places
                            if self.pixels[3 * place:3 * place + 3] == ground)

    def part(self, rect):
        """A picture of a part of it."""
        begin = 3 * (rect.x - self.rect.x)
        rows = (3 * self.rect.width * (rect.y - self.rect.y + row) + begin
                for row in range(rect.height))
        return Picture(rect, b"".join(self.pixels[row:row + 3 * rect.width] for row in rows))

    def _changes(self, other):
        """The places of the pixels that differ, counted row by row."""
        width = self.rect.width
        for begin in range(0, len(self.pixels) // 3, width):
            rows = slice(3 * begin, 3 * (begin + width))
            if self.pixels[rows] != other.pixels[rows]:
                yield from (place for place in range(begin, begin + width)
                            if self.pixels[3 * place:3 * place + 3] !=
                            other.pixels[3 * place:3 * place + 3])

    def _around(self, places):
        rows_and_columns = [divmod(place, self.rect.width) for place in places]
        if not rows_and_columns:
            return None
        rows, columns = zip(*rows_and_columns)
        left, top = min(columns), min(rows)
        return Rect(self.rect.x + left, self.rect.y + top, max(columns) - left + 1,
                    max(rows) - top + 1)


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

    def click(self, place, button=1, clicks=1):
        self.point(place)
        self.session.ask("xdotool", "click", "--repeat", str(clicks), "--delay", "60", str(button))

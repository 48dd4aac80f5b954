"""What is on the screen, and the hand on the mouse."""

import collections
import ctypes
import re
import time

from virtual_desktop.session import wait_until

Rect = collections.namedtuple("Rect", "x y width height")

WINDOW_LINE = re.compile(
    r'^(\s+)(0x[0-9a-f]+) (?:"(.*)"|\(has no name\)): \((?:"(.*?)" "(.*?)")?\)\s+'
    r"(\d+)x(\d+)[+-]-?\d+[+-]-?\d+\s+\+(-?\d+)\+(-?\d+)$")
LINE_HEIGHT = 12
# `depth` is 1 for a window of the root, 2 for a window in that, and so on.
Window = collections.namedtuple("Window", "id title name rect depth")


def centre(rect):
    return rect.x + rect.width // 2, rect.y + rect.height // 2


def common(one, other):
    """What both rectangles have; its width or height is 0 or less where that is nothing."""
    x, y = max(one.x, other.x), max(one.y, other.y)
    return Rect(x, y, min(one.x + one.width, other.x + other.width) - x,
                min(one.y + one.height, other.y + other.height) - y)


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
        colours = collections.Counter(self.all())
        return max(colours, key=colours.get)

    def is_dark(self):
        return lightness(self.ground()) < 110

    def contrast(self, ground=None):
        """How far the lightness of anything in it is from the ground's, 0 to 255."""
        ground = lightness(ground or self.ground())
        return max(abs(lightness(colour) - ground) for colour in set(self.all()))

    def difference(self, other):
        """The smallest rectangle outside which both are alike; none where all is."""
        changes = list(self._changes(other))
        if not changes:
            return None
        rows, firsts, lasts = zip(*changes)
        left, top = min(firsts), min(rows)
        return Rect(self.rect.x + left, self.rect.y + top, max(lasts) - left + 1,
                    max(rows) - top + 1)

    def new_ground(self, other):
        """Around the colour that most of what differs has in this; a pointer that came or went, or
        a button that lit up, lies in few rows and columns and does not count."""
        changes = [place for row, first, last in self._changes(other)
                   for place in range(row * self.rect.width + first, row * self.rect.width + last + 1)
                   if self._colour(place) != other._colour(place)]
        colours = collections.Counter(map(self._colour, changes))
        ground = max(colours, key=colours.get, default=None)
        places = [divmod(place, self.rect.width) for place in changes
                  if self._colour(place) == ground]
        return self._around(places, least_share=0.1)

    def first_line(self, is_it):
        """Around the topmost line of text whose colour `is_it` knows; none where there is none."""
        width = self.rect.width
        places = [divmod(place, width) for place, colour in enumerate(self.all()) if is_it(*colour)]
        return self._around([place for place in places if place[0] - places[0][0] < LINE_HEIGHT])

    def ink(self, ground, least):
        """The smallest rectangle around all that is so far from the ground in a channel."""
        return self._around([divmod(place, self.rect.width) for place, colour in
                             enumerate(self.all())
                             if max(abs(a - b) for a, b in zip(colour, ground)) >= least])

    def _around(self, places, least_share=0):
        """Leaves out rows and columns that have less than that share of what the fullest has."""
        if not places:
            return None
        rows, columns = (full(lines, least_share) for lines in zip(*places))
        left, top = min(columns), min(rows)
        return Rect(self.rect.x + left, self.rect.y + top, max(columns) - left + 1,
                    max(rows) - top + 1)

    def part(self, rect):
        """A picture of a part of it."""
        begin = 3 * (rect.x - self.rect.x)
        rows = (3 * self.rect.width * (rect.y - self.rect.y + row) + begin
                for row in range(rect.height))
        return Picture(rect, b"".join(self.pixels[row:row + 3 * rect.width] for row in rows))

    def _colour(self, place):
        return self.pixels[3 * place:3 * place + 3]

    def _changes(self, other):
        """Each row that differs, with the first and the last column that do."""
        length = 3 * self.rect.width
        for row in range(self.rect.height):
            part = slice(length * row, length * (row + 1))
            if self.pixels[part] == other.pixels[part]:
                continue
            bits = int.from_bytes(self.pixels[part], "big") ^ int.from_bytes(other.pixels[part],
                                                                             "big")
            first = 8 * length - bits.bit_length()
            last = 8 * length - (bits & -bits).bit_length()
            yield row, first // 24, last // 24


def full(lines, least_share):
    counts = collections.Counter(lines)
    least = least_share * max(counts.values())
    return [line for line, count in counts.items() if count >= least]


def lightness(colour):
    red, green, blue = colour
    return 0.299 * red + 0.587 * green + 0.114 * blue


class Image(ctypes.Structure):
    """The beginning of Xlib's XImage."""

    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p)]


class Eye:
    """Looks at an X server's screen, faster than a program that is started for it."""

    ALL_PLANES, Z_PIXMAP = ctypes.c_ulong(-1), 2

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetImage.restype = ctypes.POINTER(Image)
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))

    def pixels(self, rect):
        image = self.x11.XGetImage(self.display, self.root, rect.x, rect.y, rect.width,
                                   rect.height, self.ALL_PLANES, self.Z_PIXMAP)
        count = rect.width * rect.height
        data = ctypes.string_at(image.contents.data, 4 * count)
        self.x11.XFree(ctypes.c_void_p(image.contents.data))
        self.x11.XFree(image)
        pixels = bytearray(3 * count)
        for channel in range(3):
            pixels[channel::3] = data[2 - channel::4]
        return bytes(pixels)


class Screen:
    def __init__(self, session):
        self.session = session
        width, height, _ = session.screen.split("x")
        self.rect = Rect(0, 0, int(width), int(height))
        self.eye = Eye(session.environment["DISPLAY"])

    def picture(self, rect=None):
        rect = self.within(rect or self.rect)
        return Picture(rect, self.eye.pixels(rect))

    def within(self, rect):
        """The part of it that is on the screen; bars keep what is on its way outside."""
        left, top = max(0, rect.x), max(0, rect.y)
        width = min(rect.x + rect.width, self.rect.width) - left
        height = min(rect.y + rect.height, self.rect.height) - top
        return Rect(left, top, width, height) if width > 0 < height else Rect(0, 0, 1, 1)

    def settled_picture(self, rect=None):
        """A picture that the next one is like."""
        pictures = [self.picture(rect)]

        def is_settled():
            time.sleep(0.1)
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
                windows.append(Window(id, title or "", name or "",
                                      Rect(int(x), int(y), int(width), int(height)),
                                      (len(indent) - 2) // 3))
        return windows

    def visible_parts(self):
        """What the windows around it and the screen's edges leave of each window in another."""
        parts = {}
        line = [self.rect]  # What can be seen at each depth of the present line of windows.
        for window in self.windows():
            line[window.depth:] = [common(window.rect, line[window.depth - 1])]
            if window.depth > 1:
                parts[window.name] = line[-1]
        return parts

    def is_shown(self, window):
        """Whether it is there for the eye; bars keep hidden windows outside the screen."""
        is_within = window.rect.x >= 0 and window.rect.y >= 0
        return is_within and "IsViewable" in self.session.ask("xwininfo", "-id", window.id)

    def point(self, place):
        # As a hand does: some shells miss a press where the pointer was not seen to come.
        x, y = place
        self.session.ask("xdotool", "mousemove", str(x + 4), str(y + 4), "sleep", "0.03",
                         "mousemove", str(x), str(y), "sleep", "0.03")

    def click(self, place, button=1, clicks=1):
        self.point(place)
        self.session.ask("xdotool", "click", "--repeat", str(clicks), "--delay", "60", str(button))

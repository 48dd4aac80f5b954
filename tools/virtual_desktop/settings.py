"""The settings window, as a hand uses it."""

from virtual_desktop.screen import Rect
from virtual_desktop.session import wait_until

TITLE = "Hilalor Settings"

# Within the window, as it opens.
MENU_BAR_ICON, HOLIDAYS = (80, 100), (334, 332)


class SettingsWindow:
    def __init__(self, session, screen):
        self.session = session
        self.screen = screen

    def windows(self):
        return [window for window in self.screen.windows()
                if window.title == TITLE and self.screen.is_shown(window)]

    def rect(self):
        """Of what is inside the window manager's frame; none while it is closed."""
        return next((window.rect for window in self.windows()), None)

    def is_pointed_at(self):
        pointed_at = self.session.ask("xdotool", "getmouselocation").rpartition(":")[2].strip()
        # Of no window, xwininfo would ask the user which one.
        return pointed_at != "0" and TITLE in self.session.ask("xwininfo", "-tree", "-id", pointed_at)

    def wait_for(self):
        return wait_until(self.rect, "the settings window is open")

    def click(self, place):
        frame = self.rect()
        self.screen.click((frame.x + place[0], frame.y + place[1]))

    def part(self, place):
        """The surroundings of a place, wide enough for a switch."""
        frame = self.rect()
        return Rect(frame.x + place[0] - 17, frame.y + place[1] - 10, 34, 20)

    def picture(self):
        self.screen.point((5, 790))
        return self.screen.settled_picture(self.rect())

    def choose(self, picker, option):
        """The option of that place in the picker's menu, by the keyboard."""
        before = len(self.screen.windows())
        self.click(picker)
        wait_until(lambda: len(self.screen.windows()) > before, "the menu is open")
        self.session.ask("xdotool", "key", *["Down"] * (option + 1), "Return")

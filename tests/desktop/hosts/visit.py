"""One desktop visited: each step by hand and keyboard, and judged by what is on the screen."""

import glob
import os
import pathlib
import shutil
import time

from announcement.announcements import place_of_noon, the_minute_of_the_first_tick
from virtual_desktop.panel import WIDTH, cell
from virtual_desktop.program import Program
from virtual_desktop.screen import Rect, Screen, centre
from virtual_desktop.session import wait_until

LEAST_CONTRAST = 90
PATIENCE = 12
WIDEST_SQUARE = 36  # "Isha 8m" is wider.
RIGHT_BUTTON = 3
SETTINGS_WIDTH = 380
LONGER_THAN_A_DOUBLE_CLICK = 0.6
SHADOW = 20
NOTHING = Rect(0, 0, 0, 0)


class Visit:
    def __init__(self, host, session, build, pictures):
        self.host, self.session = host, session
        self.build, self.pictures = build, pictures
        self.screen = Screen(session)
        self.program = Program(session, os.path.join(build, "program", "hilalor"))
        self.bar = self.without_item = self.item = None
        # Where windows come, apart from the bar with its clock.
        above = host.bar.y > 0
        begin, end = (0, host.bar.y) if above else (host.bar.height, self.screen.rect.height)
        self.stage = Rect(0, begin, self.screen.rect.width, end - begin - host.below)

    # The desktop.

    def start(self):
        host, session = self.host, self.session
        # Shells want a system's bus too.
        session.environment.update(
            host.environment,
            DBUS_SYSTEM_BUS_ADDRESS=session.environment["DBUS_SESSION_BUS_ADDRESS"])
        for name, text in host.files.items():
            file = os.path.join(session.environment["XDG_CONFIG_HOME"], name)
            os.makedirs(os.path.dirname(file), exist_ok=True)
            with open(file, "w", encoding="utf-8") as config:
                config.write(text() if callable(text) else text)
        for name, folder in host.built.items():
            shutil.copytree(os.path.join(self.build, folder),
                            os.path.join(session.environment["XDG_DATA_HOME"], name))
        session.ask("xsetroot", "-solid", "#304050")
        if host.compositor:
            # Where Weston takes the pointer to be when it starts.
            self.screen.point((0, 0))
            session.start(*host.compositor)
            self.program.environment = wait_until(lambda: host.inner(session), "it is up", 60)
            if not host.has_x:
                self.program.environment["DISPLAY"] = ""
        for program in host.programs:
            bare = self.rested()
            self.bar = self.start_one(program)
        if "restart" not in host.without:
            wait_until(lambda: self.picture_of_bar().difference(bare.part(host.bar)), "a bar", 40)
        self.without_item = self.begun().part(host.bar)
        self.save("empty")

    def start_one(self, program, **environment):
        return self.session.start(*program.split(), **self.program.environment, **environment)

    def begun(self):
        """The screen once the desktop is up; some begin with an overview."""
        self.rested()
        self.press("Escape")
        return self.rested()

    def rested(self):
        """The screen once nothing has moved on it for a while."""
        picture, since = self.screen.picture(), time.monotonic()
        while time.monotonic() - since < self.host.rest:
            time.sleep(0.1)
            now = self.screen.picture()
            if now.pixels != picture.pixels:
                picture, since = now, time.monotonic()
        return picture

    def save(self, what):
        self.screen.save(os.path.join(self.pictures, f"{what}.png"))

    # The item.

    def start_item(self, **settings):
        """Starts the program anew; where its item is to be seen."""
        if self.program.process and self.program.process.poll() is None:
            self.program.end()
        if self.host.moves_others and self.item is None:
            self.without_item = self.with_another_item()
        self.program.start(menuBarStyle="nextPrayer", **settings)
        return self.find_item()

    def begin_anew(self):
        """After a step that failed."""
        self.press("Escape", "Escape")
        try:
            self.item = self.start_item()
        except AssertionError:
            self.item = None

    def with_another_item(self):
        """The bar with the same square and something else in it."""
        self.program.start(menuBarStyle="date")
        self.wait(lambda: self.picture_of_bar().difference(self.without_item), "an item is there")
        picture = self.rested().part(self.host.bar)
        self.program.end()
        return picture

    def picture(self):
        return self.screen.picture(self.stage)

    def picture_of_bar(self):
        return self.screen.picture(self.host.bar)

    def find_item(self):
        def item():
            place = self.screen.settled_picture(self.host.bar).difference(self.without_item)
            is_square = place and place.width <= WIDEST_SQUARE
            return place if place and is_square == (self.host.shape == "square") else None

        place = self.wait(item, f"the item is there ({self.host.shape})")
        self.wait(lambda: self.screen.picture(place).contrast() > LEAST_CONTRAST, "it can be read")
        return place

    # The windows, as the eye finds them.

    def wait(self, condition, what, patience=PATIENCE):
        def is_so():
            if self.host.stalls:
                self.session.ask("xdotool", "mousemove_relative", "1", "1",
                                 "mousemove_relative", "--", "-1", "-1")
            return condition()

        return wait_until(is_so, what, patience)

    def new_frame(self, before, width=None):
        """Around the ground of what is new on the screen; none where it has another width."""
        frame = self.picture().new_ground(before)
        return frame if frame and (width is None or abs(frame.width - width) <= 2) else None

    def click_item(self, button=1, clicks=1):
        assert self.item, "there is no item"
        self.screen.click(centre(self.item), button, clicks)

    def open(self):
        """The panel's frame, and the screen before it."""
        before = self.closed_screen()
        self.click_item(clicks=self.host.clicks)
        self.wait(lambda: self.new_frame(before, WIDTH), "the panel is there")
        # Some compositors move it when it is there.
        self.screen.settled_picture(self.stage)
        return self.new_frame(before, WIDTH), before

    def closed_screen(self):
        self.screen.point((self.screen.rect.width // 2, 120))
        return self.screen.settled_picture(self.stage)

    def wait_for_closed(self, before):
        self.wait(lambda: not self.new_frame(before, WIDTH), "the panel is closed")
        time.sleep(LONGER_THAN_A_DOUBLE_CLICK)

    def press(self, *keys):
        self.session.ask("xdotool", "key", *keys)

    # The steps, in their order.

    def shows_item(self):
        self.item = self.start_item()

    def opens_by_click(self):
        frame, before = self.open()
        across = centre(self.item)[0]
        bar = self.item
        gap = max(frame.y - bar.y - bar.height, bar.y - frame.y - frame.height)
        is_at_item = frame.x <= across <= frame.x + frame.width and -2 <= gap < 20
        assert is_at_item or not self.host.places_windows, \
            f"the panel at {frame} is not at the item at {bar}"
        self.save("panel")
        self.click_item(clicks=self.host.clicks)
        self.wait_for_closed(before)

    def closes_elsewhere(self):
        for place in (centre(self.screen.rect), (150, 700)):
            frame, before = self.open()
            if frame.x <= place[0] <= frame.x + frame.width:
                place = (frame.x - 100, place[1])
            self.screen.click(place)
            self.wait_for_closed(before)

    def closes_by_escape(self):
        _, before = self.open()
        self.press("Escape")
        self.wait_for_closed(before)

    def keeps_note(self):
        frame, before = self.open()
        with_panel = self.picture()
        across, down = cell(1, 3)
        self.screen.click((frame.x + across, frame.y + down), clicks=2)
        self.wait(lambda: (self.new_frame(with_panel) or NOTHING).width >= WIDTH // 2,
                  "the note is there")
        self.screen.settled_picture()
        note = self.new_frame(with_panel)
        empty_note = self.screen.picture(note)
        self.session.ask("xdotool", "type", "--delay", "30", "call home")
        self.wait(lambda: b"call home" in self.stored(), "the note is stored")
        self.wait(lambda: (self.screen.picture(note).difference(empty_note) or NOTHING).width > 30,
                  "the typed text is to be seen")
        self.screen.settled_picture()
        self.save("note")
        self.press("Escape")
        self.wait(lambda: (self.screen.picture(note).new_ground(with_panel.part(note)) or NOTHING)
                  .width < note.width // 2, "the note is closed")
        self.press("Escape")
        self.wait_for_closed(before)

    def stored(self):
        """The bytes of the store, its journal's too."""
        files = glob.glob(os.path.join(self.session.environment["XDG_CONFIG_HOME"], "hilalor", "*"))
        return b"".join(pathlib.Path(file).read_bytes() for file in files)

    def changes_style(self):
        frame, _ = self.open()
        with_panel = self.picture()
        self.screen.click((frame.x + frame.width - 21, frame.y + frame.height - 19))
        self.wait(lambda: (self.new_frame(with_panel) or NOTHING).width >= SETTINGS_WIDTH // 2,
                  "the settings are there")
        self.rested()
        window = self.new_frame(with_panel)
        self.save("settings")
        with_item = self.picture_of_bar()
        picker = self.screen.picture(window).first_line(is_green)
        with_settings = self.picture()
        self.screen.click(centre(picker))
        self.wait(lambda: (self.new_frame(with_settings) or NOTHING).height > 30, "a menu")
        self.press("Down", "Return")
        self.wait(lambda: self.picture_of_bar().difference(with_item), "the item changes")
        self.screen.settled_picture()
        self.save("style")
        self.item = self.start_item()

    def restart(self, **environment):
        self.session.end(self.bar)
        gone = self.rested().part(self.host.bar)
        self.bar = self.start_one(self.host.programs[-1], **environment)
        wait_until(lambda: self.picture_of_bar().difference(gone), "a bar", 40)
        self.begun()

    def survives_restart(self):
        self.restart()
        self.item = self.find_item()
        self.save("restarted")
        _, before = self.open()
        self.press("Escape")
        self.wait_for_closed(before)

    def can_be_read_on_other_shade(self):
        was_dark = self.picture_of_bar().is_dark()
        if self.host.other_shade:
            self.session.ask("sh", "-c", self.host.other_shade)
        elif self.host.dark:
            self.restart(**self.host.dark)
        else:
            return "only " + ("dark" if was_dark else "light")
        self.wait(lambda: self.picture_of_bar().is_dark() != was_dark, "the bar changes")
        self.wait(lambda: self.screen.picture(self.item).contrast() > LEAST_CONTRAST,
                  "the item can be read")
        self.save("shade")
        return "light and dark"

    def quits_by_menu(self):
        assert self.item, "there is no item"
        # Beside the item, for titles of windows change their colours too.
        left = max(0, centre(self.item)[0] - 200)
        top = self.stage.y if self.host.bar.y == 0 else self.host.bar.y - 200
        beside = Rect(left, top, min(400, self.screen.rect.width - left), 200)
        before = self.closed_screen().part(beside)
        self.click_item(RIGHT_BUTTON)
        # Wider than the pointer, which some compositors draw into the picture.
        self.wait(lambda: (self.screen.picture(beside).new_ground(before) or NOTHING).width > 40,
                  "the menu is there")
        menu = self.screen.settled_picture(beside).new_ground(before)
        self.save("menu")
        self.screen.click((centre(menu)[0], menu.y + menu.height - 12))
        assert self.program.status() == 0, "the program ends well"

    def shows_banner(self):
        # The bar may have another shade than it had at first.
        if self.program.process.poll() is None:
            self.program.end()
        self.without_item, self.item = self.rested().part(self.host.bar), None
        place = place_of_noon(self.build, the_minute_of_the_first_tick())
        self.item = self.start_item(prayerNotificationsEnabled=True, **place)
        frame, _ = self.open()
        right = frame.x + frame.width + SHADOW
        sides = [self.stage._replace(width=frame.x - SHADOW),
                 self.stage._replace(x=right, width=self.stage.width - right)]
        with_panel = self.picture()

        def banner():
            picture = self.picture()
            new = [picture.part(side).difference(with_panel.part(side)) or NOTHING
                   for side in sides if side.width > 0]
            return any(one.width > 10 and one.height > 30 for one in new)

        self.wait(banner, "the banner is there", 50)
        self.screen.settled_picture()
        self.save("banner")


def is_green(red, green, blue):
    return green - 30 > max(red, blue)


STEPS = {
    "item": Visit.shows_item, "open": Visit.opens_by_click, "elsewhere": Visit.closes_elsewhere,
    "escape": Visit.closes_by_escape, "note": Visit.keeps_note, "style": Visit.changes_style,
    "restart": Visit.survives_restart, "shade": Visit.can_be_read_on_other_shade,
    "quit": Visit.quits_by_menu, "banner": Visit.shows_banner,
}

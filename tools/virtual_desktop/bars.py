"""The bars that desktops have, as they come from Debian's packages."""

import os

from virtual_desktop.screen import Rect, Screen
from virtual_desktop.session import wait_until

PANEL_CONFIGURATION = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="{dark}"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="{height}"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/><value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="{space}"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="{plugin}">
      <property name="square-icons" type="bool" value="{square}"/>
    </property>
  </property>
</channel>
"""

WATCHER = "org.kde.StatusNotifierWatcher"


def truth(value):
    return "true" if value else "false"


class NoBar:
    """A bare X server: no window manager, no bar, no tray."""

    height = 0

    def __init__(self, session):
        self.session = session

    def start(self):
        pass

    def restart(self):
        pass

    def darken(self):
        pass


class XfcePanel:
    """xfce4-panel with nothing but a tray at its right end, so that only the item can change."""

    height = 30
    is_dark = False
    plugin = "systray"
    keeps_width = True
    starts_with_space = True

    def __init__(self, session):
        self.session = session
        self.process = None

    def start(self):
        self._configure()
        self.session.start("openbox")
        self._start_panel()

    def screen(self, whole):
        """The screen that the bar is on."""
        return whole.rect

    def rect(self, whole):
        screen = self.screen(whole)
        return Rect(screen.x, 0, screen.width, self.height)

    def restart(self):
        """Kills the panel and starts it again."""
        self.session.end(self.process)
        wait_until(lambda: WATCHER not in self.session.bus_names(), "the panel is gone")
        self._start_panel()

    def darken(self):
        self.change(is_dark=True)

    def change(self, height=None, is_dark=None, keeps_width=None):
        """Gives the running panel another look, as its settings do."""
        if height is not None:
            self._set("/panels/panel-1/size", height)
            self.height = height
        if is_dark is not None:
            self._set("/panels/dark-mode", truth(is_dark))
            self.is_dark = is_dark
        if keeps_width is not None:
            self._set("/plugins/plugin-2/square-icons", truth(not keeps_width))
            self.keeps_width = keeps_width
        screen = Screen(self.session)
        wait_until(lambda: screen.picture(self.rect(screen)).is_dark() == self.is_dark,
                   "the bar has its look")

    def _set(self, key, value):
        self.session.ask("xfconf-query", "-c", "xfce4-panel", "-p", key, "-s", str(value))

    def _configure(self):
        folder = os.path.join(self.session.environment["XDG_CONFIG_HOME"], "xfce4", "xfconf",
                              "xfce-perchannel-xml")
        os.makedirs(folder)
        with open(os.path.join(folder, "xfce4-panel.xml"), "w", encoding="utf-8") as file:
            file.write(PANEL_CONFIGURATION.format(
                plugin=self.plugin, height=self.height, dark=truth(self.is_dark),
                square=truth(not self.keeps_width),
                space=truth(self.starts_with_space)))

    def _start_panel(self):
        self.process = self.session.start("xfce4-panel")
        wait_until(lambda: WATCHER in self.session.bus_names(), "the panel's tray is there")


class XfcePanelWithSquareIcons(XfcePanel):
    """As the panel is when it starts for the first time: low, dark, every icon a square."""

    height = 26
    is_dark = True
    keeps_width = False


class XfcePanelWithoutSystemTray(XfcePanel):
    """Only the StatusNotifier half of the tray is of use."""

    def start(self):
        super().start()
        self.session.start("python3", os.path.join(os.path.dirname(__file__), "unhelpful_tray.py"))


class XfcePanelWithIndicators(XfcePanel):
    """The Ayatana indicators, which draw labels."""

    plugin = "indicator"
    service = "/usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service"

    def _start_panel(self):
        # A program of its own, which in a whole desktop the session starts.
        self.indicator = self.session.start(self.service)
        super()._start_panel()

    def restart(self):
        self.session.end(self.indicator)
        super().restart()

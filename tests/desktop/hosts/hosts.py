"""The desktops that the program is tried on, as Debian's packages start them."""

import dataclasses
import glob
import os
import re

from virtual_desktop.screen import Rect

WIDTH, HEIGHT = 1280, 800
# Another program's window, for a click elsewhere.
OTHER_X = "xev -geometry 400x300+440+250"
OTHER_WAYLAND = "foot -W 80x20 cat"


@dataclasses.dataclass
class Host:
    shape: str  # Of the item: "text", "square" or "strip".
    bar: Rect  # Where the item can come, without the bar's own clock.
    programs: tuple  # Started in this order; the last draws the bar and is restarted.
    environment: dict = dataclasses.field(default_factory=dict)
    files: dict = dataclasses.field(default_factory=dict)  # Below the configuration's folder.
    built: dict = dataclasses.field(default_factory=dict)  # Folders of the build in the data's.
    moves_others: bool = False  # Whether an item that comes moves what is beside it.
    clicks: int = 1  # Until the panel opens.
    other_shade: str = ""  # The command that makes a light bar dark, or a dark one light.
    dark: dict = dataclasses.field(default_factory=dict)  # The environment of a dark bar.
    below: int = 0  # The height of a second bar, at the bottom.
    rest: float = 1  # For how many seconds the screen rests once the desktop is up.
    compositor: tuple = ()  # In whose window on the X server everything else runs.
    inner: object = None  # Finds the environment of the programs in that.
    has_x: bool = True  # Whether X programs run in the compositor.
    places_windows: bool = True  # Whether a program can say where its windows are.
    stalls: bool = False  # Whether it shows some windows only when the pointer has moved.
    is_root: bool = True  # Whether it runs for root.
    without: tuple = ()  # The steps that it cannot have.


def top(height, left=640, right=WIDTH):
    return Rect(left, 0, right - left, height)


def bottom(height, left=640, right=WIDTH):
    return Rect(left, HEIGHT - height, right - left, height)


def told(session):
    """The environment that the compositor's own child wrote into a file."""
    try:
        with open(session.path("home", "environment"), encoding="utf-8") as file:
            lines = dict(line.split("=", 1) for line in file.read().splitlines() if "=" in line)
    except FileNotFoundError:
        return None
    return {key: lines[key] for key in ("WAYLAND_DISPLAY", "DISPLAY", "SWAYSOCK") if key in lines}


def logged(session, program, words):
    """What the program's log says of its X server's display, after those words."""
    log = "".join(open(file, encoding="utf-8", errors="replace").read()
                  for file in glob.glob(session.path(f"*{program}.log")))
    return re.search(words + r" display (:\d+)", log)


def told_by_shell(session):
    """GNOME Shell starts no child of ours."""
    display = logged(session, "gnome-shell", "public X11")
    key = glob.glob(session.path("run", ".mutter-Xwaylandauth*"))
    ready = display and key and os.path.exists(session.path("run", "wayland-test"))
    return {"WAYLAND_DISPLAY": "wayland-test", "DISPLAY": display[1],
            "XAUTHORITY": key[0]} if ready else None


def told_by_weston(session):
    display = logged(session, "weston", "listening on")
    return {"WAYLAND_DISPLAY": "wayland-test", "DISPLAY": display[1]} if display else None


def gnome(*extensions):
    return {"glib-2.0/settings/keyfile": "[org/gnome/shell]\n"
            "welcome-dialog-last-shown-version='99'\n"
            f"enabled-extensions={list(extensions)}\n"
            "[org/gnome/desktop/interface]\nenable-animations=false\n"}


def gnome_session(kind):
    return {"XDG_CURRENT_DESKTOP": "GNOME", "XDG_SESSION_TYPE": kind,
            "GSETTINGS_BACKEND": "keyfile", "LIBGL_ALWAYS_SOFTWARE": "1",
            "MUTTER_DEBUG_DUMMY_MODE_SPECS": f"{WIDTH}x{HEIGHT}",
            "XDG_DATA_DIRS": "/usr/local/share:/usr/share"}


def gnome_bar(shape):
    # The strip hangs from it.
    return top(57, 720) if shape == "strip" else top(32, 720, 1230)


def gnome_on_x11(shape, *extensions, clicks=1, built=()):
    return Host(shape, gnome_bar(shape), (OTHER_X, "gnome-shell --x11"),
                gnome_session("x11"), gnome(*extensions), dict(built), clicks=clicks, rest=6,
                is_root=False)


def gnome_on_wayland(shape, *extensions, clicks=1, built=()):
    return Host(shape, gnome_bar(shape), (OTHER_WAYLAND,), gnome_session("wayland"),
                gnome(*extensions), dict(built), clicks=clicks, rest=6, is_root=False,
                inner=told_by_shell, without=("restart",),
                compositor=("gnome-shell", "--nested", "--wayland-display=wayland-test"))


APP_INDICATOR = "ubuntu-appindicators@ubuntu.com"
OURS = "hilalor@hilalor.org"
BUILT = {f"gnome-shell/extensions/{OURS}": "packaging/gnome-shell"}

I3 = "# i3 config file (v4)\nfont pango:monospace 10\nbar {\n  position bottom\n}\n"

POLYBAR = """[bar/main]
width = 100%
height = 27
background = #222
foreground = #ddd
modules-left = date
tray-position = right
[module/date]
type = internal/date
date = %d %B
"""

SWAY = """output * bg #304050 solid_color
output X11-1 resolution 1280x800
exec env > $HOME/environment
"""

WAYBAR = {"waybar/config": '{"position": "top", "height": 34, "modules-left": ["sway/workspaces"],'
          ' "modules-right": ["tray"]}',
          "waybar/style.css": "* {font-size: 13px; color: #ddd;} window#waybar {background: #222;}"}


def sway(xwayland):
    return Host("text", top(34), (OTHER_WAYLAND, "dunst", "waybar"),
                {"XDG_CURRENT_DESKTOP": "sway", "XDG_SESSION_TYPE": "wayland",
                 "WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman"},
                {**WAYBAR, "sway/config": f"xwayland {xwayland}\n{SWAY}"},
                compositor=("sway",), inner=told, has_x=xwayland == "force",
                places_windows=xwayland == "force", is_root=False)


PLASMA = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5",
          "QT_QUICK_BACKEND": "software"}

WESTON = """[shell]
clock-format=none
"""


def tint2_without_clock():
    with open("/etc/xdg/tint2/tint2rc", encoding="utf-8") as file:
        return file.read().replace("panel_items = LTSC", "panel_items = LTS")


HOSTS = {
    "xfce": Host("square", top(27, 1108, 1185), ("xfwm4", OTHER_X, "dunst", "xfce4-panel"),
                 {"XDG_CURRENT_DESKTOP": "XFCE", "XFCE_PANEL_MIGRATE_DEFAULT": "1"},
                 moves_others=True,
                 other_shade="xfconf-query -c xfce4-panel -p /panels/dark-mode -s false"),
    "mate": Host("text", top(24, right=1160), ("marco", OTHER_X, "dunst", "mate-panel"),
                 {"XDG_CURRENT_DESKTOP": "MATE", "GSETTINGS_BACKEND": "keyfile"}, rest=3, below=30,
                 dark={"GTK_THEME": "Adwaita:dark"}),
    "lxqt": Host("square", bottom(32, right=1160), ("openbox", OTHER_X, "dunst", "lxqt-panel"),
                 {"XDG_CURRENT_DESKTOP": "LXQt", "XDG_CONFIG_DIRS": "/etc/xdg:/usr/share",
                  "QT_QPA_PLATFORMTHEME": "lxqt"}, rest=2,
                 other_shade="printf '[General]\\ntheme=dark\\n' >$XDG_CONFIG_HOME/lxqt/lxqt.conf"),
    "plasma": Host("square", bottom(44, right=1081),
                   ("kwin_x11", OTHER_X, "kded5", "plasmashell"),
                   PLASMA, rest=6,
                   other_shade="plasma-apply-colorscheme BreezeDark"),
    # Without its watcher of items, which a package of Mint's alone brings.
    "cinnamon": Host("strip", top(30), (OTHER_X, "cinnamon"),
                     {"XDG_CURRENT_DESKTOP": "X-Cinnamon", "GSETTINGS_BACKEND": "keyfile",
                      "LIBGL_ALWAYS_SOFTWARE": "1"}, rest=5, below=42, without=("restart",)),
    "gnome-appindicator-x11": gnome_on_x11("text", APP_INDICATOR, clicks=2),
    "gnome-appindicator": gnome_on_wayland("text", APP_INDICATOR, clicks=2),
    "gnome-extension-x11": gnome_on_x11("text", OURS, APP_INDICATOR, built=BUILT),
    "gnome-extension": gnome_on_wayland("text", OURS, APP_INDICATOR, built=BUILT),
    "gnome-x11": gnome_on_x11("strip"),
    "gnome": gnome_on_wayland("strip"),
    "i3": Host("square", bottom(24), (OTHER_X, "dunst", "i3"), {"XDG_CURRENT_DESKTOP": "i3"},
               {"i3/config": I3}),
    "tint2": Host("square", bottom(30), ("openbox", OTHER_X, "dunst", "tint2"),
                  files={"tint2/tint2rc": tint2_without_clock}),
    "trayer": Host("text", top(24), ("openbox", OTHER_X, "dunst",
                   "trayer --edge top --align right --widthtype request --height 24 "
                   "--transparent false --SetDockType true --SetPartialStrut true --expand true")),
    "polybar": Host("square", top(27), ("openbox", OTHER_X, "dunst", "polybar"),
                    files={"polybar/config.ini": POLYBAR}),
    "sway": sway("force"),
    "sway-without-x": sway("disable"),
    "plasma-wayland": Host("square", bottom(44, right=1081),
                           (OTHER_WAYLAND, "kded5", "plasmashell"),
                           {**PLASMA, "XDG_SESSION_TYPE": "wayland", "KWIN_COMPOSE": "Q"},
                           rest=6, inner=told, other_shade="plasma-apply-colorscheme BreezeDark",
                           # A copy has no rights of its own, which some machines do not grant.
                           compositor=("sh", "-c", "cp /usr/bin/kwin_wayland $HOME && "
                                       "exec $HOME/kwin_wayland --x11-display $DISPLAY "
                                       f"--xwayland --width {WIDTH} --height {HEIGHT} "
                                       "\"sh -c 'env >$HOME/environment; sleep infinity'\"")),
    "weston": Host("strip", top(57, 720), (OTHER_WAYLAND, "dunst"), {"XDG_SESSION_TYPE": "wayland"},
                   {"weston.ini": WESTON}, inner=told_by_weston, without=("restart",),
                   stalls=True, places_windows=False,
                   compositor=("weston", "--backend=x11-backend.so", "--xwayland",
                               "--socket=wayland-test",
                               f"--width={WIDTH}", f"--height={HEIGHT}")),
    "none": Host("strip", top(25), ("dunst", OTHER_X), without=("restart",)),
}

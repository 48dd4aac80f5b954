#!/usr/bin/env python3
"""The package as a new user meets it: starts by itself with the session, shows its item in the bar,
and is removed without a trace but the user's own store.

    installed_program.py ROOT PICTURES

ROOT is a system of its own in which the packages are installed, and nothing else that they do not
ask for. The desktop is this machine's. Must be run by root.
"""

import glob
import os
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile

from item_on_bars import LEAST_CONTRAST, ItemWindow
from virtual_desktop.bars import XfcePanel
from virtual_desktop.program import Program
from virtual_desktop.screen import Screen
from virtual_desktop.session import Session, wait_until

USER = "games"  # Known to both systems by one number.
PACKAGES = ["hilalor", "hilalor-data"]


class NewUsersSession(Session):
    """A session of another user, with a door to the other system, in whose /tmp its folder is."""

    def __init__(self, root):
        super().__init__("installed")
        self.root = root
        tempfile.tempdir = os.path.join(root, "tmp")

    def start(self, *command, **environment):
        return super().start(*self._as_user(command), **environment)

    def ask(self, *command):
        return super().ask(*self._as_user(command))

    def start_inside(self, *command):
        inside = {key: value.replace(self.root, "") for key, value in self.environment.items()}
        return super().start("chroot", f"--userspec={USER}:{USER}", self.root, *command, **inside)

    def activatable_names(self):
        return self._call_bus("ListActivatableNames")

    def _as_user(self, command):
        return ("setpriv", f"--reuid={USER}", f"--regid={USER}", "--clear-groups", *command)

    def _environment(self):
        environment = super()._environment()
        subprocess.run(["chown", "--recursive", USER, self.folder], check=True)
        return {**environment, "XDG_DATA_DIRS": f"{self.root}/usr/share:/usr/share"}


def entry_command(root):
    """What the desktop starts at log-in."""
    with open(os.path.join(root, "etc/xdg/autostart/org.hilalor.Hilalor.desktop"),
              encoding="utf-8") as entry:
        return re.search("^Exec=(.*)$", entry.read(), re.MULTILINE)[1].split()


def see_item(session, program, picture):
    screen = Screen(session)
    item = ItemWindow(screen, None, program)
    title = wait_until(item.title, "the item has its title")
    place = wait_until(item.place, "the item has its place")
    wait_until(lambda: screen.picture(place).contrast() >= LEAST_CONTRAST, "the item can be read")
    screen.save(session.path("seen.png"))
    shutil.copy(session.path("seen.png"), picture)
    print(f"\"{title}\" at {place.width}x{place.height}+{place.x}+{place.y}: {picture}")


def remove_packages(root):
    subprocess.run(["chroot", root, "apt-get", "purge", "-yo", "Dpkg::Use-Pty=0", *PACKAGES], check=True,
                   stdout=subprocess.DEVNULL)
    left = [file for pattern in ("usr/bin/hilalor*", "usr/lib*/hilalor*", "usr/share/**/*ilalor*",
                                 "etc/**/*ilalor*")
            for file in glob.glob(pattern, root_dir=root, recursive=True)]
    assert not left, f"left by the packages: {left}"


def check_store(session):
    file = os.path.join(session.environment["XDG_CONFIG_HOME"], "hilalor", "defaults.sqlite")
    keys = {key for key, in sqlite3.connect(file).execute("SELECT key FROM defaults")}
    assert "didRequestLocationPermission" in keys, f"the store has only {keys}"


def main():
    root, pictures = map(os.path.abspath, sys.argv[1:])
    os.makedirs(pictures, exist_ok=True)
    with NewUsersSession(root) as session:
        assert "'org.hilalor.Hilalor'" in session.activatable_names(), "no message can start it"
        XfcePanel(session).start()
        command = entry_command(root)
        program = Program(session, command[0])
        program.process = session.start_inside(*command)
        see_item(session, program, os.path.join(pictures, "installed.png"))
        program.end()
        remove_packages(root)
        check_store(session)


if __name__ == "__main__":
    main()

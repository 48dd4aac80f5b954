"""The program under test with a store of its own."""

import os
import signal
import sqlite3

from virtual_desktop.session import wait_until

# Mecca, so that neither a location service nor the machine's place has a say.
PLACE = {"locationMode": "manual", "manualLatitude": 21.4225, "manualLongitude": 39.8262,
         "manualLocationName": "Mecca", "manualTimeZoneId": "Asia/Riyadh",
         "didRequestLocationPermission": True}

TYPE_NAMES = {bool: "boolean", int: "integer", float: "real", str: "text"}


class Program:
    def __init__(self, session, executable):
        self.session = session
        self.executable = executable
        self.process = None
        self.environment = {}  # Beside the session's.

    def start(self, **settings):
        self.store(**settings)
        self.process = self.session.start(self.executable, **self.environment)

    def end(self):
        """As the end of a session does."""
        status = self.session.end(self.process, signal.SIGTERM)
        assert status == 0, f"ended by SIGTERM with status {status}"

    def status(self):
        """The exit status, once it has ended by itself."""
        wait_until(lambda: self.process.poll() is not None, "the program ends")
        return self.process.returncode

    def store(self, **settings):
        """Puts the settings, and the place, into the store."""
        folder = os.path.join(self.session.environment["XDG_CONFIG_HOME"], "hilalor")
        os.makedirs(folder, exist_ok=True)
        store = sqlite3.connect(os.path.join(folder, "defaults.sqlite"))
        with store:
            store.execute("CREATE TABLE IF NOT EXISTS "
                          "defaults(key TEXT NOT NULL UNIQUE, type TEXT NOT NULL, value)")
            store.executemany("REPLACE INTO defaults VALUES (?, ?, ?)",
                              [(key, TYPE_NAMES[type(value)], value)
                               for key, value in {**PLACE, **settings}.items()])
        store.close()

#!/usr/bin/env python3
"""The system's location service, as the machine has it, tells the place, and the bar counts down for it.

    place_by_service.py CASE PROGRAM PICTURES

Ends with status 77 where the machine has no such service, or gives no right to run one.
"""

import contextlib
import functools
import json
import operator
import os
import re
import socket
import subprocess
import sys
import threading
import time

from item_on_bars import COUNTDOWN, ItemWindow
from virtual_desktop.bars import NoBar
from virtual_desktop.program import Program
from virtual_desktop.screen import Screen
from virtual_desktop.session import Session, wait_until

SKIPPED = 77
GEOCLUE, AGENT = "/usr/libexec/geoclue", "/usr/libexec/geoclue-2.0/demos/agent"
CONFIGURATION = "/etc/geoclue/geoclue.conf"
CONFIGURED = "[agent]\nwhitelist=geoclue-demo-agent\n[network-nmea]\nenable=true\n" + "".join(
    f"[{source}]\nenable=false\n" for source in ("3g", "cdma", "modem-gps", "wifi", "compass"))

# Jakarta, where no prayer is within hours of the same one in Riyadh.
JAKARTA = {"manualLatitude": -6.2, "manualLongitude": 106.8, "manualTimeZoneId": "Asia/Jakarta"}
NMEA = "GPGGA,{},0612.0000,S,10648.0000,E,1,08,0.9,8.0,M,0.0,M,,"


def tell_place(server):
    """As a receiver of satellites does, each half second."""
    connection, _ = server.accept()
    with contextlib.suppress(BrokenPipeError):
        while True:
            text = NMEA.format(time.strftime("%H%M%S.00", time.gmtime()))
            check = functools.reduce(operator.xor, text.encode())
            connection.send(f"${text}*{check:02X}\r\n".encode())
            time.sleep(0.5)


def start_service(session):
    session.environment.update(GIO_USE_NETWORK_MONITOR="base", GIO_USE_VFS="local")
    with open(session.path("geoclue.conf"), "w", encoding="ascii") as file:
        file.write(CONFIGURED)
    receiver = socket.socket(socket.AF_UNIX)
    receiver.bind(session.path("nmea"))
    receiver.listen()
    threading.Thread(target=tell_place, args=(receiver,), daemon=True).start()
    # In a namespace of its own, where its settings are ours.
    session.start("unshare", "-m", "sh", "-c",
                  f"mount --bind {session.path('geoclue.conf')} {CONFIGURATION} && "
                  f"exec {GEOCLUE} -t 0 -u {session.path('nmea')}")
    session.start(AGENT)


def check(session, executable):
    program = Program(session, executable)
    item = ItemWindow(Screen(session), NoBar(session), program)

    def minutes_left():
        title = COUNTDOWN.fullmatch(item.title())
        hours, minutes = re.findall(r"(?:(\d+)h )?(\d+)m", title[0])[0] if title else ("", "")
        return title and 60 * int(hours or 0) + int(minutes)

    def start(**settings):
        program.start(menuBarStyle="nextPrayer", **settings)
        return wait_until(minutes_left, "it counts down")

    in_jakarta = start(**JAKARTA)
    program.end()
    assert abs(start(locationMode="automatic") - in_jakarta) > 5, "nobody tells the place yet"
    start_service(session)
    wait_until(lambda: abs(minutes_left() - in_jakarta) < 5, "the place was told", 40)
    answer = subprocess.check_output([executable, "next", "--json"], env=session.environment)
    place = json.loads(answer)["place"]
    assert (place["source"], place["zone"]) == ("located", "Asia/Jakarta"), f"a command: {place}"
    program.end()


def main():
    name, executable, _ = sys.argv[1:]
    usable = os.geteuid() == 0 and all(map(os.path.exists, (GEOCLUE, AGENT, CONFIGURATION)))
    if not usable or subprocess.run(["unshare", "-m", "true"], check=False).returncode:
        print("skipped: no location service, or no right to run one of our own")
        sys.exit(SKIPPED)
    with Session(name) as session:
        session.environment["DBUS_SYSTEM_BUS_ADDRESS"] = \
            session.environment["DBUS_SESSION_BUS_ADDRESS"]
        check(session, os.path.abspath(executable))


if __name__ == "__main__":
    main()

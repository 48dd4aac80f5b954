#!/usr/bin/env python3
"""Runs location_probe against the real GeoClue daemon on a system bus of its own, with positions fed
to the daemon as NMEA sentences: geoclue_daemon_test.py PROBE

Needs geoclue-2.0, dbus-daemon and the right to make a mount namespace; leaves with 77 without them.
"""

import os
import queue
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import time

GEOCLUE = "/usr/libexec/geoclue"
CONFIGURATION = "/etc/geoclue/geoclue.conf"
SKIPPED = 77
PATIENCE = 20

MAKKAH = ("2125.3500,N", "03949.5720,E")

BUS = """<busconfig><type>system</type><listen>unix:path={0}/bus</listen>
<policy context="default"><allow user="*"/><allow own="*"/><allow send_destination="*"/>
<allow receive_sender="*"/></policy></busconfig>"""

CONFIGURED = "[agent]\nwhitelist=geoclue-demo-agent\n[network-nmea]\nenable=true\n" + "".join(
    f"[{source}]\nenable=false\n" for source in ("3g", "cdma", "modem-gps", "wifi", "compass")
)


def enter_namespace():
    """Starts this script anew where a mount touches nobody else."""
    if os.environ.get("IN_NAMESPACE"):
        return
    usable = os.geteuid() == 0 and all(map(os.path.exists, (GEOCLUE, CONFIGURATION)))
    usable = usable and all(map(shutil.which, ("unshare", "mount", "dbus-daemon")))
    if not usable or subprocess.run(["unshare", "-m", "true"], stderr=subprocess.DEVNULL).returncode:
        print("skipped: no GeoClue daemon, or no right to run one of our own")
        sys.exit(SKIPPED)
    os.environ["IN_NAMESPACE"] = "1"
    os.execvp("unshare", ["unshare", "-m", sys.executable, *sys.argv])


class Receiver:
    """A satellite receiver on a socket, which says where it is each half second."""

    def __init__(self, path):
        server = socket.socket(socket.AF_UNIX)
        server.bind(path)
        server.listen()
        threading.Thread(target=self.accept, args=(server,), daemon=True).start()

    def accept(self, server):
        while True:
            connection, _ = server.accept()
            threading.Thread(target=self.talk, args=(connection,), daemon=True).start()

    def talk(self, connection):
        try:
            while True:
                time.sleep(0.5)
                latitude, longitude = MAKKAH
                now = time.strftime("%H%M%S.00", time.gmtime())
                text = f"GPGGA,{now},{latitude},{longitude},1,08,0.9,300.0,M,0.0,M,,"
                check = 0
                for byte in text.encode():
                    check ^= byte
                connection.send(f"${text}*{check:02X}\r\n".encode())
        except OSError:
            pass


class Program:
    """A program whose lines are waited for."""

    def __init__(self, *command):
        self.process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True
        )
        self.lines = queue.Queue()
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(line.strip())

    def say(self, word):
        self.process.stdin.write(word + "\n")
        self.process.stdin.flush()
        self.expect("heard " + word)

    def expect(self, pattern):
        deadline = time.monotonic() + PATIENCE
        seen = []
        while (left := deadline - time.monotonic()) > 0:
            try:
                seen.append(self.lines.get(timeout=left))
            except queue.Empty:
                break
            if re.fullmatch(pattern, seen[-1]):
                return seen
        raise AssertionError(f"waited for {pattern!r}, saw {seen}")

    def kill(self):
        self.process.kill()
        self.process.wait()


class Desktop:
    """A bus, a daemon, an agent, and a probe of ours."""

    def __init__(self, folder, probe):
        self.folder, self.probe_path = folder, probe
        with open(f"{folder}/bus.conf", "w") as file:
            file.write(BUS.format(folder))
        with open(f"{folder}/geoclue.conf", "w") as file:
            file.write(CONFIGURED)
        subprocess.run(["mount", "--bind", f"{folder}/geoclue.conf", CONFIGURATION], check=True)
        os.environ.update(
            DBUS_SYSTEM_BUS_ADDRESS=f"unix:path={folder}/bus",
            GIO_USE_NETWORK_MONITOR="base",
            GIO_USE_VFS="local",
        )
        self.receiver = Receiver(f"{folder}/nmea")
        self.programs = []
        bus = self.start("dbus-daemon", f"--config-file={folder}/bus.conf", "--nofork", "--print-address")
        bus.expect("unix:.*")

    def start(self, *command):
        self.programs.append(Program(*command))
        return self.programs[-1]

    def geoclue(self):
        return self.start(GEOCLUE, "-t", "0", "-u", f"{self.folder}/nmea")

    def agent(self, answer):
        return self.start(self.probe_path, "agent", answer)

    def probe(self):
        probe = self.start(self.probe_path)
        probe.expect("place Riyadh Asia/Riyadh")
        return probe

    def close(self):
        for program in reversed(self.programs):
            program.kill()


def check(desktop):
    probe = desktop.probe()
    probe.say("ask")
    probe.expect("status 1")
    print("no service: restricted")

    desktop.geoclue()
    agent = desktop.agent("refuse")
    probe.expect("status 2")
    probe.say("look")
    agent.kill()
    print("service and agent appear: refused")

    desktop.agent("allow")
    probe.say("look")
    probe.expect("status 3")
    probe.expect("position 21.4.* 39.8.*")
    probe.expect("place Makkah Asia/Riyadh")
    print("allowed later: a fix and a name at the next look, without a restart")


def main():
    enter_namespace()
    with tempfile.TemporaryDirectory() as folder:
        desktop = Desktop(folder, sys.argv[1])
        try:
            check(desktop)
        finally:
            desktop.close()
    print("all well")


main()

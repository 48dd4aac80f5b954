#!/usr/bin/env python3
"""Announcements as a user sees and hears them: on a bar, by a notification daemon and a sound server.

    announcements.py CASE BUILD

CASE is the name of one of the functions at the end; BUILD the folder of the build. Ends with status
77 where the machine lacks one of the programs that make up the desktop.
"""

import json
import math
import os
import re
import shutil
import subprocess
import sys
import time

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), *[os.pardir] * 3))
sys.path[:0] = [os.path.join(ROOT, "tests", "desktop"), os.path.join(ROOT, "tools", "sounds")]

# pylint: disable=wrong-import-position
import make_sounds
from session.bars import XfcePanel
from session.program import Program
from session.screen import Screen
from session.session import Session, wait_until
from session.sound import Recorder, SoundServer

SKIPPED = 77
NEEDED = ("Xvfb", "dbus-daemon", "gdbus", "openbox", "xfce4-panel", "xwininfo", "dunst", "dunstctl",
          "pipewire", "wireplumber", "pipewire-pulse", "pactl", "parec")

# Short stand-ins, told from one another by their pitch: seconds and Hz.
BEEP, ATHAN, SUPPLICATION = (1.0, 900), (3.0, 500), (2.0, 700)


def write_sounds(folder):
    def tone(seconds, frequency):
        return [0.4 * math.sin(2 * math.pi * frequency * i / make_sounds.RATE)
                for i in range(int(seconds * make_sounds.RATE))]

    os.makedirs(folder)
    path = make_sounds.pathlib.Path(folder)
    make_sounds.write_aiff(path / "Glass.aiff", tone(*BEEP))
    make_sounds.write_mp3(path / "athan.mp3", tone(*ATHAN), "athan")
    make_sounds.write_mp3(path / "after_athan.mp3", tone(*SUPPLICATION), "supplication")


def banners(session):
    """Title and body of every banner that was closed."""
    history = json.loads(session.ask("dunstctl", "history") or '{"data": [[]]}')
    return [(banner["summary"]["data"], banner["body"]["data"]) for banner in history["data"][0]]


def assert_tones(heard, *expected):
    assert len(heard) == len(expected), f"heard {heard}"
    for tone, (seconds, frequency) in zip(heard, expected):
        assert abs(tone.frequency - frequency) < 60, f"not {frequency} Hz: {tone}"
        # The fade-out of an MP3 encoder and the recorder's windows blur the edges, and a busy
        # machine loses some of what it records.
        assert -0.5 < tone.seconds - seconds < 0.15, f"not {seconds} s: {tone}"


def memory(process):
    """In MB, what it wrote itself; a share in libraries hangs on who else runs."""
    with open(f"/proc/{process.pid}/smaps_rollup", encoding="ascii") as rollup:
        return int(re.search(r"^Private_Dirty:\s+(\d+)", rollup.read(), re.M)[1]) / 1024


class Probe:
    """Announcements at our command: the program's monitor under a clock that we set."""

    def __init__(self, session, build):
        self.lines = []
        sounds = session.path("sounds")
        write_sounds(sounds)
        self.log = open(session.path("probe.txt"), "wb+")
        self.process = subprocess.Popen(
            [os.path.join(build, "tests", "desktop", "announcement", "announcement_probe"), sounds],
            env=session.environment, stdin=subprocess.PIPE, stdout=self.log,
            start_new_session=True)
        session.processes.append(self.process)
        wait_until(lambda: self.told("title"), "the probe is ready")

    def say(self, command):
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()

    def told(self, what):
        """(when, the rest of the line) of everything of that kind."""
        with open(self.log.name, encoding="utf-8") as log:
            lines = [line.rstrip("\n").split(" ", 2) for line in log if line.endswith("\n")]
        return [(float(line[0]), "".join(line[2:])) for line in lines if line[1] == what]

    def title(self):
        return self.told("title")[-1][1]

    def announce(self):
        self.say("announce")
        wait_until(self.title, "the announcement begins")

    def wait_for_end(self):
        wait_until(lambda: not self.title(), "the announcement ends", 30)

    def threads(self):
        return len(os.listdir(f"/proc/{self.process.pid}/task"))


def place_of_noon(build, minute):
    """The settings under which noon prayer falls in that minute."""
    finder = os.path.join(build, "tests", "desktop", "announcement", "place_of_noon")
    longitude = float(subprocess.run([finder, str(minute)], stdout=subprocess.PIPE, check=True)
                      .stdout)
    hours = round(longitude / 15)
    # These zones count the other way.
    zone = f"Etc/GMT{-hours:+d}" if hours else "Etc/UTC"
    return {"manualLatitude": 0.5, "manualLongitude": longitude, "manualTimeZoneId": zone}


def the_minute_of_the_first_tick():
    """Waits until the program's tick, 30 s after its start, would fall well into a minute."""
    while not 5 < (time.time() + 30) % 60 < 50:
        time.sleep(0.5)
    return (time.time() + 30) // 60 * 60


def whole_announcement(session, build):
    """The program itself, from the tick to the end of the supplication."""
    XfcePanel(session).start()
    session.start("dunst")
    server = SoundServer(session)
    server.start()
    write_sounds(os.path.join(session.environment["XDG_DATA_HOME"], "hilalor", "sounds"))

    screen = Screen(session)
    program = Program(session, os.path.join(build, "app", "hilalor"))

    def titles():
        return [window.title.removesuffix(" \u2014 Hilalor") for window in screen.windows()
                if window.name == "hilalor" and screen.is_shown(window)]

    place = place_of_noon(build, the_minute_of_the_first_tick())
    program.start(menuBarStyle="emoji", prayerNotificationsEnabled=True, beepSoundEnabled=True,
                  athanEnabled=True, playDuaAfterAthan=True, **place)
    wait_until(lambda: titles() == ["\U0001F4C5"], "the item shows the calendar")
    with Recorder(session) as recorder:
        wait_until(lambda: "\U0001F54C Dhuhr Athan" in titles(), "the item announces", 40)
        wait_until(lambda: titles() == ["\U0001F4C5"], "the announcement ends", 20)
        ended = time.monotonic()
        time.sleep(2)
        assert "hilalor" not in server.listeners(), f"still connected: {server.listeners()}"
        assert recorder.is_silent(1.5), "silence follows"
    heard = recorder.tones()
    assert_tones(heard, BEEP, ATHAN, SUPPLICATION)
    pauses = [b.start - a.end for a, b in zip(heard, heard[1:])]
    assert 0.1 < pauses[0] < 0.6, f"a short pause after the beep: {pauses}"
    session.ask("dunstctl", "close-all")
    wait_until(lambda: banners(session), "the banner is in the history")
    assert banners(session) == [("\U0001F54C Dhuhr", "It's time for Dhuhr prayer")], banners(session)
    program.end()
    print("heard", [(round(tone.frequency), round(tone.seconds, 2)) for tone in heard],
          "pauses", [round(pause, 2) for pause in pauses],
          f"title back {ended - heard[-1].end:.2f} s after the last sound")


def stop(session, build):
    """Silence within a tenth of a second, in each of the sounding states."""
    SoundServer(session).start()
    probe = Probe(session, build)
    for state, wait in (("beep", 0.5), ("athan", 2.5), ("supplication", 5.5)):
        with Recorder(session) as recorder:
            probe.announce()
            time.sleep(wait)
            assert not recorder.is_silent(0.1), f"no {state}"
            stops = len(probe.told("stopped")) + 1
            probe.say("stop")
            wait_until(lambda: len(probe.told("stopped")) == stops, "stopped")
            wait_until(lambda: recorder.is_silent(0.3), "silence", 2)
        # The athan follows a single beep even so.
        ending = recorder.tones()[0 if state == "beep" else -1].end - probe.told("stopped")[-1][0]
        print(f"{state}: silent {1000 * ending:.0f} ms after the stop")
        assert ending < 0.1, f"{state} was heard {ending:.3f} s after the stop"
        time.sleep(1.5)
        probe.say("stop")


def ten_announcements(session, build):
    """What they leave behind: no thread, no connection, no memory."""
    server = SoundServer(session)
    server.start()
    session.start("dunst")
    probe = Probe(session, build)
    probe.announce()
    probe.wait_for_end()
    others = {name for name in server.listeners() if name != "Hilalor"}
    before = memory(probe.process), probe.threads()
    for _ in range(10):
        probe.announce()
        probe.wait_for_end()
    time.sleep(2)
    after = memory(probe.process), probe.threads()
    print(f"memory {before[0]:.2f} MB before, {after[0]:.2f} MB after; "
          f"threads {before[1]}, {after[1]}")
    assert set(server.listeners()) <= others, server.listeners()
    assert after[0] < before[0] + 1, "memory"
    assert after[1] <= before[1], "threads"


def server_that_dies(session, build):
    """The announcement goes on in silence, to its end at its time, and aloud where a server comes."""
    server = SoundServer(session)
    server.start()
    probe = Probe(session, build)
    probe.announce()
    time.sleep(2.5)
    server.kill()
    probe.wait_for_end()
    begun, ended = (when for when, _ in probe.told("title")[-2:])
    expected = BEEP[0] + 0.2 + ATHAN[0] + SUPPLICATION[0]
    print(f"died in the athan: ended after {ended - begun:.2f} s, aloud {expected:.2f} s")
    assert abs(ended - begun - expected) < 1.5

    # Without a server from the start; one that comes during the athan is heard.
    probe.announce()
    time.sleep(1.5)
    server.start()
    with Recorder(session) as recorder:
        probe.wait_for_end()
    assert recorder.tones(), "nothing was heard of the server that came"
    assert probe.process.poll() is None


CASES = {case.__name__: case
         for case in (whole_announcement, stop, ten_announcements, server_that_dies)}


def main():
    name, build = sys.argv[1:]
    missing = [program for program in NEEDED if not shutil.which(program)]
    if missing:
        print("skipped, for want of", *missing)
        sys.exit(SKIPPED)
    with Session(name) as session:
        CASES[name](session, os.path.abspath(build))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Announcements as a user sees and hears them: on a bar, by a notification daemon and a sound server.

    announcements.py BUILD

BUILD is the folder of the build. Ends with status 77 where the machine lacks one of the programs that
make up the desktop.
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
from session.sound import Recorder, SoundServer, is_like

SKIPPED = 77
NEEDED = ("Xvfb", "dbus-daemon", "gdbus", "openbox", "xfce4-panel", "xwininfo", "dunst", "dunstctl",
          "pipewire", "wireplumber", "pipewire-pulse", "pactl", "parec")

# Short stand-ins, told from one another by their pitch: seconds and Hz.
BEEP, ATHAN, SUPPLICATION = (0.8, 900), (2.0, 500), (1.2, 700)
LONGEST = BEEP[0] + 0.2 + ATHAN[0] + SUPPLICATION[0]
FIRST_TICK = 30.0  # Seconds after the program's start.


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
    """Waits until the first tick of a program that starts now would fall well into a minute."""
    while not 1 < (time.time() + FIRST_TICK) % 60 < 55:
        time.sleep(0.5)
    return (time.time() + FIRST_TICK) // 60 * 60


class Announcements:
    """The program itself announces a prayer; before and after that, a probe does at our command."""

    def __init__(self, session, build):
        self.session = session
        XfcePanel(session).start()
        session.start("dunst")
        self.server = SoundServer(session)
        self.server.start()
        write_sounds(os.path.join(session.environment["XDG_DATA_HOME"], "hilalor", "sounds"))
        self.screen = Screen(session)
        self.program = Program(session, os.path.join(build, "program", "hilalor"))
        place = place_of_noon(build, the_minute_of_the_first_tick())
        self.program.start(menuBarStyle="emoji", prayerNotificationsEnabled=True,
                           beepSoundEnabled=True, athanEnabled=True, playDuaAfterAthan=True, **place)
        self.first_tick = time.monotonic() + FIRST_TICK
        wait_until(lambda: self.titles() == ["\U0001F4C5"], "the item shows the calendar")
        self.probe = Probe(session, build)

    def titles(self):
        return [window.title.removesuffix(" \u2014 Hilalor") for window in self.screen.windows()
                if window.name == "hilalor" and self.screen.is_shown(window)]

    def run(self):
        self.stop_brings_silence()
        self.nothing_is_left_behind()
        self.whole_announcement()
        self.ends_at_its_time_without_the_server()

    def stop_brings_silence(self):
        """Within a tenth of a second."""
        with Recorder(self.session) as recorder:
            self.probe.announce()
            wait_until(lambda: any(is_like(tone, ATHAN[1]) for tone in recorder.tones()), "the athan")
            self.probe.say("stop")
            wait_until(lambda: recorder.is_silent(0.3), "silence", 2)
        ending = recorder.tones()[-1].end - self.probe.told("stopped")[-1][0]
        print(f"silent {1000 * ending:.0f} ms after the stop")
        assert ending < 0.1, f"heard {ending:.3f} s after the stop"

    def nothing_is_left_behind(self):
        """No thread, no connection and no memory by those that fit before the program's own."""
        self.probe.announce()
        self.probe.wait_for_end()
        before = memory(self.probe.process), self.probe.threads()
        while time.monotonic() < self.first_tick - 3 * LONGEST:
            self.probe.announce()
            self.probe.wait_for_end()
        wait_until(lambda: "Hilalor" not in self.server.listeners(), "it is disconnected")
        after = memory(self.probe.process), self.probe.threads()
        print(f"memory {before[0]:.2f} MB before, {after[0]:.2f} MB after; "
              f"threads {before[1]}, {after[1]}; {len(self.probe.told('title'))} titles")
        assert after[0] < before[0] + 1, "memory"
        assert after[1] <= before[1], "threads"

    def whole_announcement(self):
        """From the tick to the end of the supplication."""
        self.session.ask("dunstctl", "close-all")
        before = wait_until(lambda: banners(self.session), "the probe's banners are in the history")
        with Recorder(self.session) as recorder:
            wait_until(lambda: "\U0001F54C Dhuhr Athan" in self.titles(), "the item announces", 40)
            wait_until(lambda: self.titles() == ["\U0001F4C5"], "the announcement ends", 20)
            wait_until(lambda: recorder.is_silent(1.5), "silence follows", 4)
        assert "Hilalor" not in self.server.listeners(), self.server.listeners()
        heard = recorder.tones()
        assert_tones(heard, BEEP, ATHAN, SUPPLICATION)
        pause = heard[1].start - heard[0].end
        print("heard", [(round(tone.frequency), round(tone.seconds, 2)) for tone in heard], pause)
        assert 0.1 < pause < 0.6, f"a short pause after the beep: {pause}"
        self.session.ask("dunstctl", "close-all")
        wait_until(lambda: banners(self.session) != before, "the banner is in the history")
        assert banners(self.session) == [("\U0001F54C Dhuhr", "It's time for Dhuhr prayer"), *before]
        self.program.end()

    def ends_at_its_time_without_the_server(self):
        """Killed in the athan, it takes the sound with it and nothing else."""
        self.probe.announce()
        time.sleep(BEEP[0] + 0.2 + ATHAN[0] / 2)
        self.server.kill()
        self.probe.wait_for_end()
        begun, ended = (when for when, _ in self.probe.told("title")[-2:])
        assert abs(ended - begun - LONGEST) < 1.5, f"{ended - begun} s, not {LONGEST}"


def main():
    missing = [program for program in NEEDED if not shutil.which(program)]
    if missing:
        print("skipped, for want of", *missing)
        sys.exit(SKIPPED)
    with Session("announcement") as session:
        Announcements(session, os.path.abspath(sys.argv[1])).run()


if __name__ == "__main__":
    main()

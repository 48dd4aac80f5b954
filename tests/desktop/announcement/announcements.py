#!/usr/bin/env python3
"""Announcements as a user sees and hears them: on a bar, by a notification daemon and a sound server.

    announcements.py BUILD

BUILD is the folder of the build. Ends with status 77 where the machine lacks one of the programs that
make up the desktop.
"""

import contextlib
import json
import os
import shutil
import subprocess
import sys
import time

from virtual_desktop.bars import XfcePanel
from virtual_desktop.program import Program
from virtual_desktop.screen import Screen
from virtual_desktop.session import Session, wait_until
from virtual_desktop.sound import Recorder, SoundServer, is_like
from virtual_desktop.stand_ins import ATHAN, BEEP, SUPPLICATION, write_sounds

SKIPPED = 77
NEEDED = ("Xvfb", "dbus-daemon", "gdbus", "openbox", "xfce4-panel", "xwininfo", "dunst", "dunstctl",
          "pipewire", "wireplumber", "pipewire-pulse", "pactl", "parec")

FIRST_TICK = 30.0  # Seconds after the program's start.


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
    """The program itself announces a prayer; before and after that, a probe plays the athan."""

    def __init__(self, session, build):
        self.session = session
        XfcePanel(session).start()
        session.start("dunst")
        self.server = SoundServer(session)
        self.server.start()
        sounds = os.path.join(session.environment["XDG_DATA_HOME"], "hilalor", "sounds")
        write_sounds(sounds)
        probe = os.path.join(build, "tests", "desktop", "announcement", "sound_probe")
        self.probe = [probe, os.path.join(sounds, "athan.mp3")]
        self.screen = Screen(session)
        self.program = Program(session, os.path.join(build, "program", "hilalor"))
        place = place_of_noon(build, the_minute_of_the_first_tick())
        self.program.start(menuBarStyle="emoji", prayerNotificationsEnabled=True,
                           beepSoundEnabled=True, athanEnabled=True, playDuaAfterAthan=True, **place)
        wait_until(lambda: self.titles() == ["\U0001F4C5"], "the item shows the calendar")

    def titles(self):
        return [window.title.removesuffix(" \u2014 Hilalor") for window in self.screen.windows()
                if window.name == "hilalor" and self.screen.is_shown(window)]

    def run(self):
        self.stop_brings_silence()
        self.whole_announcement()
        self.ends_at_its_time_without_the_server()

    @contextlib.contextmanager
    def play(self):
        """The athan by the probe, once it can be heard."""
        with Recorder(self.session) as recorder:
            process = subprocess.Popen(self.probe, env=self.session.environment,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       start_new_session=True)
            self.session.processes.append(process)
            wait_until(lambda: any(is_like(tone, ATHAN[1]) for tone in recorder.tones()), "the athan")
            yield process, recorder

    def stop_brings_silence(self):
        """Within a tenth of a second."""
        with self.play() as (process, recorder):
            process.stdin.close()
            stopped = float(process.stdout.readline())
            wait_until(lambda: recorder.is_silent(0.3), "silence", 2)
        ending = recorder.tones()[-1].end - stopped
        print(f"silent {1000 * ending:.0f} ms after the stop")
        assert ending < 0.1, f"heard {ending:.3f} s after the stop"
        self.session.end(process)

    def whole_announcement(self):
        """From the tick to the end of the supplication."""
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
        banner = ("\U0001F54C Dhuhr", "It's time for Dhuhr prayer")
        wait_until(lambda: banners(self.session) == [banner], "the banner is in the history")
        self.program.end()

    def ends_at_its_time_without_the_server(self):
        """Killed in the athan, it takes the sound with it and nothing else."""
        with self.play() as (process, recorder):
            self.server.kill()
            assert process.wait(10) == 0
            length = time.monotonic() - recorder.tones()[0].start
            assert abs(length - ATHAN[0]) < 1, f"{length} s, not {ATHAN[0]}"


def main():
    missing = [program for program in NEEDED if not shutil.which(program)]
    if missing:
        print("skipped, for want of", *missing)
        sys.exit(SKIPPED)
    with Session("announcement") as session:
        Announcements(session, os.path.abspath(sys.argv[1])).run()


if __name__ == "__main__":
    main()

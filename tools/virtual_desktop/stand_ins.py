"""Recordings that stand in for the beep, the athan and the supplication."""

import math
import pathlib

from sounds import make_sounds

# Short, and told from one another by their pitch: seconds and Hz.
BEEP, ATHAN, SUPPLICATION = (0.8, 900), (2.0, 500), (1.2, 700)


def write_sounds(folder):
    def tone(seconds, frequency):
        return [0.4 * math.sin(2 * math.pi * frequency * i / make_sounds.RATE)
                for i in range(int(seconds * make_sounds.RATE))]

    path = pathlib.Path(folder)
    path.mkdir(parents=True)
    make_sounds.write_aiff(path / "Glass.aiff", tone(*BEEP))
    make_sounds.write_mp3(path / "athan.mp3", tone(*ATHAN), "athan")
    make_sounds.write_mp3(path / "after_athan.mp3", tone(*SUPPLICATION), "supplication")

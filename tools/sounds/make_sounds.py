#!/usr/bin/env python3
"""Makes the sounds that are shipped with the program, resources/sounds/, from sines alone.

Ten beeps as AIFF and three placeholders for the recordings as MP3. The same run gives the same
sounds. Needs Python 3 and libsndfile (package libsndfile1), which writes the MP3.

Usage: tools/sounds/make_sounds.py [FOLDER]
"""

import array
import ctypes
import math
import pathlib
import struct
import sys

RATE = 32000  # Hz, mono: everything up to 16 kHz
PEAK_DB = -3.0  # of the loudest sample below full scale


class Score:
    """Samples to which tones are added."""

    def __init__(self, seconds):
        self.samples = [0.0] * int(seconds * RATE)

    def add(self, start, wave):
        """Adds a wave (a list of samples) from that second on; what is over the end is cut."""
        first = int(start * RATE)
        for i, value in enumerate(wave[: max(0, len(self.samples) - first)]):
            self.samples[first + i] += value

    def echo(self, delay, gain):
        """Lets every sample come back after the delay, and again, fainter each time."""
        lag = int(delay * RATE)
        for i in range(lag, len(self.samples)):
            self.samples[i] += gain * self.samples[i - lag]

    def fade(self, seconds_in, seconds_out):
        count_in, count_out = int(seconds_in * RATE), int(seconds_out * RATE)
        for i in range(count_in):
            self.samples[i] *= i / count_in
        for i in range(count_out):
            self.samples[-1 - i] *= 0.5 - 0.5 * math.cos(math.pi * i / count_out)

    def normalised(self):
        peak = max(abs(value) for value in self.samples)
        scale = 10 ** (PEAK_DB / 20) / peak
        return [value * scale for value in self.samples]


def struck(frequency, seconds, partials, attack=0.003):
    """Something struck: partials of (ratio, loudness, seconds to fall to a third), fading alone."""
    count = int(seconds * RATE)
    wave = [0.0] * count
    for ratio, loudness, fall in partials:
        step = 2 * math.pi * frequency * ratio / RATE
        decay = math.exp(-1 / (fall * RATE))
        level = loudness
        for i in range(count):
            wave[i] += level * math.sin(step * i)
            level *= decay
    rise = int(attack * RATE)
    for i in range(rise):
        wave[i] *= i / rise
    return wave


def gliding(low, high, seconds):
    """A tone that climbs and fades, like a drop of water."""
    count = int(seconds * RATE)
    wave, phase = [], 0.0
    for i in range(count):
        part = i / count
        phase += 2 * math.pi * (low * (high / low) ** (part**0.5)) / RATE
        wave.append(math.sin(phase) * (1 - part) ** 3 * min(1.0, i / (0.004 * RATE)))
    return wave


def sung(frequency, seconds, loudness=1.0):
    """A soft held tone with a slow swell and a faint vibrato, between a flute and a voice."""
    count = int(seconds * RATE)
    rise, fall = 0.35 * seconds, 0.5 * seconds
    wave = []
    phase = 0.0
    for i in range(count):
        time = i / RATE
        vibrato = 1 + 0.003 * math.sin(2 * math.pi * 4.6 * time) * min(1.0, time / 1.2)
        phase += 2 * math.pi * frequency * vibrato / RATE
        swell = min(1.0, time / rise) * min(1.0, (seconds - time) / fall)
        swell = swell * swell * (3 - 2 * swell)
        tone = (
            math.sin(phase)
            + 0.38 * math.sin(2 * phase)
            + 0.16 * math.sin(3 * phase)
            + 0.06 * math.sin(4 * phase)
        )
        wave.append(loudness * swell * tone)
    return wave


BELL = [(0.5, 0.4, 0.9), (1, 1, 0.6), (1.19, 0.5, 0.4), (1.5, 0.25, 0.3), (2, 0.5, 0.3), (2.74, 0.2, 0.15)]
BOWL = [(1, 1, 0.9), (1.006, 0.6, 0.9), (2.71, 0.45, 0.5), (5.15, 0.15, 0.25)]
GLASS = [(1, 1, 0.45), (2.32, 0.5, 0.3), (4.25, 0.25, 0.15), (6.63, 0.1, 0.08)]
BAR = [(1, 1, 0.16), (3.93, 0.35, 0.06), (9.2, 0.1, 0.02)]
WOOD = [(1, 1, 0.03), (1.5, 0.6, 0.02), (2.7, 0.3, 0.015)]
STRING = [(n, 1 / n**1.3, 0.5 / n**0.7) for n in range(1, 9)]


def beep(seconds, *notes, fade_in=0.0):
    score = Score(seconds)
    for start, wave in notes:
        score.add(start, wave)
    score.fade(fade_in, 0.2 * seconds)
    return score.normalised()


def beeps():
    """The shipped beeps by name; Alert is the plain alert sound."""
    return {
        "Alert": beep(0.5, (0, struck(587.3, 0.5, BAR)), (0.12, struck(440.0, 0.38, BAR))),
        "Bell": beep(1.8, (0, struck(659.3, 1.8, BELL))),
        "Bowl": beep(2.0, (0, struck(329.6, 2.0, BOWL, attack=0.02))),
        "Chime": beep(1.6, (0, struck(880.0, 1.6, GLASS)), (0.22, struck(1174.7, 1.3, GLASS))),
        "Dawn": beep(
            1.8,
            (0, sung(293.7, 1.8)),
            (0.1, sung(440.0, 1.7, 0.7)),
            (0.2, sung(587.3, 1.6, 0.5)),
        ),
        "Drop": beep(0.35, (0, gliding(420, 1250, 0.35))),
        "Glass": beep(1.4, (0, struck(1318.5, 1.4, GLASS))),
        "Harp": beep(
            1.6,
            *((0.09 * i, struck(f, 1.3, STRING)) for i, f in enumerate((293.7, 440.0, 587.3, 880.0))),
        ),
        "Marimba": beep(0.7, (0, struck(523.3, 0.7, BAR)), (0.14, struck(784.0, 0.5, BAR))),
        "Wood": beep(0.3, (0, struck(900, 0.3, WOOD)), (0.11, struck(700, 0.19, WOOD))),
    }


def melody(tonic, phrases):
    """Sung phrases over a drone. A phrase is a list of (step in semitones, beats of 0.8 s)."""
    beats = sum(beats for phrase in phrases for _, beats in phrase)
    seconds = 0.6 + 0.8 * beats + 1.6 * len(phrases) + 2
    score = Score(seconds)
    score.add(0, sung(tonic / 2, seconds, 0.22))
    start = 0.6
    for phrase in phrases:
        for step, beats in phrase:
            length = 0.8 * beats
            score.add(start, sung(tonic * 2 ** (step / 12), length + 0.7))
            start += length
        start += 1.6
    score.echo(0.29, 0.22)
    score.echo(0.47, 0.16)
    score.fade(0.05, 2.5)
    return score.normalised()


def recordings():
    """The placeholders by name."""
    return {
        "athan": melody(
            220.0,
            [
                [(0, 2), (7, 4)],
                [(7, 2), (8, 1), (7, 1), (5, 1), (7, 4)],
                [(7, 1), (10, 2), (8, 1), (7, 3), (5, 1), (3, 2)],
                [(5, 1), (3, 1), (2, 1), (0, 4)],
            ],
        ),
        "athan2": melody(
            174.6,
            [
                [(0, 3), (5, 3)],
                [(5, 1), (7, 2), (8, 1), (7, 4)],
                [(12, 3), (10, 1), (8, 1), (7, 3)],
                [(8, 1), (7, 1), (5, 2), (3, 1), (5, 1), (0, 4)],
            ],
        ),
        "after_athan": melody(
            196.0,
            [[(7, 2), (5, 1), (3, 2)], [(5, 1), (7, 1), (3, 1), (2, 2)], [(3, 1), (2, 1), (0, 4)]],
        ),
    }


def extended(number):
    """A positive whole number as AIFF's 80-bit float."""
    exponent = number.bit_length() - 1
    return struct.pack(">HQ", 16383 + exponent, number << (63 - exponent))


def write_aiff(path, samples):
    frames = array.array("h", (round(value * 32767) for value in samples))
    if sys.byteorder == "little":
        frames.byteswap()
    data = frames.tobytes()
    common = struct.pack(">hIh", 1, len(samples), 16) + extended(RATE)
    body = b"AIFF"
    body += b"COMM" + struct.pack(">I", len(common)) + common
    body += b"SSND" + struct.pack(">III", len(data) + 8, 0, 0) + data
    path.write_bytes(b"FORM" + struct.pack(">I", len(body)) + body)


class Info(ctypes.Structure):
    _fields_ = [("frames", ctypes.c_int64)] + [
        (name, ctypes.c_int) for name in ("rate", "channels", "format", "sections", "seekable")
    ]


def write_mp3(path, samples, title):
    write_mode, mpeg_layer_iii, set_compression, title_text = 0x20, 0x230082, 0x1301, 1
    library = ctypes.CDLL("libsndfile.so.1")
    library.sf_open.restype = ctypes.c_void_p
    for function in ("sf_command", "sf_set_string", "sf_write_float", "sf_close"):
        getattr(library, function).argtypes = {
            "sf_command": [ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int],
            "sf_set_string": [ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p],
            "sf_write_float": [ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int64],
            "sf_close": [ctypes.c_void_p],
        }[function]
    library.sf_write_float.restype = ctypes.c_int64
    info = Info(rate=RATE, channels=1, format=mpeg_layer_iii)
    file = library.sf_open(str(path).encode(), write_mode, ctypes.byref(info))
    assert file, f"libsndfile cannot write {path}"
    compression = ctypes.c_double(0.75)
    library.sf_command(file, set_compression, ctypes.byref(compression), ctypes.sizeof(compression))
    library.sf_set_string(file, title_text, title.encode())
    frames = (ctypes.c_float * len(samples))(*samples)
    assert library.sf_write_float(file, frames, len(samples)) == len(samples)
    library.sf_close(file)


def main():
    root = pathlib.Path(__file__).resolve().parents[2]
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else root / "resources" / "sounds"
    folder.mkdir(parents=True, exist_ok=True)
    for name, samples in beeps().items():
        write_aiff(folder / f"{name}.aiff", samples)
    for name, samples in recordings().items():
        write_mp3(folder / f"{name}.mp3", samples, f"Placeholder for {name}")


if __name__ == "__main__":
    main()

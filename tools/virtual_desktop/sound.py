"""A sound server whose only loudspeaker is a recorder."""

import array
import collections
import subprocess
import threading
import time

from virtual_desktop.session import wait_until

RATE = 8000
WINDOW = RATE // 50  # 20 ms
SILENCE = 300  # of 32767

LONGEST_HOLE = 0.5  # Seconds.

# From when to when on the monotonic clock, and for how many seconds of that it was heard.
Tone = collections.namedtuple("Tone", "frequency start end seconds")


def is_like(tone, frequency):
    return abs(tone.frequency - frequency) < 60


class SoundServer:
    """PipeWire with its PulseAudio face and a null sink, which `Recorder` listens to."""

    def __init__(self, session):
        self.session = session
        self.processes = []

    def start(self):
        for program in ("pipewire", "wireplumber", "pipewire-pulse"):
            self.processes.append(self.session.start(program))
        wait_until(lambda: self.ask("info"), "the sound server answers")
        self.ask("load-module", "module-null-sink", "sink_name=ear")
        wait_until(lambda: "ear" in self.ask("list", "sinks", "short"), "there is a sink")
        self.ask("set-default-sink", "ear")
        wait_until(lambda: "Default Sink: ear" in self.ask("info"), "the sink is the default")

    def kill(self):
        for process in reversed(self.processes):
            self.session.end(process)
        self.processes.clear()

    def ask(self, *command):
        return self.session.ask("pactl", *command)

    def listeners(self):
        """The names of the programs that are connected to the server."""
        return [line.split("\t")[2] for line in self.ask("list", "clients", "short").splitlines()]


class Recorder:
    """What is heard while its `with` block runs, by the seconds of the monotonic clock."""

    def __init__(self, session):
        self.session = session
        self.process = None
        self.thread = None
        self.windows = []  # of (time, loudest sample, frequency)

    def __enter__(self):
        self.process = subprocess.Popen(
            ["parec", "--device=ear.monitor", "--latency-msec=10", "--raw", "--format=s16le",
             f"--rate={RATE}", "--channels=1"],
            env=self.session.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.thread = threading.Thread(target=self._listen)
        self.thread.start()
        wait_until(lambda: self.windows, "the recorder hears")
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.thread.join()
        self.process.stdout.close()

    def is_silent(self, seconds):
        """Whether nothing was heard for so long."""
        recent = self.windows[-int(seconds * RATE / WINDOW):]
        return all(loudest < SILENCE for _, loudest, _ in recent)

    def tones(self):
        """The tones that were heard, in their order."""
        tones = []
        for tone in self._runs():
            last = tones[-1] if tones else None
            # A busy machine leaves holes in a tone.
            if last and tone.start - last.end < LONGEST_HOLE and is_like(last, tone.frequency):
                tones[-1] = last._replace(end=tone.end, seconds=last.seconds + tone.seconds)
            else:
                tones.append(tone)
        return tones

    def _runs(self):
        """What was heard, each as long as no silence or other tone came between."""
        length = WINDOW / RATE
        runs = []
        for end, loudest, frequency in list(self.windows):
            if loudest < SILENCE:
                continue
            last = runs[-1] if runs else None
            if last and end - length - last.end < 0.1 and is_like(last, frequency):
                runs[-1] = last._replace(end=end, seconds=last.seconds + length)
            else:
                runs.append(Tone(frequency, end - length, end, length))
        # Where one tone gives way to another, or begins or ends, a window holds some of each.
        return [run for run in runs if run.seconds > 2.5 * length]

    def _listen(self):
        while True:
            data = self.process.stdout.read(2 * WINDOW)
            if len(data) < 2 * WINDOW:
                return
            samples = array.array("h", data)
            crossings = sum((a < 0) != (b < 0) for a, b in zip(samples, samples[1:]))
            self.windows.append((time.monotonic(), max(map(abs, samples)),
                                 crossings * RATE / WINDOW / 2))

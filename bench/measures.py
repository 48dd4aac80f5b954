"""What is measured of a running process, and how the benchmarks are built."""

import os
import re
import subprocess

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "bench")
TRAY = ("trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "24")


def build(*targets):
    for command in (["tools/install-packages", "build", "desktop", "bench"],
                    ["cmake", "--preset", "bench"],
                    ["cmake", "--build", "--preset", "bench", "--target", "hilalor", *targets]):
        subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.DEVNULL)


def wakeups(pid):
    """How often each thread has gone to sleep, with the thread's name."""
    return {thread: (_of(pid, f"task/{thread}/status", r"^Name:\s+(.*)"),
                     int(_of(pid, f"task/{thread}/status", r"^voluntary_ctxt_switches:\s+(\d+)")))
            for thread in os.listdir(f"/proc/{pid}/task")}


def wakeups_since(before, pid):
    """By the threads' names."""
    return [(name, count - before.get(thread, (name, 0))[1])
            for thread, (name, count) in wakeups(pid).items()]


def memory(pid):
    """In MB: what the process has written, and its share of all it has touched."""
    return tuple(int(_of(pid, "smaps_rollup", rf"^{key}:\s+(\d+)")) / 1024
                 for key in ("Private_Dirty", "Pss"))


def milliseconds_to_item(session, executable, runs):
    """From the start of the process to its first window; the first run finds nothing in the caches
    and is left out."""
    timer = os.path.join(BUILD, "bench", "start", "start_to_title")
    return [float(run) for run in session.ask(timer, executable, str(runs + 1)).split()[1:]]


def milliseconds_to_panel(session, openings):
    """From a click's arrival to the painted panel, the first and then the later openings."""
    probe = subprocess.run([os.path.join(BUILD, "bench", "open_screens"), "panel", str(openings + 1)],
                           env=session.environment, stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, timeout=60, check=True)
    first, *later = (float(line) for line in probe.stdout.split())
    return first, later


def _of(pid, file, pattern):
    with open(f"/proc/{pid}/{file}", encoding="utf-8") as text:
        return re.search(pattern, text.read(), re.M)[1]

"""A private desktop to run the program in: X server, message bus, home folder, processes."""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time

PR_SET_CHILD_SUBREAPER = 36


def wait_until(condition, what, timeout=20.0):
    """The condition's first true answer, asked for over and over; fails when it stays away."""
    end = time.monotonic() + timeout
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited {timeout:g} s in vain until {what}")
        time.sleep(0.02)


class Session:
    """Everything started in it is gone when its `with` block ends."""

    def __init__(self, name, screen="1280x800x24"):
        self.name = name
        self.screen = screen
        self.processes = []
        self.started = 0
        self.folder = None
        self.environment = None

    def __enter__(self):
        # What our children leave behind becomes ours, so that it can be found and ended.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self.folder = tempfile.mkdtemp(prefix=f"hilalor-{self.name}-")
        self.environment = self._environment()
        try:
            self._start_x()
            self._start_bus()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, kind, error, trace):
        if error is not None:
            self._print_logs()
        self.close()

    def close(self):
        for process in reversed(self.processes):
            self.end(process)
        # The children of those that end become ours too.
        while children := self._children():
            for pid in children:
                os.kill(pid, signal.SIGKILL)
            time.sleep(0.02)
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, *command, **environment):
        """Starts a program; its output goes to a log that is printed when the test fails."""
        self.started += 1
        log = open(self.path(f"{self.started:02}-{os.path.basename(command[0])}.log"), "wb")
        process = subprocess.Popen(
            command, stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True,
            env={**self.environment, **environment}, cwd=self.folder)
        log.close()
        self.processes.append(process)
        return process

    def end(self, process, how=signal.SIGKILL):
        if process.poll() is None:
            os.killpg(process.pid, how)
        status = process.wait(timeout=10)
        if process in self.processes:
            self.processes.remove(process)
        return status

    def ask(self, *command):
        """What a short command prints; empty where it fails."""
        result = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, timeout=10, check=False)
        return result.stdout.decode() if result.returncode == 0 else ""

    def path(self, *parts):
        return os.path.join(self.folder, *parts)

    def bus_names(self):
        return self._call_bus("ListNames")

    def bus_property(self, name, path, interface, key):
        """The value as GVariant text, without its wrapping; empty where there is none."""
        answer = self.ask("gdbus", "call", "--session", "--dest", name, "--object-path", path,
                          "--method", "org.freedesktop.DBus.Properties.Get", interface, key)
        return answer.strip()[2:-3]

    def stop_bus(self):
        self.end(self.bus)

    def start_bus_again(self):
        self._start_bus()

    def _call_bus(self, method):
        return self.ask("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus",
                        "--object-path", "/org/freedesktop/DBus",
                        "--method", f"org.freedesktop.DBus.{method}")

    def _environment(self):
        kept = {key: os.environ[key] for key in ("PATH", "LANG", "LC_ALL", "ASAN_OPTIONS")
                if key in os.environ}
        folders = {}
        for key, folder in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"),
                            ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache"),
                            ("XDG_RUNTIME_DIR", "run")):
            folders[key] = self.path(folder)
            os.mkdir(folders[key], 0o700)
        return {**kept, **folders, "NO_AT_BRIDGE": "1", "GTK_A11Y": "none", "TZ": "Asia/Riyadh"}

    def _x_server(self):
        return ["Xvfb", "-screen", "0", self.screen]

    def _start_x(self):
        read_end, write_end = os.pipe()
        process = subprocess.Popen(
            [*self._x_server(), "-displayfd", str(write_end), "-nolisten", "tcp"],
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            start_new_session=True)
        self.processes.append(process)
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("no X server")
        self.environment["DISPLAY"] = f":{number}"

    def _start_bus(self):
        address = f"unix:path={self.path('run', 'bus')}"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.bus = self.start("dbus-daemon", "--session", "--nofork", "--nopidfile",
                              f"--address={address}")
        wait_until(self.bus_names, "the message bus answers")

    def _children(self):
        # The file lists ended children too until they are waited for.
        try:
            while os.waitpid(-1, os.WNOHANG)[0]:
                pass
        except ChildProcessError:
            return []
        with open(f"/proc/{os.getpid()}/task/{os.getpid()}/children", encoding="ascii") as children:
            return [int(pid) for pid in children.read().split()]

    def _print_logs(self):
        for name in sorted(os.listdir(self.folder)):
            if name.endswith(".log"):
                with open(self.path(name), encoding="utf-8", errors="replace") as log:
                    print(f"--- {name}\n{log.read()}", flush=True)


# Xvfb has one screen only.
TWO_SCREENS = """Section "ServerFlags"
  Option "AutoAddDevices" "false"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 65536
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5-1000
  VertRefresh 5-200
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Virtual 2560 1024
  EndSubSection
EndSection
"""


class SessionWithTwoScreens(Session):
    """Two screens of 1280 by 800 side by side."""

    def __init__(self, name):
        super().__init__(name, "2560x800x24")

    def _x_server(self):
        configuration = self.path("xorg.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(TWO_SCREENS)
        return ["Xorg", "-config", configuration, "-logfile", self.path("xorg.txt"), "-noreset",
                "-novtswitch", "-sharevts"]

    def _start_x(self):
        super()._start_x()
        self.ask("xrandr", "--addmode", "DUMMY1", "1280x800")
        self.ask("xrandr", "--output", "DUMMY0", "--mode", "1280x800", "--pos", "0x0",
                 "--output", "DUMMY1", "--mode", "1280x800", "--pos", "1280x0")

"""A desktop of its own for the program: a virtual display, a window manager, a session bus and the bus of assistive
technology, with nothing of the person's own settings. All of it ends with the stage."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time


class Failure(Exception):
    """Something that was to be seen was not."""


def wait(what, condition, seconds=60):
    """The first true value of the condition, which is asked again and again."""
    deadline = time.monotonic() + seconds
    while not (seen := condition()):
        if time.monotonic() > deadline:
            raise Failure(f"did not see {what}")
        time.sleep(0.02)
    return seen


class Stage:
    def __init__(self, size="1024x700"):
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="quarvelle-"))
        self.log = open(self.scratch / "log", "w+")
        self._processes = []
        kept = {name: os.environ[name] for name in ("PATH", "LANG", "LC_ALL", "LOCPATH") if name in os.environ}
        os.environ.clear()
        os.environ.update({"LANG": "C.UTF-8", **kept}, HOME=str(self.scratch), XDG_RUNTIME_DIR=str(self.scratch),
                          QT_QPA_PLATFORM="xcb", QT_ACCESSIBILITY="1", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        os.environ["DISPLAY"] = ":" + self._first_line("Xvfb", "-displayfd", "1", "-screen", "0", f"{size}x24",
                                                       "-nolisten", "tcp", "-noreset")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._first_line("dbus-daemon", "--session", "--nofork",
                                                                  "--print-address=1")
        self.start("openbox", "--sm-disable")
        self.start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        wait("the window manager", lambda: self._succeeds("xdotool", "get_desktop"))
        wait("the bus of assistive technology", lambda: self._succeeds(
            "dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
            "org.a11y.Bus.GetAddress"))

    def start(self, *command, **options):
        """A process of its own group, which ends with the stage at the latest."""
        process = subprocess.Popen(command, stderr=self.log, start_new_session=True,
                                   **{"stdout": self.log, **options})
        self._processes.append(process)
        return process

    def said(self):
        """What the program and the desktop have written."""
        self.log.flush()
        return (self.scratch / "log").read_text()

    def close(self):
        for process in reversed(self._processes):
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGTERM)
            process.wait()
        self.log.close()
        shutil.rmtree(self.scratch, ignore_errors=True)

    def _first_line(self, *command):
        return self.start(*command, stdout=subprocess.PIPE, text=True).stdout.readline().strip()

    def _succeeds(self, *command):
        return subprocess.run(command, stdout=self.log, stderr=self.log).returncode == 0

# A desktop of its own for the program: a virtual display, a window manager, a session bus and the bus of assistive
# technology, with nothing of the person's own settings. All of it ends with the stage.

import contextlib
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time


class Failure(Exception):
    """Something that was to be seen was not; told in a sentence."""


def wait(what, condition, seconds=60):
    # The first true value of the condition, which is asked again and again.
    deadline = time.monotonic() + seconds
    while not (seen := condition()):
        if time.monotonic() > deadline:
            raise Failure(f"did not see {what}")
        time.sleep(0.02)
    return seen


def expect(what, seen, wanted):
    if seen != wanted:
        raise Failure(f"saw {seen} as {what}, where {wanted} was wanted")


def run(*command, **options):
    # What the command prints; it has to succeed.
    ended = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", **options)
    if ended.returncode != 0:
        raise Failure(f"saw {' '.join(map(str, command))} fail:\n{ended.stdout}")
    return ended.stdout


def end(process):
    # Ends a process and its whole group.
    for order in (signal.SIGTERM, signal.SIGKILL):
        with contextlib.suppress(ProcessLookupError, subprocess.TimeoutExpired):
            os.killpg(process.pid, order)
            process.wait(10)


class Stage:
    def __init__(self, ends):
        self._ends = ends
        # The name of a socket must be short, which a person's own folder for temporary files need not be.
        self.scratch = pathlib.Path(ends.enter_context(
            tempfile.TemporaryDirectory(prefix="quarvelle-", dir="/tmp", ignore_cleanup_errors=True)))
        self.log = ends.enter_context(open(self.scratch / "log", "w+"))

    def set(self, size):
        kept = {name: os.environ[name] for name in ("PATH", "LANG", "LC_ALL", "LOCPATH", "TZ") if name in os.environ}
        runtime = self.scratch / "run"
        runtime.mkdir(mode=0o700)
        os.environ.clear()
        os.environ.update({"LANG": "C.UTF-8", **kept}, HOME=str(self.scratch), XDG_RUNTIME_DIR=str(runtime),
                          QT_QPA_PLATFORM="xcb", QT_ACCESSIBILITY="1", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        # A key that a busy machine lets go late doesn't repeat.
        os.environ["DISPLAY"] = ":" + self._first_line("Xvfb", "-displayfd", "1", "-screen", "0", f"{size}x24",
                                                       "-nolisten", "tcp", "-noreset", "-r")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._first_line("dbus-daemon", "--session", "--nofork",
                                                                  "--print-address=1")
        self.start("openbox", "--sm-disable")
        self.start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        wait("the window manager", lambda: self.succeeds("xdotool", "get_desktop"))
        wait("the bus of assistive technology", lambda: self.succeeds(
            "dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
            "org.a11y.Bus.GetAddress"))

    def start(self, *command, **options):
        # A process of its own group, which ends with the stage at the latest.
        options = {"stdout": self.log, "stderr": self.log, **options}
        process = subprocess.Popen(command, start_new_session=True, **options)
        self._ends.callback(end, process)
        return process

    def said(self):
        # What the program and the desktop have written.
        self.log.flush()
        return (self.scratch / "log").read_text(errors="replace")

    def picture(self, path):
        run("import", "-window", "root", path)

    def _first_line(self, *command):
        line = self.start(*command, stdout=subprocess.PIPE, text=True).stdout.readline().strip()
        if not line:
            raise Failure(f"did not see {command[0]} start")
        return line

    def succeeds(self, *command):
        return subprocess.run(command, stdout=self.log, stderr=self.log).returncode == 0


@contextlib.contextmanager
def on_stage(pictures, size="1024x700"):
    # A stage for a whole script. When that fails, it says why and leaves a picture and the log in that folder.
    pictures.mkdir(parents=True, exist_ok=True)
    for left in pictures.glob("failure.*"):
        left.unlink()
    for order in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(order, lambda number, _: sys.exit(128 + number))
    with contextlib.ExitStack() as ends:
        stage = Stage(ends)
        try:
            stage.set(size)
            yield stage
        except Exception as failure:
            (pictures / "failure.log").write_text(stage.said())
            # There may be no display yet.
            stage.succeeds("import", "-window", "root", pictures / "failure.png")
            if not isinstance(failure, Failure):
                raise
            sys.exit(f"{stage.said()}Failed: {failure}. Left of it: {pictures}/failure.png and failure.log")

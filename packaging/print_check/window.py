"""The hands of a person at the program's window: keyboard only, and titles to see by."""

import subprocess
import time

from sheets import Fault, require


def xdotool(*arguments):
    """The lines that the tool answers with; none when what it looks for isn't there."""
    answer = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, check=False)
    return answer.stdout.split("\n")[:-1]


def keys(*names):
    if names:
        xdotool("key", "--delay", 15, *names)


def until(condition, what, seconds=30.0):
    """Waits for something to be seen; returns how long that took."""
    begin = time.monotonic()
    while not condition():
        require(time.monotonic() - begin < seconds, f"did not see {what}")
        time.sleep(0.005)
    return time.monotonic() - begin


class Window:
    """The program from its start to its end."""

    def __init__(self, program):
        self.process = subprocess.Popen([program])
        until(lambda: len(self.titles()) == 1, "the window")
        self.main = self.windows()[0]
        until(lambda: xdotool("getwindowfocus") == [self.main], "the keyboard's focus")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()

    def windows(self):
        return xdotool("search", "--onlyvisible", "--class", "^quarvelle$")

    def titles(self):
        return [name for window in self.windows() for name in xdotool("getwindowname", window)]

    def title(self):
        return "".join(xdotool("getwindowname", self.main))

    def menu(self, *names):
        keys("Alt_L", *names, "Return")

    def set_up(self, mode, order, start, distance, count, blanks, random_starts=None):
        """Enters the settings; the focus ends on the button that makes the batch."""
        self.menu("Right", "Down", *["Down"] * mode)

        def enter(text):
            keys("ctrl+a")
            xdotool("type", "--delay", 15, "--", text)
            keys("Tab")

        enter(order)
        enter(random_starts or 3)
        keys(*["space"] if random_starts else [], "Tab")
        enter(start)
        enter(distance)
        enter(count)
        keys("Tab")
        enter(blanks)
        keys("shift+Tab", "shift+Tab")
        keys("space")
        until(lambda: "Print" in self.titles(), "the print dialog")
        self.wait_for_focus("Print")
        kind = ("squares", "puzzles", "puzzles and answers")[mode]
        title = f"Creating ({order} by {order}) Complete Magic Square(s): {count} out of {count} {kind}"
        require(self.title() == title + " left to print.", f"the title is {self.title()!r}")

    def wait_for_focus(self, name):
        until(lambda: xdotool("getwindowfocus", "getwindowname") == [name], f"the focus on {name}")

    def choose_page(self, paper=None, upright=False):
        keys("alt+r")
        self.wait_for_focus("Printer Properties")
        keys("Tab", "Tab")
        if paper:
            xdotool("type", "--delay", 15, paper)
        keys("Tab")
        if upright:
            keys("Up", "space")
        keys("Return")
        self.wait_for_focus("Print")

    def choose_file(self, path):
        keys("alt+n", "End", "alt+f", "ctrl+a")
        xdotool("type", "--delay", 15, path)
        # Away from the box, whose list of files that exist takes the first Return for itself.
        keys("Tab")

    def is_back(self):
        return self.title() == "Quarvelle"

    def wait_for_end(self, seconds=60.0):
        return until(self.is_back, "the main page again", seconds)

    def dismiss_message(self):
        """There is a message; the person reads it, and then the main page is usable again."""
        until(lambda: self.titles() == ["Quarvelle"] * 2, "the message")
        until(lambda: xdotool("getwindowfocus") != [self.main], "the focus on the message")
        keys("Return")
        until(lambda: len(self.windows()) == 1, "the message go away")

    def has_no_message(self):
        time.sleep(0.3)
        require(len(self.windows()) == 1, f"there are windows {self.titles()}")

    def close(self):
        """Ends the program with its menu."""
        self.menu("Down")
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            raise Fault("the program does not end") from None
        require(self.process.returncode == 0, f"exit code {self.process.returncode}")

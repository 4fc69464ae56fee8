"""A person at the program who sees what a screen reader sees, and has a keyboard and a mouse. Nothing here knows more
of the program than its window tells; acts wait for what they are to bring about, never for a time."""

import contextlib
import os
import re
import subprocess
from fractions import Fraction

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402
from gi.repository.GLib import Error as BusError  # noqa: E402

import solver
from stage import Failure, wait  # noqa: E402


def press(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--", str(text)], check=True)


def has(control, state):
    return control.get_state_set().contains(state)


class Player:
    def __init__(self, stage, program):
        self.stage = stage
        self.process = stage.start(program)
        # What others remember of a control is asked again each time.
        Atspi.init()
        self._desktop = Atspi.get_desktop(0)
        self._desktop.set_cache_mask(Atspi.Cache.NONE)
        self.frame = wait("the window", self._window)
        self.wait_for_title("Quarvelle")

    # --- What is to be seen ---

    def _window(self):
        for index in range(self._desktop.get_child_count()):
            application = self._desktop.get_child_at_index(index)
            if application and application.get_process_id() == self.process.pid and application.get_child_count():
                return application.get_child_at_index(0)
        return None

    @contextlib.contextmanager
    def dialog(self, title):
        """While a dialog of that title is there, the player looks at nothing else."""
        application, window = self.frame.get_parent(), self.frame

        def look():
            with ignoring_changes():
                for index in range(application.get_child_count()):
                    child = application.get_child_at_index(index)
                    if child and child.get_role_name() in ("dialog", "alert") and child.get_name() == title:
                        return child
            return None
        self.frame = wait(f"the dialog {title!r}", look)
        yield self
        self.frame = window
        wait(f"the dialog {title!r} go", lambda: not look())

    def _all(self, root):
        yield root
        for index in range(root.get_child_count()):
            child = root.get_child_at_index(index)
            if child and (child.get_role_name() == "popup menu" or has(child, Atspi.StateType.SHOWING)):
                yield from self._all(child)

    def find(self, role, name):
        """The visible control of that role whose name begins so."""
        def look():
            with ignoring_changes():
                for control in self._all(self.frame):
                    if control.get_role_name() == role and control.get_name().startswith(name):
                        return control
            return None
        return wait(f"the {role} {name!r}", look)

    def title(self):
        return self.frame.get_name()

    def wait_for_title(self, title):
        wait(f"the title {title!r}", lambda: self.title() == title)

    def wait_for_text(self, what, text, pattern):
        return wait(what, lambda: text() if re.search(pattern, text()) else None)

    def wait_for_foot(self, beginning):
        """The line at the window's foot, when it begins so."""
        return self.find("status bar", beginning).get_name()

    def wait_for_score(self, order, solved, right, wrong):
        self.wait_for_title(f"Number of ({order} by {order}) Complete Magic Square(s) solved: {solved}"
                            f" / Numbers correct: {right} / Numbers incorrect: {wrong}")

    def wait_for_focus(self, control):
        wait(f"the keyboard at {control.get_name()!r}", lambda: has(control, Atspi.StateType.FOCUSED))

    def text(self, box):
        return Atspi.Text.get_text(box, 0, -1)

    def table(self):
        return self.find("table", "Puzzle of ")

    def board(self):
        """The numbers of the cells by row and column from 0, None for blanks."""
        table = self._shown_table = self.table()
        order = Atspi.Table.get_n_rows(table)
        names = [table.get_child_at_index(index).get_name() for index in range(order * order)]
        return {(index // order, index % order): None if name == "blank" else Fraction(name)
                for index, name in enumerate(names)}

    def wait_for_board(self, board):
        wait("the answers on the board", lambda: self.board() == board)

    def picture(self, path):
        subprocess.run(["import", "-window", "root", str(path)], check=True)
        print(f"  picture: {path.name}")

    # --- Keyboard ---

    def tab_to(self, role, name):
        """Walks there key by key, as one who has no mouse."""
        control = self.find(role, name)
        for _ in range(40):
            if has(control, Atspi.StateType.FOCUSED):
                return control
            focused = self._focused()
            press("Tab")
            wait("the keyboard go on", lambda: self._focused() != focused)
        raise Failure(f"Tab does not lead to {name!r}")

    def _focused(self):
        with ignoring_changes():
            for control in self._all(self.frame):
                if has(control, Atspi.StateType.FOCUSED) and control.get_role_name() != "menu bar":
                    return (control.get_role_name(), control.get_name(), control.get_index_in_parent())
        return None

    def push(self, name):
        self.tab_to("push button", name)
        press("space")

    def enter(self, name, text):
        """Replaces what the box of that name holds."""
        box = self.tab_to("text", name)
        press("ctrl+a", "Delete")
        type_text(text)
        wait(f"{text!r} in the box", lambda: self.text(box) == str(text))

    def choose(self, *keys):
        """Menu items by their mnemonics, the first with Alt."""
        press("alt+" + keys[0], *keys[1:])

    def go_to(self, board, cell):
        """From blank to blank, as they are read."""
        blanks = sorted(place for place, number in board.items() if number is None)
        for blank in blanks[:blanks.index(cell) + 1]:
            press("Home" if blank == blanks[0] else "Tab")
            self.wait_for_focus(Atspi.Table.get_accessible_at(self._shown_table, *blank))

    def solve_by_keyboard(self, order, in_play, total, wrong_answers=0):
        """A whole square; the next one comes."""
        board = self.board()
        answers = solver.solve(board, total, in_play)
        blanks = sum(number is None for number in board.values())
        if len(answers) != blanks:
            raise Failure(f"only {len(answers)} of {blanks} blanks can be found")
        for right, (cell, number) in enumerate(answers):
            self.go_to(board, cell)
            for wrong in range(wrong_answers if right == 0 else 0):
                type_text(solver.text(number + 1)[:2])
                press("Return")
                self.wait_for_score(order, 0, 0, wrong + 1)
            type_text(solver.text(number))
            press("Return")
            board[cell] = number
            self.wait_for_score(order, int(right + 1 == blanks), right + 1, wrong_answers)
        print(f"  solved a {order} by {order} square with {blanks} blanks")

    # --- The print dialog ---

    def act(self, role, name):
        """Does to a control what it is there for."""
        Atspi.Action.do_action(self.find(role, name), 0)

    def print_to(self, path):
        printers = self.find("combo box", "")
        Atspi.Component.grab_focus(printers)
        self.wait_for_focus(printers)
        press("End")
        wait("the file chosen", lambda: printers.get_name().startswith("Print to File"))
        file = self.find("text", "Output file")
        Atspi.EditableText.set_text_contents(file, str(path))
        wait("the file's name", lambda: self.text(file) == str(path))

    def choose_sheets(self, first, last, copies, reverse):
        self.act("push button", "Options")
        self.act("radio button", "Pages from")
        pages = self.find("panel", "Print range")
        ends = [control for control in self._all(pages) if control.get_role_name() == "spin button"]
        for control, value in [*zip(reversed(ends), (last, first)), (self.find("spin button", "Copies"), copies)]:
            Atspi.Value.set_current_value(control, value)
            wait("the number", lambda: Atspi.Value.get_current_value(control) == value)
        if reverse:
            self.act("check box", "Reverse")

    # --- Mouse ---

    def click(self, control):
        area = Atspi.Component.get_extents(control, Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(area.x + area.width // 2), str(area.y + area.height // 2),
                        "click", "1"], check=True)

    def click_cell(self, row, column):
        self.click(Atspi.Table.get_accessible_at(self.table(), row, column))

    # --- The end ---

    def expect_end(self):
        """The program ends by itself, well, and leaves nothing running."""
        wait("the program end", lambda: self.process.poll() is not None)
        if self.process.returncode != 0:
            raise Failure(f"the program ended with exit code {self.process.returncode}")
        wait("all that it started end", self._nothing_runs)
        print("  ended with exit code 0, nothing left running")

    def _nothing_runs(self):
        try:
            os.killpg(self.process.pid, 0)
        except ProcessLookupError:
            return True
        return False


class ignoring_changes:
    """A control may go while it is looked at; then it isn't there."""

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        return kind is BusError

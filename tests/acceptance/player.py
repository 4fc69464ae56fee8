# A person at the program who sees what a screen reader sees, and has a keyboard and a mouse. Nothing here knows more
# of the program than its window tells; acts wait for what they are to bring about, never for a time.

import contextlib
from fractions import Fraction

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402
from gi.repository.GLib import Error as BusError  # noqa: E402

import solver  # noqa: E402
from stage import Failure, expect, run, wait  # noqa: E402

State = Atspi.StateType


def press(*keys):
    run("xdotool", "key", *keys)


def type_text(text):
    run("xdotool", "type", "--", str(text))


def has(control, state):
    return control.get_state_set().contains(state)


def see(what, condition):
    # As wait; what goes away while it is looked at isn't there.
    def look():
        with contextlib.suppress(BusError):
            return condition()
    return wait(what, look)


def children(control):
    return filter(None, map(control.get_child_at_index, range(control.get_child_count())))


class Player:
    def __init__(self, stage, program):
        self.process = stage.start(program)
        Atspi.init()
        Atspi.set_timeout(60_000, 60_000)  # milliseconds
        # What others remember of a control is asked again each time.
        self._desktop = Atspi.get_desktop(0)
        self._desktop.set_cache_mask(Atspi.Cache.NONE)
        self._application = see("the program", lambda: next(
            (program for program in children(self._desktop) if program.get_process_id() == self.process.pid), None))
        self.frame = see("the window", lambda: next(children(self._application), None))
        self.wait_for_title("Quarvelle")
        self.wait_for(self.frame, State.ACTIVE)

    # --- What is to be seen ---

    def _all(self, root):
        yield root
        for child in children(root):
            if has(child, State.SHOWING):
                yield from self._all(child)

    def all(self, role, name=""):
        # The controls of that role whose names begin so, those that can be seen and used.
        return [control for control in self._all(self._application) if control.get_role_name() == role
                and control.get_name().startswith(name) and has(control, State.ENABLED)]

    def find(self, role, name):
        return see(f"the {role} {name!r}", lambda: self.all(role, name))[0]

    def hear(self, what, condition):
        # What a screen reader was told last, once that is so.
        # It is not shown; whoever listens gets it from the board's last child.
        def look():
            table = self.table()
            news = table.get_child_at_index(table.get_child_count() - 1).get_name()
            return condition(news) and news
        return see(what, look)

    def wait_for_title(self, title):
        see(f"the title {title!r}", lambda: self.frame.get_name() == title)

    def wait_for_score(self, order, solved, right, wrong):
        self.wait_for_title(f"Number of ({order} by {order}) Complete Magic Square(s) solved: {solved}"
                            f" / Numbers correct: {right} / Numbers incorrect: {wrong}")

    def wait_for(self, control, state, wanted=True):
        see(f"{control.get_role_name()} {control.get_name()!r} {'' if wanted else 'not '}{state.value_nick}",
            lambda: has(control, state) == wanted)

    def table(self):
        return self.find("table", "Puzzle of ")

    def board(self):
        # The numbers of the cells by row and column from 0, None for blanks.
        table = self.table()
        order = Atspi.Table.get_n_rows(table)
        names = [table.get_child_at_index(index).get_name() for index in range(order * order)]
        return {(index // order, index % order): None if name == "blank" else Fraction(name)
                for index, name in enumerate(names)}

    # --- Keyboard ---

    def tab_to(self, role, name):
        # Walks there key by key, as one who has no mouse.
        control = self.find(role, name)
        for _ in range(40):
            focused = see("something with the keyboard", self._focused)
            if has(control, State.FOCUSED):
                return control
            press("Tab")
            see("the keyboard go on", lambda: self._focused() not in (None, focused))
        raise Failure(f"saw Tab lead nowhere near {name!r}")

    def _focused(self):
        return next(((control.get_role_name(), control.get_name(), control.get_index_in_parent())
                     for control in self._all(self._application)
                     if has(control, State.FOCUSED) and control.get_role_name() != "menu bar"), None)

    def push(self, name):
        self.tab_to("push button", name)
        press("space")

    def tick(self, name):
        box = self.tab_to("check box", name)
        checked = has(box, State.CHECKED)
        press("space")
        self.wait_for(box, State.CHECKED, not checked)

    def enter(self, name, text):
        # Replaces what the box of that name holds.
        box = self.tab_to("text", name)
        press("ctrl+a", "Delete")
        type_text(text)
        see(f"{text!r} in the box {name!r}", lambda: Atspi.Text.get_text(box, 0, -1) == str(text))

    def choose(self, *items):
        # Menu items by their underlined letters, each when it shows.
        for item in items:
            letter = Atspi.Action.get_key_binding(self.find("menu item", item), 0)[-1].lower()
            press(letter if self.all("popup menu") else f"alt+{letter}")

    # --- Mouse ---

    def click(self, control):
        area = Atspi.Component.get_extents(control, Atspi.CoordType.SCREEN)
        run("xdotool", "mousemove", str(area.x + area.width // 2), str(area.y + area.height // 2), "click", "1")

    def click_menu(self, *items):
        for item in items:
            self.click(self.find("menu item", item))
        see("the menu close", lambda: not self.all("popup menu"))

    def click_on(self, place):
        cell = Atspi.Table.get_accessible_at(self.table(), *place)
        self.click(cell)
        # The window manager may hold a click back, but no keys.
        self.wait_for(cell, State.SELECTED)
        self.wait_for(self.find("text", ""), State.FOCUSED)

    # --- Either ---

    def answer(self, numbers_of, order, total, in_play):
        # The blanks that are come to one after the other, with their numbers; the first is answered wrong before.
        board = self.board()
        answers = solver.solve(board, total, in_play)
        blanks = sum(number is None for number in board.values())
        expect("the number of blanks to be found", len(answers), blanks)
        for right, number in enumerate(numbers_of(answers), 1):
            if right == 1:
                type_text(98 if number == 99 else 99)
                press("Return")
                self.wait_for_score(order, 0, 0, 1)
            type_text(number)
            press("Return")
            self.wait_for_score(order, int(right == blanks), right, 1)
        given = {**board, **dict(answers[:right])}
        see("the answers", lambda: None in self.board().values() if right == blanks else self.board() == given)
        print(f"  answered {right} of {blanks} blanks of a {order} by {order} square")

    # --- The print dialog ---

    def act(self, role, name, state=None):
        # Does to a control what it is there for, which may bring it into that state.
        control = self.find(role, name)
        Atspi.Action.do_action(control, 0)
        if state:
            self.wait_for(control, state)

    def print_to(self, path):
        printers = self.find("combo box", "")
        Atspi.Component.grab_focus(printers)
        self.wait_for(printers, State.FOCUSED)
        press("End")
        see("the file chosen", lambda: printers.get_name().startswith("Print to File"))
        file = self.find("text", "Output file")
        Atspi.EditableText.set_text_contents(file, str(path))
        see("the file's name", lambda: Atspi.Text.get_text(file, 0, -1) == str(path))

    def choose_sheets(self, first, last, copies, reverse):
        self.act("push button", "Options")
        self.act("radio button", "Pages from", State.CHECKED)
        see("the first and the last sheet", lambda: len(self.all("spin button", "Print range")) == 2)
        ends = self.all("spin button", "Print range")
        for box, number in zip([*reversed(ends), self.find("spin button", "Copies")], (last, first, copies)):
            Atspi.Value.set_current_value(box, number)
            see(f"{number} in the box {box.get_name()!r}", lambda: Atspi.Value.get_current_value(box) == number)
        if reverse:
            self.act("check box", "Reverse", State.CHECKED)

    # --- The end ---

    def expect_end(self):
        # The program ends by itself, and well.
        expect("the exit code", self.process.wait(60), 0)

# Batches printed from the window, in files and on a printer: each sheet that comes out is read back and is the one
# to expect. Pictures of the sheets go to the folder given second; the first argument is the program.

import datetime
import pathlib
import re
import sys
import types
from fractions import Fraction

import sheets
import solver
from player import Player, has, press, see, State
from printer import PrintQueue
from stage import expect, on_stage, run

KINDS = {"Print only completed Squares": ["Squares"], "Print only Puzzles": ["Puzzles"],
         "Print both Puzzles and Answers": ["Puzzles", "Answers"]}
BOTH = "Print both Puzzles and Answers"

# A run that goes on past midnight sees two days.
FIRST_DAY = str(datetime.date.today())
DEFAULTS = {
    "order": 5, "start": "1", "distance": "1", "blanks": 100, "drawn_starts": 0, "mode": BOTH,
    "on_queue": False, "letter": False, "first": 1, "last": None, "copies": 1, "reverse": False,
    # So many sheets, or squares in pieces, share the squares.
    "bundles": 1, "pieces": 1}


class Batch(types.SimpleNamespace):
    # What is asked for, and what is to come of it.

    def __init__(self, name, count, **particulars):
        super().__init__(name=name, count=count, **{**DEFAULTS, **particulars})
        self.kinds = KINDS[self.mode]
        self.starts = [Fraction(self.start) + k for k in range(self.drawn_starts or 1)]
        self.paper = (279, 216) if self.letter else (297, 210)

    def sheets(self):
        everything = [(kind, sheet) for sheet in range(1, self.bundles * self.pieces + 1) for kind in self.kinds]
        wanted = everything[self.first - 1:self.last] * self.copies
        return wanted[::-1] if self.reverse else wanted

    def numbers(self, sheet):
        # Of the squares on that sheet.
        bundle = (sheet - 1) // self.pieces
        fewest, fuller = divmod(self.count, self.bundles)
        begin = bundle * fewest + min(bundle, fuller) + 1
        return list(range(begin, begin + fewest + (bundle < fuller)))

    def caption(self, sheet):
        # All of it but the day.
        return " · ".join([
            f"{sheet.kind}, sheet {sheet.number}", *(sheet.notes if self.pieces > 1 else []),
            f"{self.order} by {self.order}",
            f"first number{'s from' if self.drawn_starts else ''} {solver.text(self.starts[0])}",
            f"distance {solver.text(Fraction(self.distance))}",
            *(["challenging"] if "Puzzles" in self.kinds else [])])

    def check(self, printed):
        # Returns how many different squares were there.
        by_name = {(sheet.kind, sheet.number): sheet for sheet in printed}
        found = {kind: {} for kind in self.kinds}
        for sheet in by_name.values():
            caption, day = sheet.caption.rsplit(" · ", 1)
            expect("the caption", caption, self.caption(sheet))
            expect("the day", day, min(max(day, FIRST_DAY), str(datetime.date.today())))
            expect("the paper", sheet.paper, self.paper)
            numbers = [int(note.split(".")[0]) for note in sheet.notes]
            expect("the numbers of the squares", numbers, self.numbers(sheet.number))
            whole = by_name.get((self.kinds[-1], sheet.number), sheet)
            for note, board in zip(sheet.notes, sheet.boards(self.order, whole.grid()), strict=True):
                found[sheet.kind].setdefault(note, {}).update(board)
        for note in found[self.kinds[0]]:
            self.check_square(note, *(found[kind].get(note) for kind in self.kinds))
        return len({note for kind in found.values() for note in kind})

    def check_square(self, note, puzzle, square=None):
        # The square is complete, with the total in its note; the puzzle leads there and nowhere else.
        total = Fraction(sheets.NOTE.match(note).group(2))
        solved = {**puzzle, **dict(solver.solve(puzzle, total, solver.lines(self.order)))}
        blanks = list(puzzle.values()).count(None)
        most = self.blanks if "Puzzles" in self.kinds else 0
        expect(f"the number of blanks in {note!r}", blanks, min(max(blanks, min(1, most)), most))
        differing = [cell for cell in solved if square and solved[cell] != square[cell]]
        expect(f"cells with wrong answers in {note!r}", differing, [])
        start = min(solved.values())
        expect(f"the first number of {note!r}", start, min(self.starts, key=lambda first: abs(first - start)))
        expect(f"the total in {note!r}", total, solver.magic_total(self.order, start, self.distance))
        expect(f"the numbers of {note!r}", sorted(solved.values()),
               [start + k * Fraction(self.distance) for k in range(self.order * self.order)])
        lines = solver.lines(self.order, diagonals=True, shapes=self.order == 5)
        expect(f"the sums of {note!r}", {sum(solved[cell] for cell in line) for line in lines}, {total})


BATCHES = [
    Batch("25 of 5 by 5", 25),
    Batch("sheets 2 to 5 twice and backwards", 60, bundles=3, first=2, last=5, copies=2, reverse=True),
    Batch("25 of 7 by 7", 25, order=7, bundles=3),
    Batch("squares of 7 by 7", 13, order=7, bundles=2, mode="Print only completed Squares"),
    Batch("puzzles with few blanks", 12, order=7, blanks=6, mode="Print only Puzzles"),
    Batch("puzzles in pieces", 1, order=31, pieces=2),
    Batch("random starting numbers", 30, start="10", drawn_starts=4, bundles=2),
    Batch("negative fractional numbers", 7, start="-3.5", distance="0.25"),
    Batch("two of 7 by 7 on a printer", 2, order=7, on_queue=True),
    Batch("sheets 2 to 5 twice and backwards on a printer", 60, bundles=3, on_queue=True, first=2, last=5,
          copies=2, reverse=True),
    Batch("25 of 7 by 7 on Letter paper", 25, order=7, bundles=3, on_queue=True, letter=True)]


class Check:
    def __init__(self, stage, program, pictures, queue):
        self.stage, self.pictures, self.queue = stage, pictures, queue
        self.player = Player(stage, program)
        self.entries, self.mode = {}, BOTH
        self.sheets = self.squares = 0

    def set_up(self, batch):
        # Enters what differs from the batch before, and has it made.
        player = self.player
        if batch.mode != self.mode:
            player.click_menu("Print Options", batch.mode)
        if has(player.find("check box", "Choose Random"), State.CHECKED) != bool(batch.drawn_starts):
            player.tick("Choose Random")
        for name, value in {"Size of Square": batch.order, "Starting Number": batch.start,
                            "Distance": batch.distance, "Leave how many": batch.blanks,
                            "Print how many": batch.count, "Allow how many": batch.drawn_starts or 3}.items():
            if self.entries.get(name) != value:
                player.enter(name, value)
            self.entries[name] = value
        self.mode = batch.mode
        player.push("Create")

    def order(self, batch, path):
        # Has the batch made, for the printer or in a file.
        self.set_up(batch)
        with self.player.dialog("Print") as dialog:
            if not batch.on_queue:
                dialog.print_to(path)
            if batch.last:
                dialog.choose_sheets(batch.first, batch.last, batch.copies, batch.reverse)
            dialog.act("push button", "Print")

    def look_at(self, batch, document):
        printed = sheets.read(document)
        self.sheets += len(printed)
        self.squares += batch.check(printed)
        print(f"{len(printed)} sheet{'s' * (len(printed) > 1)}")
        return printed

    def batch(self, batch):
        print(f"  {batch.name}: ", end="", flush=True)
        if batch.letter:
            self.queue.add("Letter")
        earlier, path = self.queue.jobs(), self.stage.scratch / f"{batch.name.replace(' ', '-')}.pdf"
        self.order(batch, path)
        wanted = batch.sheets()
        where = f"sent to {self.queue.name}" if batch.on_queue else f"written to {path}"
        self.player.find("status bar", f"{len(wanted)} sheet{'s' * (len(wanted) > 1)} {where}")
        document = self.queue.document(earlier) if batch.on_queue else path
        run("pdftoppm", "-r", "100", "-png", document, self.pictures / path.stem)
        printed = self.look_at(batch, document)
        expect("the sheets", [(sheet.kind, sheet.number) for sheet in printed], wanted)

    def stopped(self, key, end):
        # The full sheets of a batch that a key ends come out.
        path = self.stage.scratch / f"{key}.pdf"
        # So many squares that something can happen before they are all made.
        batch = Batch(key, 100000, bundles=4000)
        self.order(batch, path)
        see("some squares printed", lambda: re.search(r" 99\d\d\d out of ", self.player.frame.get_name()))
        press(key)
        told = end()
        print(f"  stopped with {key}: ", end="")
        printed = len(self.look_at(batch, path))
        if told:
            expect("the foot's line", told.get_name(), f"Stopped: {printed} of 8000 sheets written to {path}")

    def everything(self):
        for batch in BATCHES:
            self.batch(batch)
        self.stopped("q", lambda: self.player.find("status bar", "Stopped: "))
        self.stopped("alt+F4", self.player.expect_end)
        print(f"{self.sheets} sheets with {self.squares} squares came out as expected.")


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[2])
    with on_stage(folder) as stage:
        Check(stage, sys.argv[1], folder, PrintQueue(stage, "quarvelle-check")).everything()

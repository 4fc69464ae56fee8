# Batches printed from the window, in files and on a printer: each sheet that comes out is read back and is the one
# to expect. Pictures of the sheets go to the folder given second; the first argument is the program.

import pathlib
import sys
import types
from fractions import Fraction

import sheets
import solver
from player import Player
from printer import PrintQueue
from stage import expect, on_stage, run

KINDS = {"Print only completed Squares": ["Squares"], "Print only Puzzles": ["Puzzles"],
         "Print both Puzzles and Answers": ["Puzzles", "Answers"]}
BOTH = "Print both Puzzles and Answers"

DEFAULTS = {"order": 5, "start": "1", "distance": "1", "mode": BOTH, "on_queue": False, "first": 1,
            "last": None, "copies": 1, "reverse": False, "bundles": 1}


class Batch(types.SimpleNamespace):
    # What is asked for, and what is to come of it.

    def __init__(self, name, count, **particulars):
        super().__init__(name=name, count=count, **{**DEFAULTS, **particulars})
        self.kinds = KINDS[self.mode]

    def sheets(self):
        everything = [(kind, sheet) for sheet in range(1, self.bundles + 1) for kind in self.kinds]
        wanted = everything[self.first - 1:self.last] * self.copies
        return wanted[::-1] if self.reverse else wanted

    def check(self, printed):
        by_name = {(sheet.kind, sheet.number): sheet for sheet in printed}
        found = {kind: {} for kind in self.kinds}
        for sheet in by_name.values():
            expect("the order in a caption", f" · {self.order} by {self.order} · " in sheet.caption, True)
            whole = by_name.get((self.kinds[-1], sheet.number), sheet)
            for note, board in zip(sheet.notes, sheet.boards(self.order, whole.grid()), strict=True):
                found[sheet.kind][note] = board
        if not self.last:
            expect("the number of squares", len(found[self.kinds[0]]), self.count)
        for note in found[self.kinds[0]]:
            self.check_square(note, *(found[kind].get(note) for kind in self.kinds))

    def check_square(self, note, puzzle, square=None):
        # The square is complete, with the total in its note; the puzzle leads there and nowhere else.
        total = Fraction(sheets.NOTE.match(note).group(2))
        solved = {**puzzle, **dict(solver.solve(puzzle, total, solver.lines(self.order)))}
        expect(f"blanks in {note!r}", None in puzzle.values(), "Puzzles" in self.kinds)
        differing = [cell for cell in solved if square and solved[cell] != square[cell]]
        expect(f"cells with wrong answers in {note!r}", differing, [])
        expect(f"the numbers of {note!r}", sorted(solved.values()),
               [Fraction(self.start) + k * Fraction(self.distance) for k in range(self.order * self.order)])
        lines = solver.lines(self.order, diagonals=True, shapes=self.order == 5)
        expect(f"the sums of {note!r}", {sum(solved[cell] for cell in line) for line in lines}, {total})


BATCHES = [
    Batch("25 of 5 by 5", 25),
    Batch("sheets 2 to 5 twice and backwards", 60, bundles=3, first=2, last=5, copies=2, reverse=True),
    Batch("25 of 7 by 7", 25, order=7, bundles=3),
    Batch("squares of 7 by 7", 13, order=7, bundles=2, mode="Print only completed Squares"),
    Batch("puzzles", 12, order=7, mode="Print only Puzzles"),
    Batch("negative fractional numbers", 7, start="-3.5", distance="0.25"),
    Batch("two of 7 by 7 on a printer", 2, order=7, on_queue=True),
    Batch("sheets 2 to 5 twice and backwards on a printer", 60, bundles=3, on_queue=True, first=2, last=5,
          copies=2, reverse=True)]


class Check:
    def __init__(self, stage, program, pictures, queue):
        self.stage, self.pictures, self.queue = stage, pictures, queue
        self.player = Player(stage, program)

    def order(self, batch, path):
        # Has it made, for the printer or in a file.
        player = self.player
        player.click_menu("Print Options", batch.mode)
        for name, value in {"Size of Square": batch.order, "Starting Number": batch.start,
                            "Distance": batch.distance, "Print how many": batch.count}.items():
            player.enter(name, value)
        player.push("Create")
        if not batch.on_queue:
            player.print_to(path)
        if batch.last:
            player.choose_sheets(batch.first, batch.last, batch.copies, batch.reverse)
        player.act("push button", "Print")

    def batch(self, batch):
        print(f"  {batch.name}: ", end="", flush=True)
        earlier, path = self.queue.jobs(), self.stage.scratch / f"{batch.name.replace(' ', '-')}.pdf"
        self.order(batch, path)
        wanted = batch.sheets()
        where = f"sent to {self.queue.name}" if batch.on_queue else f"written to {path}"
        told = f"{len(wanted)} sheet{'s' * (len(wanted) > 1)} {where}"
        self.player.find("status bar", told)
        document = self.queue.document(earlier) if batch.on_queue else path
        run("pdftoppm", "-r", "100", "-png", document, self.pictures / path.stem)
        printed = sheets.read(document)
        expect("the sheets", [(sheet.kind, sheet.number) for sheet in printed], wanted)
        batch.check(printed)
        print(told)


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[2])
    with on_stage(folder) as stage:
        check = Check(stage, sys.argv[1], folder, PrintQueue(stage, "quarvelle-check"))
        for batch in BATCHES:
            check.batch(batch)
    print("All sheets came out as expected.")

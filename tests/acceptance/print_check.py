"""Batches printed from the window, in files and on a printer: each sheet that comes out is read back and is the one
to expect. Pictures of the sheets go to the folder given second; the first argument is the program."""

import contextlib
import dataclasses
import datetime
import os
import pathlib
import re
import subprocess
import sys
from fractions import Fraction

import sheets
import solver
from player import Player, has, press, see, State
from printer import PrintQueue
from stage import Failure, expect, on_stage

KINDS = {"Print only completed Squares": ["Squares"], "Print only Puzzles": ["Puzzles"],
         "Print both Puzzles and Answers": ["Puzzles", "Answers"]}
BOTH = "Print both Puzzles and Answers"


@dataclasses.dataclass
class Batch:
    """What is asked for, and what is to come of it."""
    name: str
    count: int
    order: int = 5
    start: str = "1"
    distance: str = "1"
    blanks: int = 100
    drawn_starts: int = 0
    mode: str = BOTH
    on_queue: bool = False
    upright: bool = False
    first: int = 1
    last: int = None
    copies: int = 1
    reverse: bool = False
    bundles: int = 1  # so many sheets share the squares, each with its answers, or so many squares the sheets
    pieces: int = 1  # of a square, each a sheet
    paper: tuple = (297, 210)
    cell: float = None

    @property
    def kinds(self):
        return KINDS[self.mode]

    @property
    def starts(self):
        return [Fraction(self.start) + k for k in range(self.drawn_starts or 1)]

    def entries(self):
        drawn = {"Allow how many": self.drawn_starts} if self.drawn_starts else {}
        return {"Size of Square": self.order, "Starting Number": self.start, "Distance": self.distance,
                "Leave how many": self.blanks, "Print how many": self.count, **drawn}

    def sheets(self):
        everything = [(kind, sheet) for sheet in range(1, self.bundles * self.pieces + 1) for kind in self.kinds]
        wanted = everything[self.first - 1:self.last] * self.copies
        return wanted[::-1] if self.reverse else wanted

    def numbers(self, sheet):
        """Of the squares on that sheet."""
        bundle = (sheet - 1) // self.pieces
        fewest, fuller = divmod(self.count, self.bundles)
        begin = bundle * fewest + min(bundle, fuller) + 1
        return list(range(begin, begin + fewest + (bundle < fuller)))

    def caption(self, sheet):
        """All of it but the day."""
        return " · ".join([
            f"{sheet.kind}, sheet {sheet.number}", *(sheet.notes if self.pieces > 1 else []),
            f"{self.order} by {self.order}",
            f"first number{'s from' if self.drawn_starts else ''} {solver.text(self.starts[0])}",
            f"distance {solver.text(Fraction(self.distance))}", *(["challenging"] if "Puzzles" in self.kinds else [])])

    def check(self, printed, since):
        """Returns how many different squares were there."""
        by_name = {(sheet.kind, sheet.number): sheet for sheet in printed}
        found = {kind: {} for kind in self.kinds}
        for sheet in by_name.values():
            caption, day = sheet.caption.rsplit(" · ", 1)
            expect("the caption", caption, self.caption(sheet))
            expect("the day in time", since <= datetime.date.fromisoformat(day) <= datetime.date.today(), True)
            expect("the paper", sheet.paper, self.paper)
            expect("the squares", [int(note.split(".")[0]) for note in sheet.notes], self.numbers(sheet.number))
            whole = by_name.get((self.kinds[-1], sheet.number), sheet)
            for note, board in zip(sheet.notes, sheet.boards(self.order, whole.grid()), strict=True):
                found[sheet.kind].setdefault(note, {}).update(board)
        for note in found[self.kinds[0]]:
            self.check_square(note, *(found[kind].get(note) for kind in self.kinds))
        return len({note for kind in found.values() for note in kind})

    def check_square(self, note, puzzle, square=None):
        """The square is complete, with the total in its note; the puzzle leads there and nowhere else."""
        total = Fraction(sheets.NOTE.match(note).group(2))
        solved = {**puzzle, **dict(solver.solve(puzzle, total, solver.lines(self.order)))}
        blanks = list(puzzle.values()).count(None)
        expect(f"blanks in {note}", 0 < blanks <= self.blanks, "Puzzles" in self.kinds)
        expect(f"the answers of {note}", solved, square or solved)
        start = min(solved.values())
        expect(f"the first number {start} among those of {note}", start in self.starts, True)
        expect(f"the total of {note}", total, solver.magic_total(self.order, start, self.distance))
        expect(f"the numbers of {note}", sorted(solved.values()),
               [start + k * Fraction(self.distance) for k in range(self.order * self.order)])
        lines = solver.lines(self.order, diagonals=True, shapes=self.order == 5)
        expect(f"the sums in {note}", {sum(solved[cell] for cell in line) for line in lines}, {total})


BATCHES = [
    Batch("25 of 5 by 5", 25),
    Batch("sheets 2 to 5 twice and backwards", 60, bundles=3, first=2, last=5, copies=2, reverse=True),
    Batch("12 of 7 by 7", 12, order=7),
    Batch("25 of 7 by 7", 25, order=7, bundles=3, cell=10.35),
    Batch("two of 7 by 7", 2, order=7, cell=18),
    Batch("two of 7 by 7 upright", 2, order=7, upright=True, paper=(210, 297)),
    Batch("squares of 7 by 7", 13, order=7, bundles=2, mode="Print only completed Squares"),
    Batch("puzzles with few blanks", 12, order=7, blanks=6, mode="Print only Puzzles"),
    Batch("puzzles in pieces", 1, order=31, pieces=2),
    Batch("random starting numbers", 30, start="10", drawn_starts=4, bundles=2),
    Batch("negative fractional numbers", 7, start="-3.5", distance="0.25"),
]
ON_PAPER = [
    Batch("two of 7 by 7 on paper", 2, order=7, on_queue=True, cell=18),
    Batch("sheets 2 to 5 twice and backwards on paper", 60, bundles=3, on_queue=True, first=2, last=5, copies=2,
          reverse=True),
]
ON_LETTER = [Batch("on Letter", 12, order=7, on_queue=True, paper=(279, 216)),
             Batch("on upright Letter", 12, order=7, on_queue=True, upright=True, paper=(216, 279))]


class Check:
    def __init__(self, stage, program, pictures, queue):
        self.stage, self.pictures, self.queue = stage, pictures, queue
        self.player = Player(stage, program)
        self.entries, self.mode = {}, BOTH
        self.sheets = self.squares = 0

    def set_up(self, batch):
        """Enters what differs from the batch before, and has it made."""
        player = self.player
        if batch.mode != self.mode:
            player.click_menu("Print Options", batch.mode)
        if has(player.find("check box", "Choose Random"), State.CHECKED) != bool(batch.drawn_starts):
            player.tick("Choose Random")
        for name, value in batch.entries().items():
            if self.entries.get(name) != value:
                player.enter(name, value)
        self.entries.update(batch.entries())
        self.mode = batch.mode
        player.push("Create")

    @contextlib.contextmanager
    def ordered(self, batch, path):
        """While the dialog is open, with everything chosen; then the batch is made."""
        self.set_up(batch)
        with self.player.dialog("Print") as dialog:
            if not batch.on_queue:
                dialog.print_to(path)
            if batch.upright:
                dialog.turn_upright()
            if batch.last or batch.copies > 1 or batch.reverse:
                dialog.choose_sheets(batch.first, batch.last, batch.copies, batch.reverse)
            yield
            dialog.act("push button", "Print")

    def look_at(self, batch, document, since):
        printed = sheets.read(document)
        self.sheets += len(printed)
        self.squares += batch.check(printed, since)
        return printed

    def batch(self, batch):
        earlier, since = self.queue.jobs(), datetime.date.today()
        path = self.stage.scratch / f"{batch.name.replace(' ', '-')}.pdf"
        with self.ordered(batch, path):
            pass
        wanted = batch.sheets()
        where = f"sent to {self.queue.name}" if batch.on_queue else f"written to {path}"
        self.player.wait_for_foot(f"{len(wanted)} sheet{'s' * (len(wanted) > 1)} {where}")
        document = self.queue.document(earlier) if batch.on_queue else path
        subprocess.run(["pdftoppm", "-r", "100", "-png", document, self.pictures / path.stem], check=True)
        printed = self.look_at(batch, document, since)
        expect("the sheets", [(sheet.kind, sheet.number) for sheet in printed], wanted)
        if batch.cell and abs(printed[0].cell_width() - batch.cell) > 0.1:
            raise Failure(f"saw cells {printed[0].cell_width():.2f} mm wide, where {batch.cell} mm was wanted")
        print(f"  {batch.name}: {len(printed)} sheets, cells {printed[0].cell_width():.2f}")

    def batches(self, what, rows):
        print(what)
        for row in rows:
            try:
                self.batch(row)
            except Failure as failure:
                raise Failure(f"{row.name}: {failure}") from failure

    def told(self, beginning):
        with self.player.dialog("Quarvelle") as message:
            message.find("label", beginning)
            message.act("push button", "OK")
        self.player.wait_for_title("Quarvelle")

    def nothing_printed(self):
        self.set_up(Batch("none", 0))
        self.told("There is nothing to print")
        earlier = self.queue.jobs()
        self.set_up(Batch("cancelled", 3))
        with self.player.dialog("Print") as dialog:
            dialog.act("push button", "Cancel")
        self.player.wait_for_foot("Cancelled")
        expect("the jobs", self.queue.jobs(), earlier)
        print("  nothing printed for a count of 0, nor when cancelled")

    def begin_endless(self, name, path=None):
        """So many squares that something can happen before they are all made."""
        batch = Batch(name, 100000, bundles=4000, on_queue=not path)
        with self.ordered(batch, path):
            pass
        see("some squares printed", lambda: re.search(r" 99\d\d\d out of ", self.player.title()))
        return batch

    def printer_gone(self):
        with self.ordered(Batch("printer gone before", 3, on_queue=True), None):
            self.queue.remove()
        self.told(f"The printer {self.queue.name} did not take the sheets: There is no such printer any more")
        self.queue.add("A4")
        self.begin_endless("printer gone meanwhile")
        self.queue.remove()
        press("q")
        self.told(f"The printer {self.queue.name} did not take the sheets: ")
        print("  told that the printer was gone, when the dialog closed and when the sheets were made")

    def stopped(self):
        """Of a batch that a key stops, the full sheets come out."""
        path, since = self.stage.scratch / "stopped.pdf", datetime.date.today()
        batch = self.begin_endless("stopped", path)
        press("q")
        foot = self.player.wait_for_foot("Stopped: ")
        count, = re.fullmatch(rf"Stopped: (\d+) of 8000 sheets written to {path}", foot).groups()
        expect("so many sheets", len(self.look_at(batch, path, since)), int(count))
        print(f"  stopped with q: {count} of 8000 sheets")

    def closed(self):
        folder = self.stage.scratch / "closed"
        folder.mkdir()
        self.begin_endless("closed", folder / "closed.pdf")
        press("alt+F4")
        self.player.expect_end()
        expect("files", list(folder.iterdir()), [])

    def everything(self):
        self.batches("Batches in files:", BATCHES)
        self.batches("On a printer:", ON_PAPER)
        self.queue.add("Letter")
        self.batches("With other paper in it:", ON_LETTER)
        print("Ends:")
        self.nothing_printed()
        self.stopped()
        self.printer_gone()
        self.closed()
        print(f"{self.sheets} sheets with {self.squares} squares came out as expected.")


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[2])
    with on_stage(folder) as stage, contextlib.closing(PrintQueue(stage, f"quarvelle-check-{os.getpid()}")) as queue:
        Check(stage, sys.argv[1], folder, queue).everything()

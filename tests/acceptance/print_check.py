"""Batches printed from the window, in files and on a printer: each sheet that comes out is read back and is the one to
expect. Pictures of the sheets go to the folder given second; the first argument is the program."""

import contextlib
import datetime
import os
import pathlib
import re
import subprocess
import sys
from fractions import Fraction

import sheets
import solver
from player import Player, press
from printer import PrintQueue
from stage import Failure, Stage

KINDS = {"Print only completed Squares": ["Squares"], "Print only Puzzles": ["Puzzles"],
         "Print both Puzzles and Answers": ["Puzzles", "Answers"]}
BOTH = "Print both Puzzles and Answers"


def expect(what, seen, wanted):
    if seen != wanted:
        raise Failure(f"{what} {wanted}, but {seen}")


def check_squares(puzzles, answers, order, starts, distance):
    """The squares are complete, with the totals told below; the puzzles lead there and nowhere else."""
    for (note, puzzle), (answers_note, square) in zip(puzzles, answers, strict=True):
        expect("the note of the answers", answers_note, note)
        start, total = min(square.values()), Fraction(sheets.NOTE.match(note).group(2))
        expect("a drawn starting number", start in starts, True)
        expect("the Magic Total", total, solver.magic_total(order, start, distance))
        expect("the numbers", sorted(square.values()), [start + k * distance for k in range(order * order)])
        sums = {sum(square[cell] for cell in line) for line in solver.lines(order, True, shapes=order == 5)}
        expect("the sums of all lines", sums, {total})
        if puzzle is not square:
            expect("some blanks", None in puzzle.values(), True)
            expect("the answers", {**puzzle, **dict(solver.solve(puzzle, total, solver.lines(order)))}, square)


class Check:
    def __init__(self, stage, program, pictures):
        self.stage, self.pictures = stage, pictures
        self.queue = PrintQueue(stage, f"quarvelle-check-{os.getpid()}")
        self.player = Player(stage, program)
        self.settings = {}

    def batch(self, name, count, order=5, start=1, distance=1, mode=BOTH, random=0, bundles=None, cell=None,
              pieces=1, on_queue=False, first=1, last=None, copies=1, reverse=False):
        """Prints and checks a batch whose squares share so many `bundles`, each a sheet or the pieces of a square."""
        kinds, bundles = KINDS[mode], bundles or 1
        self.set_up(count, order, start, distance, mode, random)
        earlier = self.queue.jobs()
        path = self.stage.scratch / f"{name.replace(' ', '-')}.pdf"
        with self.player.dialog("Print") as dialog:
            if not on_queue:
                dialog.print_to(path)
            if last or copies > 1 or reverse:
                dialog.choose_sheets(first, last, copies, reverse)
            dialog.act("push button", "Print")
        everything = [(kind, sheet) for sheet in range(1, bundles * pieces + 1) for kind in kinds]
        wanted = everything[first - 1:last] * copies
        where = f"sent to {self.queue.name}" if on_queue else f"written to {path}"
        self.player.wait_for_foot(f"{len(wanted)} sheet{'s' * (len(wanted) > 1)} {where}")
        document = self.queue.document(earlier) if on_queue else path
        subprocess.run(["pdftoppm", "-r", "100", "-png", document, self.pictures / path.stem], check=True)
        printed = sheets.read(document)
        expect("the sheets", [(sheet.kind, sheet.number) for sheet in printed], wanted[::-1] if reverse else wanted)
        drawn = range(random) if random else [0]
        self.check(printed, kinds, count, bundles, pieces, order, [Fraction(start) + k for k in drawn], Fraction(distance), random)
        if cell and abs(printed[0].cell_width() - cell) > 0.1:
            raise Failure(f"cells {cell} mm wide, but {printed[0].cell_width()}")
        print(f"  {name}: {len(printed)} sheets")

    def check(self, printed, kinds, count, bundles, pieces, order, starts, distance, random):
        caption = (f" · {order} by {order} · first number{'s from' if random else ''} {solver.text(Fraction(starts[0]))}"
                   f" · distance {solver.text(distance)}{' · challenging' * ('Puzzles' in kinds)}"
                   f" · {datetime.date.today()}")
        by_name = {(sheet.kind, sheet.number): sheet for sheet in printed}
        shares = [count // bundles + (bundle < count % bundles) for bundle in range(bundles)]
        found = {kind: {} for kind in kinds}
        for (kind, number), sheet in by_name.items():
            bundle = (number - 1) // pieces
            opening = f"{kind}, sheet {number}" + (f" · {sheet.notes[0]}" if pieces > 1 else "")
            expect("the caption", sheet.caption, opening + caption)
            begin = sum(shares[:bundle]) + 1
            expect("the numbers of the squares", [int(note.split(".")[0]) for note in sheet.notes],
                   list(range(begin, begin + shares[bundle])))
            whole = by_name.get((kinds[-1], number), sheet)
            for note, board in zip(sheet.notes, sheet.boards(order, whole.grid()), strict=True):
                found[kind].setdefault(note, {}).update(board)
        if kinds != ["Puzzles"]:
            both = set(found[kinds[0]]) & set(found[kinds[-1]])
            puzzles, answers = ([(note, found[kind][note]) for note in sorted(both)] for kind in (kinds[0], kinds[-1]))
            check_squares(puzzles, answers, order, starts, distance)
            expect("a square on both", bool(both), True)

    def set_up(self, count, order, start, distance, mode, random):
        """Enters what differs from the batch before, and has it made."""
        player = self.player
        wanted = {"Size of Square": order, "Starting Number": start, "Distance": distance,
                  "Print how many": count, **({"Allow how many": random} if random else {})}
        if mode != self.settings.get("mode", BOTH):
            player.click(player.find("menu item", "Print Options"))
            player.click(player.find("menu item", mode))
        if bool(random) != self.settings.get("random", False):
            player.tab_to("check box", "Choose Random")
            press("space")
        for name, value in wanted.items():
            if self.settings.get(name) != value:
                player.enter(name, value)
        self.settings = {**self.settings, **wanted, "mode": mode, "random": bool(random)}
        player.push("Create")

    def nothing_printed(self):
        self.set_up(0, 5, 1, 1, BOTH, 0)
        with self.player.dialog("Quarvelle") as message:
            message.find("label", "There is nothing to print")
            message.act("push button", "OK")
        self.player.wait_for_title("Quarvelle")
        earlier = self.queue.jobs()
        self.set_up(3, 5, 1, 1, BOTH, 0)
        with self.player.dialog("Print") as dialog:
            dialog.act("push button", "Cancel")
        self.player.wait_for_foot("Cancelled")
        expect("no job", self.queue.jobs(), earlier)
        print("  nothing printed for a count of 0, nor when cancelled")

    def stopped(self):
        """Of a batch that a key stops, the full sheets come out."""
        self.set_up(100000, 5, 1, 1, BOTH, 0)
        path = self.stage.scratch / "stopped.pdf"
        with self.player.dialog("Print") as dialog:
            dialog.print_to(path)
            dialog.act("push button", "Print")
        self.player.wait_for_text("some squares printed", self.player.title, r"99\d\d\d out of")
        press("q")
        foot = self.player.wait_for_foot("Stopped: ")
        count, everything = map(int, re.fullmatch(rf"Stopped: (\d+) of (\d+) sheets written to {path}", foot).groups())
        expect("all sheets", everything, 8000)
        printed = sheets.read(path)
        expect("the sheets told", len(printed), count)
        self.check(printed, KINDS[BOTH], 100000, 4000, 1, 5, [1], Fraction(1), 0)
        print(f"  stopped with q: {count} of {everything} sheets")

    def everything(self):
        print("Batches in files:")
        self.batch("25 of 5 by 5", 25)
        self.batch("sheets 2 to 5 twice and backwards", 60, bundles=3, first=2, last=5, copies=2, reverse=True)
        self.batch("12 of 7 by 7", 12, order=7)
        self.batch("25 of 7 by 7", 25, order=7, bundles=3, cell=10.35)
        self.batch("two of 7 by 7", 2, order=7, cell=18)
        self.batch("squares of 7 by 7", 13, order=7, bundles=2, mode="Print only completed Squares")
        self.batch("puzzles in pieces", 1, order=31, pieces=2)
        self.batch("random starting numbers", 30, start=10, random=4, bundles=2)
        self.batch("negative fractional numbers", 7, start="-3.5", distance="0.25")
        print("On a printer:")
        self.batch("two of 7 by 7 on paper", 2, order=7, on_queue=True, cell=18)
        self.batch("sheets 2 to 5 twice and backwards on paper", 60, bundles=3, on_queue=True, first=2, last=5,
                   copies=2, reverse=True)
        print("Ends:")
        self.nothing_printed()
        self.stopped()
        self.player.choose("o", "q")
        self.player.expect_end()


def main(program, pictures):
    pictures.mkdir(parents=True, exist_ok=True)
    with contextlib.closing(Stage()) as stage:
        try:
            check = Check(stage, program, pictures)
            with contextlib.closing(check.queue):
                check.everything()
        except Failure as failure:
            subprocess.run(["import", "-window", "root", pictures / "failure.png"], check=True)
            sys.exit(f"print-check failed: did not see {failure}\n{stage.said()}")


if __name__ == "__main__":
    main(sys.argv[1], pathlib.Path(sys.argv[2]))
    print("All sheets came out as expected.")

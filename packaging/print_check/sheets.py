"""Reads printed sheets back and checks the squares and puzzles on them."""

import re
import subprocess
from bisect import bisect_right

ROW = 18  # height of a cell in the program's pixels, the unit that sheets are measured in
WORD = re.compile(r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>')
PAGE = re.compile(r'<page width="(.*?)" height="(.*?)">(.*?)</page>', re.S)
LABEL = re.compile(r"^\d+,\d+$")


class Fault(Exception):
    """What is wrong with a sheet or with the program."""


def require(holds, what):
    if not holds:
        raise Fault(what)


class Sheet:
    """A page: its kind and number, the label of its piece, and its numbers by position, in pixels."""

    def __init__(self, width, height, words):
        words = [(float(l), float(t), float(r), float(b), text) for l, t, r, b, text in words]
        if spread(r - l for l, _, r, _, _ in words) < spread(b - t for _, t, _, b, _ in words):
            # A landscape sheet on upright paper: the text runs up the page.
            words = [(height - b, l, height - t, r, text) for l, t, r, b, text in words]
            width, height = height, width
        margin = 25
        for left, top, right, bottom, text in words:
            require(left > margin and top > margin and right < width - margin and bottom < height - margin,
                    f"{text} lies outside the paper's margins")
        caption = next((w for w in words if w[4] in ("Puzzles,", "Answers,", "Squares,")), None)
        require(caption is not None, "a sheet without its line in the margin")
        line = [w for w in words if abs(w[3] - caption[3]) < 1]
        self.kind = caption[4][:-1]
        self.number = int(sorted(line)[-1][4])
        self.upright = height > width
        words = [w for w in words if w not in line]
        self.label = next((w[4] for w in words if LABEL.match(w[4])), None)
        self.words = [w for w in words if not LABEL.match(w[4])]
        tops = sorted({round(w[1], 1) for w in self.words})
        self.pixel = min(b - a for a, b in zip(tops, tops[1:]) if b - a > 1) / ROW
        self.check_digits()

    def check_digits(self):
        """One size of digits, and no number touches another."""
        widths = [(w[2] - w[0]) / len(w[4]) for w in self.words if w[4].isdigit()]
        require(max(widths) < 1.02 * min(widths), "digits of several widths")
        heights = [w[3] - w[1] for w in self.words]
        require(max(heights) < 1.02 * min(heights), "digits of several heights")
        rows = {}
        for word in sorted(self.words):
            rows.setdefault(round(word[1]), []).append(word)
        for row in rows.values():
            for a, b in zip(row, row[1:]):
                require(b[0] - a[2] > 2 * self.pixel, f"{a[4]} touches {b[4]}")

    def cells(self, whole=None):
        """The texts by column and row of the whole sheet, from 0. Where whole columns or rows may be blank,
        `whole` is the sheet of the answers, which shows where they are."""
        words = (whole or self).words
        # A number may be set in by the room for a sign.
        columns = steps([w[0] for w in words], 5 * self.pixel)
        rows = steps([w[1] for w in words], self.pixel)
        return {(columns(w[0]), rows(w[1])): w[4] for w in self.words}


def spread(values):
    values = list(values)
    return max(values) - min(values)


def steps(values, tolerance):
    """Numbers the places that values cluster around, in order; gives the number of a value's place."""
    starts = []
    for value in sorted(values):
        if not starts or value - starts[-1] > tolerance:
            starts.append(value)
    return lambda value: bisect_right(starts, value + 0.1) - 1


def read(pdf):
    command = ["pdftotext", "-bbox", pdf, "-"]
    text = subprocess.run(command, capture_output=True, text=True, check=True).stdout
    pages = PAGE.findall(text)
    return [Sheet(float(width), float(height), WORD.findall(words)) for width, height, words in pages]


def boards(sheet, whole, order):
    """The boards on a sheet as texts by column and row, in printing order."""
    found = {}
    for (column, row), text in sheet.cells(whole).items():
        place = (row // order, column // order)
        found.setdefault(place, {})[column % order, row % order] = text
    return [found[place] for place in sorted(found)]


def joined(sheets, whole_sheets, order):
    """The square whose pieces the sheets are."""
    cells = {}
    width = max(column for column, _ in whole_sheets[0].cells()) + 1
    height = max(row for _, row in whole_sheets[0].cells()) + 1
    for sheet, whole in zip(sheets, whole_sheets):
        require(sheet.label == whole.label, "a piece and its answers differ in their labels")
        across, down = map(int, sheet.label.split(","))
        for (column, row), text in sheet.cells(whole).items():
            cells[column + (across - 1) * width, row + (down - 1) * height] = text
    require(all(column < order and row < order for column, row in cells), "a piece lies outside its square")
    return cells


def check_square(cells, order, starts, distance):
    """A complete square whose smallest number is one of `starts`, with the Magic Total that belongs to it."""
    require(len(cells) == order * order, f"a square of {len(cells)} numbers")
    number = {place: float(text) for place, text in cells.items()}
    start = min(number.values())
    require(any(abs(start - s) < 1e-9 for s in starts), f"a square that starts with {start}")
    for k, value in enumerate(sorted(number.values())):
        require(abs(value - (start + k * distance)) < 1e-9, f"{value} in place of {start + k * distance}")
    total = order * start + distance * order * (order * order - 1) / 2
    for line in range(order):
        for cells_of_line in (
            [(line, i) for i in range(order)],
            [(i, line) for i in range(order)],
            [(i, (line + i) % order) for i in range(order)],
            [(i, (line - i) % order) for i in range(order)],
        ):
            require(abs(sum(number[c] for c in cells_of_line) - total) < 1e-6, f"a line that misses {total}")
    return number


def solve(puzzle, order, start, distance):
    """Fills a puzzle line by line from the Magic Total alone, through rows, columns and main diagonals."""
    total = order * start + distance * order * (order * order - 1) / 2
    whole = range(order)
    lines = [[(i, j) for j in whole] for i in whole] + [[(j, i) for j in whole] for i in whole]
    lines += [[(i, i) for i in whole], [(i, order - 1 - i) for i in whole]]
    cells = {place: float(text) for place, text in puzzle.items()}
    filled = True
    while filled:
        filled = False
        for line in lines:
            blanks = [c for c in line if c not in cells]
            if len(blanks) == 1:
                cells[blanks[0]] = total - sum(cells[c] for c in line if c in cells)
                filled = True
    return {place: f"{value:.10g}" for place, value in cells.items()}


def check_batch(pdf, mode, order, start, distance, count, blanks, starts=None):
    """All sheets of a batch. `starts`: the starting numbers that may have been drawn, if not just `start`."""
    sheets = read(pdf)
    groups = {kind: [s for s in sheets if s.kind == kind] for kind in ("Squares", "Puzzles", "Answers")}
    kinds = {0: ["Squares"], 1: ["Puzzles"], 2: ["Puzzles", "Answers"]}[mode]
    expected = [(kind, 1 + i // len(kinds)) for i, kind in enumerate(kinds * (len(sheets) // len(kinds)))]
    require([(s.kind, s.number) for s in sheets] == expected, "sheets missing or in another order")

    def squares(kind):
        pairs = list(zip(groups[kind], groups[kinds[-1]]))
        if sheets[0].label is not None:
            return [joined(*zip(*pairs), order)]
        return [board for sheet, whole in pairs for board in boards(sheet, whole, order)]

    answers = squares(kinds[-1]) if mode != 1 else None
    puzzles = squares("Puzzles") if mode != 0 else []
    for made in (answers, puzzles) if mode == 2 else (answers or puzzles,):
        require(len(made) == count, f"{len(made)} in place of {count}")
    for square in answers or []:
        check_square(square, order, starts or [start], distance)
    for i, puzzle in enumerate(puzzles):
        left_out = order * order - len(puzzle)
        require(1 <= left_out <= blanks, f"a puzzle with {left_out} blanks")
        if starts is None:
            solved = solve(puzzle, order, start, distance)
            check_square(solved, order, [start], distance)
        if answers:
            require(all(answers[i][place] == text for place, text in puzzle.items()),
                    f"puzzle {i + 1} and its answers differ")
    return sheets

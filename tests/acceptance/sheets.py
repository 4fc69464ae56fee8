# Printed sheets, read from the text of their PDF document: boards, notes, captions. All lengths are millimetres.

import collections
import re
from bisect import bisect_right
from fractions import Fraction

from stage import Failure, run

PAGE = re.compile(r'<page width="(.*?)" height="(.*?)">(.*?)</page>', re.S)
WORD = re.compile(r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>')
NOTE = re.compile(r"(\d+)\. Magic Total (\S+)")
MILLIMETRE = 72 / 25.4


Word = collections.namedtuple("Word", "left top right bottom text")


def places(values, tolerance):
    # The places that values lie at, in order; each begins more than the tolerance after the last one.
    starts = []
    for value in sorted(values):
        if not starts or value - starts[-1] > tolerance:
            starts.append(value)
    return starts


class Sheet:
    def __init__(self, width, height, words):
        words = [Word(*(float(length) / MILLIMETRE for length in word[:4]), word[4]) for word in words]
        width, height = float(width) / MILLIMETRE, float(height) / MILLIMETRE
        caption = next(word for word in words if word.text in ("Squares,", "Puzzles,", "Answers,"))
        if caption.bottom - caption.top > caption.right - caption.left:
            # A landscape sheet on upright paper: the text runs up the page.
            words = [Word(height - w.bottom, w.left, height - w.top, w.right, w.text) for w in words]
            caption = next(word for word in words if word.text == caption.text)
            width, height = height, width
        for word in words:
            if min(word.left, word.top, width - word.right, height - word.bottom) < 8.8:
                raise Failure(f"saw {word.text} in the margin")
        line = [word for word in words if abs(word.bottom - caption.bottom) < 0.3]
        self.caption = " ".join(word.text for word in sorted(line, key=lambda word: word.left))
        self.kind, self.number = re.match(r"(\w+), sheet (\d+)", self.caption).groups()
        self.number = int(self.number)
        words = [word for word in words if word not in line]
        self.notes, noted = [], set()
        for begin in (index - 1 for index, word in enumerate(words) if word.text == "Magic"):
            note = words[begin:begin + 4]
            noted.update(note)
            self.notes.append((round(note[0].top), note[0].left, " ".join(word.text for word in note)))
        self.notes = [text for _, _, text in sorted(self.notes)]
        self._numbers = [word for word in words if word not in noted]
        tops = places((word.top for word in self._numbers), 0.5)
        self._row = min(below - above for above, below in zip(tops, tops[1:]))

    def grid(self):
        # Where columns and rows of all boards begin, as a sheet of whole squares shows them.
        # A number may be set in by the room for a sign.
        return (places((word.left for word in self._numbers), self._row / 3),
                places((word.top for word in self._numbers), self._row / 3))

    def boards(self, order, grid):
        # The numbers of each board by row and column from 0, None for blanks.
        columns, rows = grid
        cells = [(row, column) for row in range(order) for column in range(order)]
        found = {}
        for word in self._numbers:
            row, column = bisect_right(rows, word.top + 0.05) - 1, bisect_right(columns, word.left + 0.05) - 1
            board = found.setdefault((row // order, column // order), dict.fromkeys(cells))
            board[row % order, column % order] = Fraction(word.text)
        return [found[place] for place in sorted(found)]


def read(document):
    text = run("pdftotext", "-bbox", document, "-")
    return [Sheet(width, height, WORD.findall(words)) for width, height, words in PAGE.findall(text)]

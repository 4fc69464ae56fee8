# Solves a puzzle as a person does: again and again, a line with one blank gives that blank.

from fractions import Fraction

# As failures are to show them in lists.
Fraction.__repr__ = Fraction.__str__
# Cross-diagonals and cross-lines.
SHAPES = [[(0, 0), (1, 1), (1, -1), (-1, 1), (-1, -1)], [(0, 0), (1, 0), (-1, 0), (0, 1), (0, -1)]]


def lines(order, diagonals=False, shapes=False):
    # Rows, columns, main diagonals; every broken diagonal; every cross and scattered cross around the edges.
    cells = range(order)
    found = [[(row, column) for column in cells] for row in cells]
    found += [[(row, column) for row in cells] for column in cells]
    for start in cells if diagonals else [0]:
        found.append([(row, (start + row) % order) for row in cells])
        found.append([(row, (start - row - 1) % order) for row in cells])
    if shapes:
        found += [[((row + size * down) % order, (column + size * right) % order) for down, right in shape]
                  for shape in SHAPES for size in (1, 2) for row in cells for column in cells]
    return found


def solve(board, total, in_play):
    # The blanks in an order in which they can be found, with their numbers.
    board = dict(board)
    answers = []
    while True:
        for line in in_play:
            blanks = [cell for cell in line if board[cell] is None]
            if len(blanks) == 1:
                board[blanks[0]] = total - sum(board[cell] for cell in line if board[cell] is not None)
                answers.append((blanks[0], board[blanks[0]]))
                break
        else:
            return answers

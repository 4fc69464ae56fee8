#include "board/Board.h"

#include <algorithm>
#include <limits>

#include "board/BoardGeometry.h"
#include "engine/LineKinds.h"
#include "engine/Numbers.h"
#include "widgets/Drawing.h"

namespace quarvelle {

namespace {

/// The part of the square on the board, in cells from 1.
struct Piece {
    int firstColumn;
    int firstRow;
    int columns;
    int rows;
};

Piece shownPiece(const ProgramState& state) {
    Piece piece{};
    piece.firstColumn = (state.pageColumn - 1) * state.visibleColumns + 1;
    piece.firstRow = (state.pageRow - 1) * state.visibleRows + 1;
    piece.columns = std::min(state.visibleColumns, state.squareSize - piece.firstColumn + 1);
    piece.rows = std::min(state.visibleRows, state.squareSize - piece.firstRow + 1);
    return piece;
}

/// How many parts of at most `part` cells `n` cells make.
int partsOf(int n, int part) {
    return (n + part - 1) / part;
}

void drawGrid(const ProgramState& state, Canvas& canvas, const Piece& piece) {
    const int left = state.boardLeft;
    const int top = state.boardTop;
    const int cellWidth = static_cast<int>(state.cellWidth);
    const int right = left + cellWidth * piece.columns;
    const int bottom = top + rowHeight * piece.rows;
    canvas.fillRectangle(left, top, right, bottom, Qt::white);
    int x = left;
    int y = top;
    while (x <= right || y <= bottom) {
        if (x <= right)
            canvas.fillRectangle(x, top, x, bottom, Qt::black);
        if (y <= bottom)
            canvas.fillRectangle(left, y, right, y, Qt::black);
        x += cellWidth;
        y += rowHeight;
    }
}

/// Cell (`a`, `b`) of the square, drawn with its top-left grid corner at (`cellX`, `cellY`).
void drawCell(const ProgramState& state, Canvas& canvas, int a, int b, int cellX, int cellY) {
    const double shown = cellAt(state.puzzle, {a, b});
    const int x = cellX + textInset.x();
    const int y = cellY + textInset.y();
    if (state.highlightAnswers == 1 && isBlank(shown) && state.showAnswers == 1 &&
        state.puzzleMode != PuzzleMode::answers)
        canvas.fillRectangle(x - 1, y - 2, x + static_cast<int>(state.cellWidth) - 3, y + 14,
                             QColor(192, 192, 192));
    if (state.showAnswers != 1 && isBlank(shown))
        return;
    const double value = state.showAnswers == 1 ? cellAt(state.square, {a, b}) : shown;
    drawNumber(state, canvas, cellX, x + signRoom(state, shown), y, value);
}

} // namespace

int signRoom(const ProgramState& state, double value) {
    const int n = state.squareSize;
    return value >= 0 && hasNegativeNumbers(n, state.startNumber, state.distance) ? 3 : 0;
}

void drawNumber(const ProgramState& state, Canvas& canvas, int cellX, int x, int y, double value) {
    const double room = cellX + state.cellWidth - 1 - x;
    canvas.drawText(x, y, QString::fromStdString(numberText(value)), room);
}

void resetPosition(ProgramState& state) {
    state.boardLeft = state.boardTop = boardMargin;
    state.pageColumn = state.pageRow = 1;
}

bool isInPieces(const ProgramState& state) {
    return state.visibleColumns < state.squareSize || state.visibleRows < state.squareSize;
}

int piecesAcross(const ProgramState& state) {
    return partsOf(state.squareSize, state.visibleColumns);
}

int piecesDown(const ProgramState& state) {
    return partsOf(state.squareSize, state.visibleRows);
}

int pieceLabelLeft(const ProgramState& state) {
    return 14 + static_cast<int>(state.cellWidth) * state.visibleColumns;
}

void showsquare(const ProgramState& state, Canvas& canvas) {
    const Piece piece = shownPiece(state);
    if (isInPieces(state))
        canvas.drawText(
            pieceLabelLeft(state), state.boardTop,
            QString::fromStdString(numberText(state.pageColumn) + ',' + numberText(state.pageRow)),
            std::numeric_limits<double>::infinity());
    drawGrid(state, canvas, piece);
    const int cellWidth = static_cast<int>(state.cellWidth);
    for (int b = 0; b < piece.rows; ++b)
        for (int a = 0; a < piece.columns; ++a)
            drawCell(state, canvas, piece.firstColumn + a, piece.firstRow + b,
                     state.boardLeft + a * cellWidth, state.boardTop + b * rowHeight);
}

} // namespace quarvelle

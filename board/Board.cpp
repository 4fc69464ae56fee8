#include "board/Board.h"

#include "board/BoardGeometry.h"
#include "engine/LineKinds.h"
#include "engine/Numbers.h"
#include "widgets/Drawing.h"

namespace quarvelle {

namespace {

void drawGrid(Canvas& canvas, QPoint corner, int cellWidth, const Piece& piece) {
    const int left = corner.x();
    const int top = corner.y();
    const int right = left + cellWidth * piece.across;
    const int bottom = top + rowHeight * piece.down;
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

/// Draws a cell; `corner` is where its left and upper grid lines meet.
void drawCell(Canvas& canvas, QPoint corner, const SquareShown& shown, Cell cell, View view) {
    const double number = cellAt(shown.puzzle, cell);
    const QPoint text = corner + textInset;
    if (view == View::shadedAnswers && isBlank(number))
        canvas.fillRectangle(text.x() - 1, text.y() - 2, text.x() + shown.cellWidth - 3, text.y() + 14,
                             QColor(192, 192, 192));
    if (view == View::puzzle && isBlank(number))
        return;
    const QPoint inset(number >= 0 ? shown.signRoom : 0, 0);
    drawNumber(canvas, text + inset, view == View::puzzle ? number : cellAt(shown.square, cell), corner.x(),
               shown.cellWidth);
}

View viewOf(const ProgramState& state) {
    if (state.showAnswers != 1)
        return View::puzzle;
    return state.highlightAnswers == 1 && state.puzzleMode != PuzzleMode::answers ? View::shadedAnswers
                                                                                  : View::answers;
}

} // namespace

SquareShown shownSquare(const ProgramState& state) {
    return {state.puzzle, state.square, static_cast<int>(state.cellWidth), signRoom(state, 0)};
}

void drawBoard(Canvas& canvas, QPoint corner, const SquareShown& shown, const Piece& piece, View view) {
    drawGrid(canvas, corner, shown.cellWidth, piece);
    for (int down = 0; down < piece.down; ++down)
        for (int across = 0; across < piece.across; ++across)
            drawCell(canvas, corner + QPoint(across * shown.cellWidth, down * rowHeight), shown,
                     cellOf({piece.first.across + across, piece.first.down + down}), view);
}

void drawPieceLabel(Canvas& canvas, QPoint corner, int cellWidth, const Pieces& pieces, Place piece) {
    canvas.drawText(corner.x() + pieceLabelInset(cellWidth, pieces), corner.y(),
                    QString::fromStdString(numberText(piece.across) + ',' + numberText(piece.down)), {});
}

int pieceLabelInset(int cellWidth, const Pieces& pieces) {
    constexpr int gap = 6;
    return cellWidth * pieces.cellsAcross() + gap;
}

void drawNumber(Canvas& canvas, QPoint point, double value, int cellLeft, int cellWidth) {
    canvas.drawText(point.x(), point.y(), QString::fromStdString(numberText(value)),
                    cellLeft + cellWidth - 1 - point.x());
}

int signRoom(const ProgramState& state, double value) {
    const int n = state.squareSize;
    return value >= 0 && hasNegativeNumbers(n, state.startNumber, state.distance) ? 3 : 0;
}

QRect boardArea(QPoint corner, int cellWidth, const Piece& piece) {
    return {corner, QSize(cellWidth * piece.across + 1, rowHeight * piece.down + 1)};
}

void resetPosition(ProgramState& state) {
    state.boardLeft = state.boardTop = boardMargin;
    state.pageColumn = state.pageRow = 1;
}

void showsquare(const ProgramState& state, Canvas& canvas) {
    const Pieces pieces(state);
    const Place piece{state.pageColumn, state.pageRow};
    const QPoint corner(state.boardLeft, state.boardTop);
    const SquareShown shown = shownSquare(state);
    if (pieces.count() > 1)
        drawPieceLabel(canvas, corner, shown.cellWidth, pieces, piece);
    drawBoard(canvas, corner, shown, pieces.at(piece), viewOf(state));
}

} // namespace quarvelle

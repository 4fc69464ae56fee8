#pragma once

#include <QPoint>
#include <QRect>

#include "board/Pieces.h"

namespace quarvelle {

class Canvas;

/// From the top-left corner of a cell's grid lines to that of its text, in pixels.
inline constexpr QPoint textInset(2, 3);

/// What is drawn in the cells of a square.
enum class View {
    puzzle,        ///< the numbers of `puzzle`; blanks stay empty
    answers,       ///< those of `square`
    shadedAnswers, ///< the same, on grey where `puzzle` has blanks
};

/// A square to be drawn. The grids outlive it.
struct SquareShown {
    const Grid& puzzle;
    const Grid& square;
    int cellWidth; ///< pixels
    int signRoom;  ///< pixels that a number without a minus sign is indented by where others have one
};

/// The state's square, which the result refers to.
SquareShown shownSquare(const ProgramState& state);

/// Draws the cells of a piece over whatever is on the canvas: a white grid with its top-left corner at
/// `corner`, in pixels, and the numbers.
void drawBoard(Canvas& canvas, QPoint corner, const SquareShown& shown, const Piece& piece, View view);

/// Writes the label of the piece at place `piece` among `pieces`. It goes beside the board, whose top-left
/// corner is at `corner`, just right of where a piece of full width ends.
void drawPieceLabel(Canvas& canvas, QPoint corner, int cellWidth, const Pieces& pieces, Place piece);

/// How far right of the board's left edge that label begins, in pixels.
int pieceLabelInset(int cellWidth, const Pieces& pieces);

/// Writes `value`, which is below 1e200, with its top-left corner at `point` into the cell whose left grid
/// line is at `cellLeft`; condensed if the cell is too narrow. Lengths are in pixels.
void drawNumber(Canvas& canvas, QPoint point, double value, int cellLeft, int cellWidth);

/// How far `value` is indented because other numbers of the square have a minus sign, in pixels.
int signRoom(const ProgramState& state, double value);

/// What a piece covers that is drawn with its top-left grid corner at `corner`, in pixels.
QRect boardArea(QPoint corner, int cellWidth, const Piece& piece);

/// Puts the board back into the top-left corner of its page, with the first piece.
void resetPosition(ProgramState& state);

/// Draws the state's board with its top-left corner at (`boardLeft`, `boardTop`). It shows the numbers of
/// `puzzle`, or those of `square` if `showAnswers` is 1, shaded if the state asks for it. Of a square in
/// pieces it draws the piece (`pageColumn`, `pageRow`) and its label.
void showsquare(const ProgramState& state, Canvas& canvas);

} // namespace quarvelle

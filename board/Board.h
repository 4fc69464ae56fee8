#pragma once

#include <QPoint>

#include "board/Pieces.h"

namespace quarvelle {

class Canvas;

/// From a cell's top-left grid corner to that of its text, in pixels.
inline constexpr QPoint textInset(2, 3);

/// What of a square's cells is drawn.
enum class View {
    puzzle,        ///< the numbers of `puzzle`; blanks stay empty
    answers,       ///< those of `square`
    shadedAnswers, ///< the same, former blanks on grey
};

/// A square whose numbers are drawn, and how wide. The grids outlive it.
struct SquareShown {
    const Grid& puzzle;
    const Grid& square;
    int cellWidth; ///< pixels
    int signRoom;  ///< how far numbers without a minus sign are set in because others have one, in pixels
};

/// The state's square.
SquareShown shownSquare(const ProgramState& state);

/// Draws cells of a square, over whatever is on the canvas: a white grid with its top-left corner at
/// `corner`, and the numbers.
void drawBoard(Canvas& canvas, QPoint corner, const SquareShown& shown, const Piece& piece, View view);

/// Writes the label of a piece, the one at that place among `pieces`, beside a board with its top-left corner
/// at `corner`: just right of where a full-width piece ends.
void drawPieceLabel(Canvas& canvas, QPoint corner, int cellWidth, const Pieces& pieces, Place piece);

/// Where that label begins, in pixels right of the board's left edge.
int pieceLabelInset(int cellWidth, const Pieces& pieces);

/// Writes a number that can't be taken for a blank into the cell whose left grid line is at `cellLeft`, with
/// its top-left corner at `point`, condensed where the cell is too narrow for it.
void drawNumber(Canvas& canvas, QPoint point, double value, int cellLeft, int cellWidth);

/// How far a number is set in from the left because others in the square carry a minus sign, in pixels.
int signRoom(const ProgramState& state, double value);

/// Puts the board back in the window's corner, at the first piece.
void resetPosition(ProgramState& state);

/// Draws the state's board: from (`boardLeft`, `boardTop`) on the numbers of `puzzle`, or those of `square`
/// when `showAnswers` is 1, shaded if the state asks for it; of a square in pieces the piece (`pageColumn`,
/// `pageRow`) with its label.
void showsquare(const ProgramState& state, Canvas& canvas);

} // namespace quarvelle

#pragma once

#include <QPoint>

namespace quarvelle {

class Canvas;
struct ProgramState;

/// From a cell's top-left grid corner to that of its text, in pixels.
inline constexpr QPoint textInset(2, 3);

/// Puts the board back in the window's corner, at the first piece.
void resetPosition(ProgramState& state);

/// Whether the board has no room for all columns and rows, so that it shows the square in pieces of at most
/// `visibleColumns` by `visibleRows` cells.
bool isInPieces(const ProgramState& state);

/// How many pieces lie side by side, and how many bands of them there are; 1 and 1 for a square in one piece.
int piecesAcross(const ProgramState& state);
int piecesDown(const ProgramState& state);

/// Where the label of a piece begins, in pixels from the left: just right of a full-width piece.
int pieceLabelLeft(const ProgramState& state);

/// Draws the board over whatever is on the canvas: a white grid from (`boardLeft`, `boardTop`), the first
/// index of a cell across and the second down, with the numbers of `puzzle`, blanks left empty, or those of
/// `square` when `showAnswers` is 1. Of a square in pieces it draws the piece (`pageColumn`, `pageRow`) with
/// its label.
void showsquare(const ProgramState& state, Canvas& canvas);

/// How far a number is set in from the left because others on the board carry a minus sign, in pixels.
int signRoom(const ProgramState& state, double value);

/// A number that can't be taken for a blank, written at (`x`, `y`) in the cell whose left grid line is at
/// `cellX`, condensed where the cell is too narrow for it.
void drawNumber(const ProgramState& state, Canvas& canvas, int cellX, int x, int y, double value);

} // namespace quarvelle

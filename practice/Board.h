#pragma once

namespace quarvelle {

class DrawingSurface;
struct ProgramState;

/// Draws the board over whatever is on the surface: a white grid of `visibleColumns` by `visibleRows` cells
/// from
/// (`boardLeft`, `boardTop`), the first index of a cell across and the second down, with the numbers of
/// `puzzle`, blanks left empty, or those of `square` when `showAnswers` is 1.
void showsquare(const ProgramState& state, DrawingSurface& surface);

/// How far a number is set in from the left because others on the board carry a minus sign, in pixels.
int signRoom(const ProgramState& state, double value);

/// A number that can't be taken for a blank, written at (`x`, `y`) in the cell whose left grid line is at
/// `cellX`, condensed where the cell is too narrow for it.
void drawNumber(const ProgramState& state, DrawingSurface& surface, int cellX, int x, int y, double value);

} // namespace quarvelle

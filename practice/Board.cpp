#include "practice/Board.h"

#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "ui/DrawingSurface.h"

namespace quarvelle {

namespace {

/// Inset of a cell's text from its top-left grid corner.
constexpr int textInsetX = 2;
constexpr int textInsetY = 3;

void drawGrid(const ProgramState& state, DrawingSurface& surface) {
    const int left = state.boardLeft;
    const int top = state.boardTop;
    const int cellWidth = static_cast<int>(state.cellWidth);
    const int right = left + cellWidth * state.visibleColumns;
    const int bottom = top + rowHeight * state.visibleRows;
    surface.fillRectangle(left, top, right, bottom, Qt::white);
    int x = left;
    int y = top;
    while (x <= right || y <= bottom) {
        if (x <= right)
            surface.fillRectangle(x, top, x, bottom, Qt::black);
        if (y <= bottom)
            surface.fillRectangle(left, y, right, y, Qt::black);
        x += cellWidth;
        y += rowHeight;
    }
}

/// Cell (`a`, `b`) of the square, drawn with its top-left grid corner at (`cellX`, `cellY`).
void drawCell(const ProgramState& state, DrawingSurface& surface, int a, int b, int cellX, int cellY) {
    const double shown = cellAt(state.puzzle, a, b);
    const int x = cellX + textInsetX;
    const int y = cellY + textInsetY;
    if (state.highlightAnswers == 1 && isBlank(shown) && state.showAnswers == 1 &&
        state.puzzleMode != PuzzleMode::answers)
        surface.fillRectangle(x - 1, y - 2, x + static_cast<int>(state.cellWidth) - 3, y + 14,
                              QColor(192, 192, 192));
    if (state.showAnswers != 1 && isBlank(shown))
        return;
    const double value = state.showAnswers == 1 ? cellAt(state.square, a, b) : shown;
    drawNumber(state, surface, cellX, x + signRoom(state, shown), y, value);
}

} // namespace

int signRoom(const ProgramState& state, double value) {
    return hasNegativeNumbers(state) && value >= 0 ? 3 : 0;
}

void drawNumber(const ProgramState& state, DrawingSurface& surface, int cellX, int x, int y, double value) {
    const double room = cellX + state.cellWidth - 1 - x;
    surface.drawText(x, y, QString::fromStdString(numberText(value)), room);
}

void showsquare(const ProgramState& state, DrawingSurface& surface) {
    drawGrid(state, surface);
    const int cellWidth = static_cast<int>(state.cellWidth);
    for (int b = 1; b <= state.visibleRows; ++b)
        for (int a = 1; a <= state.visibleColumns; ++a)
            drawCell(state, surface, a, b, state.boardLeft + (a - 1) * cellWidth,
                     state.boardTop + (b - 1) * rowHeight);
}

} // namespace quarvelle

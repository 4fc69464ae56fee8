#include "board/BoardGeometry.h"

#include <algorithm>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/ProgramState.h"

namespace quarvelle {

namespace {

constexpr int fewestColumns = 2;

/// Whether a number indented by the room of a sign needs one character more than the longer end.
bool needsSignRoom(double first, double last) {
    if (first >= 0 && last >= 0)
        return false;
    // Where neither end is positive no number needs more room: these values, 0 and 100, answer no.
    double positiveEnd = 0;
    double negativeEnd = 100;
    if (first > 0) {
        positiveEnd = first;
        negativeEnd = last;
    }
    if (last > 0) {
        positiveEnd = last;
        negativeEnd = first;
    }
    return textLength(positiveEnd) >= textLength(negativeEnd);
}

} // namespace

BoardGeometry boardGeometry(int n, double s, double d, BoardLimits limits) {
    const double last = lastNumber(n, s, d);
    BoardGeometry board{};
    board.maxDigits = std::max(textLength(last), textLength(s));
    board.digitWidth = board.maxDigits + (needsSignRoom(s, last) ? 1 : 0);
    board.cellWidth = board.digitWidth > 3 ? 8 * board.digitWidth : 24;
    const int columns = (limits.width - boardMargin) / board.cellWidth;
    const int rows = (limits.height - boardMargin) / rowHeight;
    board.hasAllCells = n <= columns && n <= rows;
    board.visibleColumns = std::min(n, std::max(columns, fewestColumns));
    board.visibleRows = std::min(n, rows);
    return board;
}

BoardGeometry boardGeometry(const ProgramState& state) {
    return boardGeometry(state.squareSize, state.startNumber, state.distance,
                         {state.boardWidthLimit, state.boardHeightLimit});
}

void measureBoard(ProgramState& state) {
    const BoardGeometry board = boardGeometry(state);
    state.maxDigits = static_cast<std::int16_t>(board.maxDigits);
    state.digitWidth = board.digitWidth;
    state.cellWidth = board.cellWidth;
    state.visibleColumns = board.visibleColumns;
    state.visibleRows = board.visibleRows;
}

bool hasNegativeNumbers(int n, double s, double d) {
    return s < 0 || lastNumber(n, s, d) < 0;
}

} // namespace quarvelle

#include "engine/Construction.h"

#include <algorithm>
#include <array>

#include "engine/EventQueue.h"
#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/ProgramState.h"
#include "engine/Random.h"

namespace quarvelle {

namespace {

/// The knight steps by direction code 1 to 4.
constexpr std::array<Step, 5> directionSteps{{{0, 0}, {1, 2}, {-1, 2}, {2, 1}, {-2, 1}}};

bool stopped(const ProgramState& state, EventQueue& events) {
    events.yield();
    return state.stopRequested == Request::stop;
}

/// For orders above 5 a second draw, over all four directions, replaces the first.
int drawDirection(const ProgramState& state, RandomSource& random) {
    const int direction = 1 + random.below(2);
    return state.squareSize > 5 ? 1 + random.below(4) : direction;
}

void moveCursor(ProgramState& state, Step step) {
    state.curRow = wrapped(state.curRow + step.row, state.squareSize);
    state.curCol = wrapped(state.curCol + step.column, state.squareSize);
}

/// Records axis entry k at the cursor.
void recordAxisCell(ProgramState& state, int k, double value) {
    const auto index = static_cast<std::size_t>(k);
    state.placedValue[index] = value;
    state.placedRow[index] = state.curRow;
    state.placedColumn[index] = state.curCol;
}

double& cursorCell(ProgramState& state) {
    return state.square[static_cast<std::size_t>(state.curRow)][static_cast<std::size_t>(state.curCol)];
}

void clearSquare(ProgramState& state) {
    const auto n = static_cast<std::size_t>(state.squareSize);
    for (std::size_t row = 1; row <= n; ++row)
        std::fill_n(state.square[row].begin() + 1, n, emptyMarker);
    std::fill_n(state.placedValue.begin() + 1, 2 * n, 0.0);
    std::fill_n(state.placedRow.begin() + 1, 2 * n, 0);
    std::fill_n(state.placedColumn.begin() + 1, 2 * n, 0);
}

void placeOrigin(ProgramState& state, RandomSource& random) {
    state.anchorRow = 1 + random.below(state.squareSize);
    state.anchorCol = 1 + random.below(state.squareSize);
    state.curRow = state.anchorRow;
    state.curCol = state.anchorCol;
    recordAxisCell(state, 1, 1);
    cursorCell(state) = 1;
    state.placeIndex = 2;
}

/// The first axis is complete: back to the origin, and off in another direction.
void turnToSecondAxis(ProgramState& state, RandomSource& random) {
    state.curRow = state.anchorRow;
    state.curCol = state.anchorCol;
    recordAxisCell(state, state.squareSize + 1, 1);
    state.firstDirection = state.stepDirection;
    do {
        state.stepDirection = drawDirection(state, random);
    } while (state.stepDirection == state.firstDirection);
    state.placeIndex = state.squareSize + 2;
}

/// Returns false when stopped.
bool layAxes(ProgramState& state, RandomSource& random, EventQueue& events) {
    const int n = state.squareSize;
    int& k = state.placeIndex;
    while (k <= 2 * n) {
        if (stopped(state, events))
            return false;
        state.drawnStep = 2 + random.below(n - 1);
        const bool firstAxis = k <= n;
        const double value = firstAxis ? state.drawnStep : (state.drawnStep - 1) * n + 1;
        const auto axis = state.placedValue.begin() + (firstAxis ? 1 : n + 1);
        if (std::find(axis, axis + n, value) != axis + n)
            continue;
        moveCursor(state, directionSteps[static_cast<std::size_t>(state.stepDirection)]);
        recordAxisCell(state, k, value);
        cursorCell(state) = value;
        ++k;
        if (k == n + 1)
            turnToSecondAxis(state, random);
    }
    return true;
}

/// Fills the cell that is one step of the first axis away from the cursor.
void fillNext(ProgramState& state) {
    const auto j = static_cast<std::size_t>(state.scanIndex);
    const double previous = cursorCell(state);
    state.prevRow = state.curRow;
    state.prevCol = state.curCol;
    moveCursor(state, {state.placedRow[j] - state.placedRow[j - 1],
                       state.placedColumn[j] - state.placedColumn[j - 1]});
    state.anchorRow = state.curRow;
    state.anchorCol = state.curCol;
    cursorCell(state) = previous + state.placedValue[j] - state.placedValue[j - 1];
    ++state.scanIndex;
}

/// Moves the cursor to the second-axis cell that holds the block's first value.
void startBlock(ProgramState& state, int firstValue) {
    const auto n = static_cast<std::size_t>(state.squareSize);
    std::size_t i = n + 2;
    while (i < 2 * n && state.placedValue[i] != firstValue)
        ++i;
    state.curRow = state.placedRow[i];
    state.curCol = state.placedColumn[i];
    state.scanIndex = 2;
}

/// Replays the first axis from each cell of the second. Returns false when stopped.
bool fillBlocks(ProgramState& state, EventQueue& events) {
    const int n = state.squareSize;
    const auto origin = static_cast<std::size_t>(n + 1);
    state.curRow = state.placedRow[origin];
    state.curCol = state.placedColumn[origin];
    state.scanIndex = 1;
    for (state.placeIndex = n + 1; state.placeIndex <= n * n; ++state.placeIndex) {
        if (stopped(state, events))
            return false;
        state.anchorRow = state.curRow;
        state.anchorCol = state.curCol;
        if ((state.placeIndex - 1) % n != 0)
            fillNext(state);
        else
            startBlock(state, state.placeIndex);
    }
    return true;
}

void writeRealValues(ProgramState& state) {
    const auto n = static_cast<std::size_t>(state.squareSize);
    for (std::size_t row = 1; row <= n; ++row)
        for (std::size_t column = 1; column <= n; ++column) {
            double& cell = state.square[row][column];
            cell = realValue(cell, state.startNumber, state.distance);
            state.puzzle[row][column] = cell;
        }
}

} // namespace

void buildCompleteSquare(ProgramState& state, RandomSource& random, EventQueue& events) {
    clearSquare(state);
    placeOrigin(state, random);
    state.stepDirection = drawDirection(state, random);
    if (layAxes(state, random, events) && fillBlocks(state, events))
        writeRealValues(state);
}

} // namespace quarvelle

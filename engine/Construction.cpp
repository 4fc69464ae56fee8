#include "engine/Construction.h"

#include <algorithm>
#include <array>
#include <bitset>

#include "engine/EventQueue.h"
#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/ProgramState.h"
#include "engine/Random.h"

namespace quarvelle {

namespace {

/// The knight steps by direction code 1 to 4.
constexpr std::array<Step, 5> directionSteps{{{0, 0}, {1, 2}, {-1, 2}, {2, 1}, {-2, 1}}};

/// One of the two axes through the origin: entries `first` to `first` + n - 1 of `placedRow` and its like,
/// each a step from the one before. The origin holds 1; the values 1 + unit to 1 + (n - 1)unit follow in
/// random order.
struct Axis {
    int first;
    int unit;
    Step step;
};

bool stopped(const ProgramState& state, EventQueue& events) {
    events.yield();
    return state.stopRequested == Request::stop;
}

/// Above order 5 a second draw, among all four directions, replaces the first.
int drawDirection(const ProgramState& state, RandomSource& random) {
    const int direction = 1 + random.below(2);
    return state.squareSize > 5 ? 1 + random.below(4) : direction;
}

Step stepOf(int direction) {
    return directionSteps[static_cast<std::size_t>(direction)];
}

void clearSquare(ProgramState& state) {
    const auto n = static_cast<std::size_t>(state.squareSize);
    for (std::size_t row = 1; row <= n; ++row)
        std::fill_n(state.square[row].begin() + 1, n, emptyMarker);
    std::fill_n(state.placedValue.begin() + 1, 2 * n, 0.0);
    std::fill_n(state.placedRow.begin() + 1, 2 * n, 0);
    std::fill_n(state.placedColumn.begin() + 1, 2 * n, 0);
}

void moveCursor(ProgramState& state, Step step) {
    const Cell cursor = wrapped(Cell{state.curRow, state.curCol} + step, state.squareSize);
    state.curRow = cursor.row;
    state.curCol = cursor.column;
}

/// Gives the cursor's cell relative value `k`.
void fillCell(ProgramState& state, double k) {
    cellAt(state.square, {state.curRow, state.curCol}) = k;
}

void layEntry(ProgramState& state, int entry, int value) {
    const auto index = static_cast<std::size_t>(entry);
    state.placedRow[index] = state.curRow;
    state.placedColumn[index] = state.curCol;
    state.placedValue[index] = value;
    fillCell(state, value);
}

/// Returns false when stopped.
bool layAxis(ProgramState& state, const Axis& axis, RandomSource& random, EventQueue& events) {
    const int n = state.squareSize;
    state.curRow = state.anchorRow;
    state.curCol = state.anchorCol;
    layEntry(state, axis.first, 1);
    std::bitset<maxOrder + 1> drawn;
    drawn.set(1);
    for (int entry = axis.first + 1; entry < axis.first + n;) {
        if (stopped(state, events))
            return false;
        const int number = 2 + random.below(n - 1);
        if (drawn[static_cast<std::size_t>(number)])
            continue;
        drawn.set(static_cast<std::size_t>(number));
        moveCursor(state, axis.step);
        layEntry(state, entry++, 1 + (number - 1) * axis.unit);
    }
    return true;
}

/// Replays the first axis from each cell of the second, in the order of the values there. Returns false when
/// stopped.
bool fillBlocks(ProgramState& state, const Axis& first, const Axis& second, EventQueue& events) {
    const int n = state.squareSize;
    std::array<std::size_t, maxOrder> startOf{};
    for (int entry = second.first; entry < second.first + n; ++entry) {
        const auto index = static_cast<std::size_t>(entry);
        startOf[static_cast<std::size_t>(state.placedValue[index]) / static_cast<std::size_t>(n)] = index;
    }
    for (int block = 1; block < n; ++block) {
        // The first cell of the block is filled already; it yields all the same.
        if (stopped(state, events))
            return false;
        const std::size_t start = startOf[static_cast<std::size_t>(block)];
        state.curRow = state.placedRow[start];
        state.curCol = state.placedColumn[start];
        for (int entry = first.first + 1; entry < first.first + n; ++entry) {
            if (stopped(state, events))
                return false;
            moveCursor(state, first.step);
            fillCell(state, block * n + state.placedValue[static_cast<std::size_t>(entry)]);
        }
    }
    state.anchorRow = state.curRow;
    state.anchorCol = state.curCol;
    return true;
}

bool fillSquare(ProgramState& state, RandomSource& random, EventQueue& events) {
    const int n = state.squareSize;
    state.anchorRow = 1 + random.below(n);
    state.anchorCol = 1 + random.below(n);
    state.stepDirection = drawDirection(state, random);
    const Axis first{1, 1, stepOf(state.stepDirection)};
    if (!layAxis(state, first, random, events))
        return false;
    state.firstDirection = state.stepDirection;
    while (state.stepDirection == state.firstDirection)
        state.stepDirection = drawDirection(state, random);
    const Axis second{n + 1, n, stepOf(state.stepDirection)};
    return layAxis(state, second, random, events) && fillBlocks(state, first, second, events);
}

} // namespace

void buildCompleteSquare(ProgramState& state, RandomSource& random, EventQueue& events) {
    clearSquare(state);
    if (!fillSquare(state, random, events))
        return;
    const SquareNumbers numbers(state.startNumber, state.distance);
    const auto n = static_cast<std::size_t>(state.squareSize);
    for (std::size_t row = 1; row <= n; ++row)
        for (std::size_t column = 1; column <= n; ++column) {
            double& value = state.square[row][column];
            state.puzzle[row][column] = value = numbers.realValue(value);
        }
}

} // namespace quarvelle

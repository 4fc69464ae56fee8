#include "practice/BlankSelection.h"

#include <algorithm>

#include "engine/DeductionCheck.h"
#include "engine/EventQueue.h"
#include "engine/LineKinds.h"
#include "engine/PropertyShapes.h"
#include "engine/Random.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

bool allAre(const std::array<int, lineKindCount + 1>& flags, int value) {
    return std::all_of(flags.begin() + 1, flags.end(), [value](int flag) { return flag == value; });
}

void drawCell(ProgramState& state, RandomSource& random) {
    state.anchorRow = 1 + random.below(state.squareSize);
    state.anchorCol = 1 + random.below(state.squareSize);
}

double& candidateCell(ProgramState& state) {
    return cellAt(state.puzzle, state.anchorRow, state.anchorCol);
}

/// Whether diagonal lines of `kind` (3 or 4) take part at the candidate, given that diagonals do.
bool diagonalTakesPart(const ProgramState& state, int kind) {
    if (state.allDiagonals != 0)
        return true;
    return kind == 3 ? state.anchorRow + state.anchorCol == state.squareSize + 1
                     : state.anchorRow == state.anchorCol;
}

bool diagonalsTakePart(const ProgramState& state) {
    return state.allDiagonals != 0 ||
           (state.mainDiagonalsAndLines == 1 && (diagonalTakesPart(state, 3) || diagonalTakesPart(state, 4)));
}

/// Rates the whole line of `kind` through the candidate: usable unless it holds its own kind's marker.
void rateLine(ProgramState& state, int kind) {
    const auto k = static_cast<std::size_t>(kind);
    const bool whole =
        walkLine(kind, state.anchorRow, state.anchorCol, state.squareSize, [&](int row, int column) {
            const double value = cellAt(state.puzzle, row, column);
            state.blanksOnShape += isBlank(value);
            return value != blankMarker(kind);
        });
    if (whole) {
        state.lineUsable[k] = 1;
        if (state.blanksOnShape >= state.bestBlankCount)
            state.lineBlankCount[k] = state.bestBlankCount = state.blanksOnShape;
    } else if (kind != 3) {
        state.lineRejected[k] = 1;
    }
    state.blanksOnShape = 0;
}

void rateLines(ProgramState& state) {
    state.lineUsable.fill(0);
    state.lineBlankCount.fill(0);
    state.blanksOnShape = 0;
    state.bestBlankCount = 0;
    if (isBlank(candidateCell(state)))
        return;
    if (state.mainDiagonalsAndLines == 1) {
        rateLine(state, 1);
        rateLine(state, 2);
    }
    if (diagonalsTakePart(state)) {
        if (diagonalTakesPart(state, 3))
            rateLine(state, 3);
        // Kind 3 counts as turned down wherever diagonals take part, walked or not.
        if (state.lineUsable[3] != 1)
            state.lineRejected[3] = 1;
        if (diagonalTakesPart(state, 4))
            rateLine(state, 4);
    }
    for (const PropertyFamily& family : propertyFamilies)
        if (state.*family.mode != PropertyMode::none)
            family.rate(state);
}

/// Draws kinds until one is usable and, when challenging, holds the most blanks. A usable kind with the best
/// count exists, so this ends.
int chooseKind(const ProgramState& state, RandomSource& random) {
    for (;;) {
        int drawn = 1 + random.below(wholeLineKinds);
        int range = wholeLineKinds;
        for (const PropertyFamily& family : propertyFamilies) {
            range += 2;
            if (state.*family.mode != PropertyMode::none)
                drawn = 1 + random.below(range);
        }
        int kind = drawn;
        if (drawn > wholeLineKinds) {
            const auto family = static_cast<std::size_t>((drawn - wholeLineKinds - 1) / 2);
            kind = propertyFamilies[family].firstKind + random.below(kindsPerFamily);
        }
        const auto k = static_cast<std::size_t>(kind);
        if (state.lineUsable[k] == 1 &&
            (state.difficulty < Difficulty::challenging || state.lineBlankCount[k] == state.bestBlankCount))
            return kind;
    }
}

bool liesOnRootLine(const ProgramState& state) {
    return !walkLine(
        state.probeKind, state.probeAnchorRow, state.probeAnchorCol, state.squareSize,
        [&](int row, int column) { return row != state.anchorRow || column != state.anchorCol; });
}

bool isDeducible(ProgramState& state, int kind) {
    if (liesOnRootLine(state))
        return false;
    state.lineKind = kind;
    makeblanks(state);
    return state.blankAccepted == 1;
}

/// The first choice is not blanked: its line is the root, which stays complete.
void placeRoot(ProgramState& state, int kind) {
    state.probeKind = kind;
    state.probeAnchorRow = state.anchorRow;
    state.probeAnchorCol = state.anchorCol;
}

/// Rates a random cell and places a blank there, or the root. Returns whether it did.
bool attemptRandomCell(ProgramState& state, RandomSource& random) {
    if (allAre(state.lineRejected, 1))
        state.lineRejected.fill(0);
    drawCell(state, random);
    state.stopRequested = Request::playing;
    rateLines(state);
    if (allAre(state.lineUsable, 0) || allAre(state.lineRejected, 1))
        return false;
    const int kind = chooseKind(state, random);
    if (state.placeIndex == 0) {
        placeRoot(state, kind);
    } else if (isDeducible(state, kind)) {
        candidateCell(state) = blankMarker(kind);
    } else {
        state.lineRejected[static_cast<std::size_t>(kind)] = 1;
        return false;
    }
    state.lineRejected.fill(0);
    return true;
}

/// Blanks the candidate through the whole line of `kind` if that line is free of its own marker and the check
/// accepts.
bool placeThroughLine(ProgramState& state, int kind) {
    const bool free =
        walkLine(kind, state.anchorRow, state.anchorCol, state.squareSize,
                 [&](int row, int column) { return cellAt(state.puzzle, row, column) != blankMarker(kind); });
    if (!free)
        return false;
    state.lineKind = kind;
    makeblanks(state);
    if (state.blankAccepted != 1)
        return false;
    candidateCell(state) = blankMarker(kind);
    return true;
}

bool placeAtCandidate(ProgramState& state) {
    if (liesOnRootLine(state) || isBlank(candidateCell(state)))
        return false;
    if (state.mainDiagonalsAndLines == 1 && (placeThroughLine(state, 1) || placeThroughLine(state, 2)))
        return true;
    // Off the diagonals that take part, the properties are not tried either.
    if (!diagonalsTakePart(state))
        return false;
    for (const int kind : {3, 4})
        if (diagonalTakesPart(state, kind) && placeThroughLine(state, kind))
            return true;
    state.blankPlaced = 0;
    for (const PropertyFamily& family : propertyFamilies)
        if (state.*family.mode != PropertyMode::none)
            family.place(state);
    return state.blankPlaced == 1;
}

/// Tries every cell once, from a random one on. Returns whether a blank was placed.
bool scanAllCells(ProgramState& state, RandomSource& random) {
    state.attemptCount = 0;
    drawCell(state, random);
    if (state.placeIndex == 0)
        return false;
    const int n = state.squareSize;
    for (int cell = 0; cell < n * n; ++cell) {
        if (placeAtCandidate(state))
            return true;
        if (++state.anchorRow > n) {
            state.anchorRow = 1;
            state.anchorCol = wrapped(state.anchorCol + 1, n);
        }
    }
    return false;
}

} // namespace

void selectBlanks(ProgramState& state, RandomSource& random, EventQueue& events) {
    std::fill_n(state.lineRejected.begin() + 1, wholeLineKinds, 0);
    state.placeIndex = 0;
    state.attemptCount = 0;
    do {
        bool placed = false;
        while (!placed) {
            events.yield();
            if (state.stopRequested == Request::stop)
                return;
            ++state.attemptCount;
            if (state.attemptCount <= state.squareSize * state.squareSize)
                placed = attemptRandomCell(state, random);
            else if (!(placed = scanAllCells(state, random)))
                return;
        }
        ++state.placeIndex;
    } while (!(state.placeIndex >= state.blankCount + 1));
}

} // namespace quarvelle

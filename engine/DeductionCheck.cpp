#include "engine/DeductionCheck.h"

#include <algorithm>

#include "engine/LineKinds.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

constexpr std::int16_t queueEnd = -1;

void clearQueue(ProgramState& state) {
    const auto entries =
        static_cast<std::size_t>(state.squareSize) * static_cast<std::size_t>(state.squareSize) + 1;
    std::fill_n(state.queueKind.begin() + 1, entries, queueEnd);
    std::fill_n(state.queueRow.begin() + 1, entries, queueEnd);
    state.queueLength = 0;
    state.queueHead = 0;
    state.stepIndex = 0;
}

bool isQueued(ProgramState& state) {
    for (state.queueScan = 1;; ++state.queueScan) {
        const auto i = static_cast<std::size_t>(state.queueScan);
        if (state.queueKind[i] == queueEnd)
            return false;
        if (state.queueRow[i] == state.curRow && state.queueCol[i] == state.curCol)
            return true;
    }
}

void appendCursor(ProgramState& state, double marker) {
    const auto i = static_cast<std::size_t>(++state.queueLength);
    state.queueRow[i] = state.curRow;
    state.queueCol[i] = state.curCol;
    state.queueKind[i] = static_cast<std::int16_t>(markerKind(marker));
}

/// Makes the next queued cell the anchor; false when there is none.
bool takeNextAnchor(ProgramState& state) {
    state.stepIndex = 0;
    const auto head = static_cast<std::size_t>(++state.queueHead);
    if (state.queueKind[head] == queueEnd)
        return false;
    state.anchorRow = state.curRow = state.queueRow[head];
    state.anchorCol = state.curCol = state.queueCol[head];
    state.lineKind = state.queueKind[head];
    return true;
}

} // namespace

void makeblanks(ProgramState& state) {
    state.blankAccepted = 0;
    state.startRow = state.curRow = state.anchorRow;
    state.startCol = state.curCol = state.anchorCol;
    clearQueue(state);
    // Each pass steps once along a shape, and a blank is queued at most once, so there are at most
    // n*n shapes of n steps each.
    for (;;) {
        findline2(state);
        ++state.stepIndex;
        state.curRow = wrapped(state.curRow, state.squareSize);
        state.curCol = wrapped(state.curCol, state.squareSize);
        const bool atAnchor = state.curRow == state.anchorRow && state.curCol == state.anchorCol;
        if (atAnchor && !takeNextAnchor(state)) {
            state.blankAccepted = 1;
            break;
        }
        const bool atCandidate = state.curRow == state.startRow && state.curCol == state.startCol;
        const bool onCandidateShape = state.anchorRow == state.startRow && state.anchorCol == state.startCol;
        if (atCandidate && !onCandidateShape)
            break;
        const double value = cellAt(state.puzzle, state.curRow, state.curCol);
        if (!atAnchor && isBlank(value) && !isQueued(state))
            appendCursor(state, value);
    }
    state.anchorRow = state.startRow;
    state.anchorCol = state.startCol;
}

} // namespace quarvelle

#include "engine/Stepping.h"

namespace quarvelle {

namespace {

/// Whether the probe walks this kind's cells in an order of its own.
bool hasProbeOrder(int kind) {
    return familyOf(kind) <= scatteredCrossDiagonals && anchorOf(kind) > 1;
}

} // namespace

void findline2(ProgramState& state) {
    const Cell cursor = stepped(state.lineKind, {state.anchorRow, state.anchorCol},
                                {state.curRow, state.curCol}, state.stepIndex);
    state.curRow = cursor.row;
    state.curCol = cursor.column;
}

void findline1(ProgramState& state) {
    if (state.probeKind <= wholeLineKinds)
        return;
    const bool exchanges = hasProbeOrder(state.probeKind) && (state.stepIndex == 0 || state.stepIndex == 2);
    const Cell probe =
        stepped(state.probeKind, {state.probeAnchorRow, state.probeAnchorCol},
                {state.probeRow, state.probeCol}, exchanges ? 2 - state.stepIndex : state.stepIndex);
    state.probeRow = probe.row;
    state.probeCol = probe.column;
}

} // namespace quarvelle

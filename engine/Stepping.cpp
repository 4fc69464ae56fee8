#include "engine/Stepping.h"

#include <algorithm>

namespace quarvelle {

namespace {

struct Cell {
    int& row;
    int& column;
};

/// Sets the cursor of a five-cell kind for step 0 to 4.
void setFromAnchor(Cell cursor, int anchorRow, int anchorColumn, const std::array<Step, 4>& offsets,
                   int stepIndex) {
    if (stepIndex < 0 || stepIndex > 4)
        return;
    const Step offset = stepIndex == 4 ? Step{} : offsets[static_cast<std::size_t>(stepIndex)];
    cursor.row = anchorRow + offset.row;
    cursor.column = anchorColumn + offset.column;
}

/// Whether the probe walks this kind's cells in an order of its own.
bool hasProbeOrder(int kind) {
    return (kind >= 7 && kind <= 9) || (kind >= 12 && kind <= 14);
}

} // namespace

void findline2(ProgramState& state) {
    if (state.lineKind > wholeLineKinds) {
        setFromAnchor({state.curRow, state.curCol}, state.anchorRow, state.anchorCol,
                      shapeOffsets(state.lineKind), state.stepIndex);
        return;
    }
    const Step step = wholeLineStep(state.lineKind);
    state.curRow += step.row;
    state.curCol += step.column;
}

void findline1(ProgramState& state) {
    if (state.probeKind <= wholeLineKinds)
        return;
    std::array<Step, 4> offsets = shapeOffsets(state.probeKind);
    if (hasProbeOrder(state.probeKind))
        std::swap(offsets[0], offsets[2]);
    setFromAnchor({state.probeRow, state.probeCol}, state.probeAnchorRow, state.probeAnchorCol, offsets,
                  state.stepIndex);
}

} // namespace quarvelle

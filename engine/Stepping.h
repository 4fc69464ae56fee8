#pragma once

#include "engine/LineKinds.h"

namespace quarvelle {

/// Moves the main cursor (`curRow`, `curCol`) one step of `lineKind`: whole-line kinds add their step to the
/// cursor, five-cell kinds set it to the anchor (`anchorRow`, `anchorCol`) plus the offset of `stepIndex` (0
/// to 3 the other cells, 4 the anchor, others leave it). Neither wraps the cursor nor advances `stepIndex`.
void findline2(ProgramState& state);

/// The same for the probe cursor and `probeKind`, five-cell kinds only; whole-line kinds leave it. The probe
/// visits the cells of an arm of a cross-diagonal, the first arm apart, with steps 0 and 2 exchanged.
void findline1(ProgramState& state);

/// Calls `visit(row, column)` for each cell of the line of `kind` through the given cell, that cell first, in
/// walking order with wrap-around, until the line is whole (n cells or five) or `visit` returns false.
/// Returns whether the whole line was visited.
template <class Visit>
bool walkLine(int kind, int row, int column, int n, Visit visit) {
    if (!visit(row, column))
        return false;
    if (kind > wholeLineKinds) {
        for (const Step offset : shapeOffsets(kind))
            if (!visit(wrapped(row + offset.row, n), wrapped(column + offset.column, n)))
                return false;
        return true;
    }
    const Step step = wholeLineStep(kind);
    for (int count = 1; count < n; ++count) {
        row = wrapped(row + step.row, n);
        column = wrapped(column + step.column, n);
        if (!visit(row, column))
            return false;
    }
    return true;
}

} // namespace quarvelle

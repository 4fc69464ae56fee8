#pragma once

#include "engine/LineKinds.h"

namespace quarvelle {

/// The stepping rule: where a walk along `kind` from `anchor` goes next when it stands at `cursor`.
/// Whole-line kinds add their step to the cursor; five-cell kinds set it to the anchor plus the offset of
/// `stepIndex` (0 to 3 the other cells, 4 the anchor itself, any other leaves it). The result isn't wrapped.
inline Cell stepped(int kind, Cell anchor, Cell cursor, int stepIndex) {
    if (kind <= wholeLineKinds)
        return cursor + wholeLineStep(kind);
    if (stepIndex < 0 || stepIndex > 4)
        return cursor;
    return stepIndex == 4 ? anchor : anchor + shapeOffsets(kind)[static_cast<std::size_t>(stepIndex)];
}

/// Moves the main cursor (`curRow`, `curCol`) by the stepping rule for `lineKind`, the anchor (`anchorRow`,
/// `anchorCol`) and `stepIndex`. Neither wraps the cursor nor advances `stepIndex`. The program itself walks
/// lines with `walkLine`; this and `findline1` are single steps, for whoever keeps a walk in the record.
void findline2(ProgramState& state);

/// The same for the probe cursor, its anchor and `probeKind`, five-cell kinds only; whole-line kinds leave
/// it. The probe visits the cells of an arm of a cross-diagonal, the first arm apart, with steps 0 and 2
/// exchanged.
void findline1(ProgramState& state);

/// Calls `visit` for each cell of the line of `kind` through `anchor`, that cell first, by the stepping rule
/// with wrap-around, until the line is whole (n cells or five) or `visit` returns false. Returns whether the
/// whole line was visited.
template <class Visit>
bool walkLine(int kind, Cell anchor, int n, Visit visit) {
    const int cells = kind <= wholeLineKinds ? n : kindsPerFamily;
    Cell cursor = anchor;
    for (int stepIndex = 0; stepIndex < cells; ++stepIndex) {
        if (!visit(cursor))
            return false;
        cursor = wrapped(stepped(kind, anchor, cursor, stepIndex), n);
    }
    return true;
}

} // namespace quarvelle

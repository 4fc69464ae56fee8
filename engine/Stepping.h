#pragma once

#include "engine/LineKinds.h"

namespace quarvelle {

/// The stepping rule: the next cell after `cursor` of a walk along the line of `kind` through `anchor`.
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
/// lines with `walkLine`; this and `findline1` are single steps of a walk that is kept in the state.
void findline2(ProgramState& state);

/// The same for the probe cursor, its anchor and `probeKind`, but only for five-cell kinds; whole-line kinds
/// leave the probe where it is. For a cross-diagonal, plain or scattered, that is anchored at its second to
/// fourth arm, the probe takes steps 0 and 2 in each other's place.
void findline1(ProgramState& state);

/// Calls `visit` for each cell of the line of `kind` through `anchor`, from that cell on by the stepping
/// rule, around the edges, until all of the line (n cells or five) was visited or `visit` returns false.
/// Returns whether all of it was visited and every call returned true.
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

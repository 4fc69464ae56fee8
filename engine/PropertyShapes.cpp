#include "engine/PropertyShapes.h"

#include <algorithm>

#include "engine/DeductionCheck.h"
#include "engine/LineKinds.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

/// "All" lets a shape reach over the edge; otherwise its five cells lie inside the square.
bool fits(const ProgramState& state, const PropertyFamily& family, int kind) {
    if (state.*family.mode == PropertyMode::all)
        return true;
    const auto& offsets = shapeOffsets(kind);
    return std::all_of(offsets.begin(), offsets.end(), [&](Step offset) {
        const Cell cell = Cell{state.anchorRow, state.anchorCol} + offset;
        return cell == wrapped(cell, state.squareSize);
    });
}

/// How many blanks lie on the placement of `kind` through the candidate; -1 where it doesn't fit or a cell
/// holds the kind's own marker.
int blanksOn(const ProgramState& state, const PropertyFamily& family, int kind) {
    if (!fits(state, family, kind))
        return -1;
    int blanks = 0;
    const bool isFree = walkLine(kind, {state.anchorRow, state.anchorCol}, state.squareSize, [&](Cell cell) {
        const double value = cellAt(state.puzzle, cell);
        blanks += isBlank(value);
        return value != blankMarker(kind);
    });
    return isFree ? blanks : -1;
}

void place(ProgramState& state, const PropertyFamily& family) {
    for (int kind = family.firstKind; kind < family.firstKind + kindsPerFamily; ++kind) {
        if (blanksOn(state, family, kind) < 0)
            continue;
        state.lineKind = kind;
        makeblanks(state);
        if (state.blankAccepted == 1) {
            cellAt(state.puzzle, {state.anchorRow, state.anchorCol}) = blankMarker(kind);
            state.blankPlaced = 1;
            return;
        }
    }
}

void rate(ProgramState& state, const PropertyFamily& family) {
    for (int kind = family.firstKind; kind < family.firstKind + kindsPerFamily; ++kind) {
        const auto k = static_cast<std::size_t>(kind);
        const int blanks = blanksOn(state, family, kind);
        if (blanks >= 0)
            state.lineUsable[k] = 1;
        if (state.lineUsable[k] != 1)
            state.lineRejected[k] = 1;
        else if (blanks >= state.bestBlankCount)
            state.lineBlankCount[k] = state.bestBlankCount = blanks;
    }
}

} // namespace

void d1scross(ProgramState& state) {
    place(state, propertyFamilies[0]);
}
void d1scross2(ProgramState& state) {
    place(state, propertyFamilies[1]);
}
void d1scline(ProgramState& state) {
    place(state, propertyFamilies[2]);
}
void d1scline2(ProgramState& state) {
    place(state, propertyFamilies[3]);
}

void d2scross(ProgramState& state) {
    rate(state, propertyFamilies[0]);
}
void d2scross2(ProgramState& state) {
    rate(state, propertyFamilies[1]);
}
void d2scline(ProgramState& state) {
    rate(state, propertyFamilies[2]);
}
void d2scline2(ProgramState& state) {
    rate(state, propertyFamilies[3]);
}

} // namespace quarvelle

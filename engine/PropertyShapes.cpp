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

/// Walks the placement of `kind` through the candidate and counts its blanks in `blanksOnShape`. Returns
/// false as soon as a cell holds the kind's own marker.
bool countBlanks(ProgramState& state, int kind) {
    return walkLine(kind, {state.anchorRow, state.anchorCol}, state.squareSize, [&](Cell cell) {
        const double value = cellAt(state.puzzle, cell);
        if (value == blankMarker(kind))
            return false;
        state.blanksOnShape += isBlank(value);
        return true;
    });
}

void place(ProgramState& state, const PropertyFamily& family) {
    for (int kind = family.firstKind; kind < family.firstKind + kindsPerFamily; ++kind) {
        const bool free = fits(state, family, kind) && countBlanks(state, kind);
        state.blanksOnShape = 0;
        if (!free)
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
        if (fits(state, family, kind)) {
            if (countBlanks(state, kind)) {
                state.lineKind = kind;
                state.blankAccepted = 1;
                state.lineUsable[k] = 1;
            }
            if (state.blanksOnShape >= state.bestBlankCount && state.lineUsable[k] == 1) {
                state.bestBlankCount = state.blanksOnShape;
                state.lineBlankCount[k] = state.bestBlankCount;
            }
        }
        if (state.lineUsable[k] != 1)
            state.lineRejected[k] = 1;
        state.blanksOnShape = 0;
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

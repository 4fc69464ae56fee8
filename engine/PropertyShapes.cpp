#include "engine/PropertyShapes.h"

#include <algorithm>

#include "engine/Stepping.h"

namespace quarvelle {

bool fitsShape(int mode, int kind, Cell cell, int n) {
    if (mode == PropertyMode::all)
        return true;
    const Shape& offsets = shapeOffsets(kind);
    return std::all_of(offsets.begin(), offsets.end(),
                       [&](Step offset) { return cell + offset == wrapped(cell + offset, n); });
}

std::optional<int> blanksOnShape(const ProgramState& state, int kind) {
    int blanks = 0;
    const bool isFree = walkLine(kind, {state.anchorRow, state.anchorCol}, state.squareSize, [&](Cell cell) {
        const double value = cellAt(state.puzzle, cell);
        blanks += isBlank(value);
        return value != blankMarker(kind);
    });
    return isFree ? std::optional(blanks) : std::nullopt;
}

void rateShape(ProgramState& state, const PropertyFamily& family) {
    const Cell candidate{state.anchorRow, state.anchorCol};
    for (int kind = family.firstKind; kind < family.firstKind + kindsPerFamily; ++kind) {
        const auto k = static_cast<std::size_t>(kind);
        std::optional<int> blanks;
        if (fitsShape(state.*family.mode, kind, candidate, state.squareSize))
            blanks = blanksOnShape(state, kind);
        if (blanks)
            state.lineUsable[k] = 1;
        if (state.lineUsable[k] != 1)
            state.lineRejected[k] = 1;
        else if (blanks && *blanks >= state.bestBlankCount)
            state.lineBlankCount[k] = state.bestBlankCount = *blanks;
    }
}

} // namespace quarvelle

#include "engine/LinesInPlay.h"

#include "engine/PropertyShapes.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

bool isOnlyBlank(const ProgramState& state, int kind, Cell blank) {
    return walkLine(kind, blank, state.squareSize,
                    [&](Cell cell) { return cell == blank || !isBlank(cellAt(state.puzzle, cell)); });
}

bool isGiven(const ProgramState& state, int kind, Cell blank) {
    return isInPlay(state, kind, blank) && isOnlyBlank(state, kind, blank);
}

int kindsOf(const ProgramState& state) {
    return state.squareSize == shapeOrder ? lineKindCount : wholeLineKinds;
}

} // namespace

bool isShapeInPlay(const ProgramState& state, int kind, Cell cell) {
    const int mode = state.*propertyFamilies[static_cast<std::size_t>(familyOf(kind))].mode;
    return mode != PropertyMode::none && fitsShape(mode, kind, cell, state.squareSize);
}

std::vector<int> kindsThatGive(const ProgramState& state, Cell blank) {
    std::vector<int> kinds;
    for (int kind = 1; kind <= kindsOf(state); ++kind)
        if (isGiven(state, kind, blank))
            kinds.push_back(kind);
    return kinds;
}

std::optional<Cell> nextGivenBlank(const ProgramState& state, Cell from) {
    const int n = state.squareSize;
    const int begin = (from.column - 1) * n + from.row - 1;
    for (int step = 1; step <= n * n; ++step) {
        const int index = (begin + step) % (n * n);
        const Cell cell{index % n + 1, index / n + 1};
        if (!isBlank(cellAt(state.puzzle, cell)))
            continue;
        for (int kind = 1; kind <= kindsOf(state); ++kind)
            if (isGiven(state, kind, cell))
                return cell;
    }
    return {};
}

} // namespace quarvelle

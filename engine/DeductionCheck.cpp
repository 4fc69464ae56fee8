#include "engine/DeductionCheck.h"

#include <vector>

#include "engine/LineKinds.h"
#include "engine/Stepping.h"

namespace quarvelle {

namespace {

/// A blank and the kind of the line that it is found through.
struct Deduction {
    Cell cell;
    int kind;
};

} // namespace

void makeblanks(ProgramState& state) {
    const Cell candidate{state.anchorRow, state.anchorCol};
    // The candidate and every blank it needs, each once, so the list is at most as long as the square has
    // cells.
    std::vector<Deduction> needed{{candidate, state.lineKind}};
    CellSet reached;
    state.blankAccepted = 1;
    for (std::size_t i = 0; i < needed.size() && state.blankAccepted == 1; ++i) {
        const auto [blank, kind] = needed[i];
        const auto visit = [&, i](Cell cell) {
            if (cell == candidate)
                return i == 0;
            const double value = cellAt(state.puzzle, cell);
            if (isBlank(value) && !reached.contains(cell)) {
                reached.insert(cell);
                needed.push_back({cell, markerKind(value)});
            }
            return true;
        };
        state.blankAccepted = walkLine(kind, blank, state.squareSize, visit);
    }
}

} // namespace quarvelle

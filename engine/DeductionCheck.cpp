#include "engine/DeductionCheck.h"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <vector>

#include "engine/LineKinds.h"
#include "engine/Stepping.h"

namespace quarvelle {

void makeblanks(ProgramState& state) {
    // The candidate and every blank it needs, each once. The buffer spares order 5, which asks thousands of
    // times, from allocating; larger orders allocate.
    constexpr std::size_t usualCells = 25;
    std::array<std::byte, usualCells * sizeof(Cell)> buffer;
    std::pmr::monotonic_buffer_resource memory(buffer.data(), buffer.size());
    std::pmr::vector<Cell> needed(&memory);
    needed.reserve(usualCells);
    const Cell candidate{state.anchorRow, state.anchorCol};
    needed.push_back(candidate);
    state.blankAccepted = 1;
    for (std::size_t i = 0; i < needed.size() && state.blankAccepted == 1; ++i) {
        const Cell blank = needed[i];
        const int kind = i == 0 ? state.lineKind : markerKind(cellAt(state.puzzle, blank));
        state.blankAccepted = walkLine(kind, blank, state.squareSize, [&](Cell cell) {
            if (cell == candidate)
                return i == 0;
            if (isBlank(cellAt(state.puzzle, cell)) &&
                std::find(needed.begin(), needed.end(), cell) == needed.end())
                needed.push_back(cell);
            return true;
        });
    }
}

} // namespace quarvelle

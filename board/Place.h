#pragma once

#include <compare>

#include "engine/Cells.h"

namespace quarvelle {

/// A cell of a square on the board: `across` counts from 1 at the left, `down` from 1 at the top.
struct Place {
    int across = 0;
    int down = 0;

    auto operator<=>(const Place&) const = default;
};

/// The engine's cell at a place: its first index runs across the board and the second down.
inline Cell cellOf(Place place) {
    return {place.across, place.down};
}
inline Place placeOf(Cell cell) {
    return {cell.row, cell.column};
}

/// The cell that is selected on the board.
inline Place selectedPlace(const ProgramState& state) {
    return placeOf({state.selectedRow, state.selectedColumn});
}
inline void selectPlace(ProgramState& state, Place place) {
    const Cell cell = cellOf(place);
    state.selectedRow = cell.row;
    state.selectedColumn = cell.column;
}

} // namespace quarvelle

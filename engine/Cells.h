#pragma once

#include <bitset>
#include <compare>

#include "engine/ProgramState.h"

namespace quarvelle {

/// A move on the square, or an offset from a cell, in cells.
struct Step {
    int row = 0;
    int column = 0;
};

/// A cell of the square, row and column from 1; the row runs across the board. A cursor may lie outside the
/// square until it is wrapped.
struct Cell {
    int row = 0;
    int column = 0;

    auto operator<=>(const Cell&) const = default;
};

inline Cell operator+(Cell cell, Step step) {
    return {cell.row + step.row, cell.column + step.column};
}

/// `coordinate` brought back into 1 to `n`; it may lie at most n outside.
inline int wrapped(int coordinate, int n) {
    if (coordinate > n)
        return coordinate - n;
    return coordinate < 1 ? coordinate + n : coordinate;
}

inline Cell wrapped(Cell cell, int n) {
    return {wrapped(cell.row, n), wrapped(cell.column, n)};
}

inline double& cellAt(Grid& grid, Cell cell) {
    return grid[static_cast<std::size_t>(cell.row)][static_cast<std::size_t>(cell.column)];
}

inline double cellAt(const Grid& grid, Cell cell) {
    return grid[static_cast<std::size_t>(cell.row)][static_cast<std::size_t>(cell.column)];
}

/// Cells of a square of any order up to 103.
class CellSet {
public:
    void insert(Cell cell) { m_cells.set(indexOf(cell)); }
    bool contains(Cell cell) const { return m_cells[indexOf(cell)]; }

private:
    static std::size_t indexOf(Cell cell) {
        return static_cast<std::size_t>(cell.row * (maxOrder + 1) + cell.column);
    }

    std::bitset<std::size_t{maxOrder + 1} * (maxOrder + 1)> m_cells;
};

} // namespace quarvelle

#pragma once

#include <bitset>

#include "engine/ProgramState.h"

namespace quarvelle {

/// A cell of the square, row and column from 1.
struct Cell {
    int row = 0;
    int column = 0;

    bool operator==(const Cell&) const = default;
};

/// Cells of a square of any order.
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

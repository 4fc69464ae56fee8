#pragma once

#include "board/Place.h"

namespace quarvelle {

/// A rectangle of a square's cells, as they lie on the board.
struct Piece {
    Place first{1, 1};
    int across = 0; ///< cells
    int down = 0;
};

/// How a square that the board has no room for is cut into pieces: so many cells across and down as there is
/// room for, fewer in the last ones. A square that fits is one piece.
class Pieces {
public:
    /// Of the state's square, on a board with the state's `visibleColumns` and `visibleRows`.
    explicit Pieces(const ProgramState& state)
        : m_order(state.squareSize), m_across(state.visibleColumns), m_down(state.visibleRows) {}

    /// How many pieces lie side by side, and how many bands of them there are.
    int across() const { return partsOf(m_across); }
    int down() const { return partsOf(m_down); }
    int count() const { return across() * down(); }

    /// Cells of a full piece.
    int cellsAcross() const { return m_across; }
    int cellsDown() const { return m_down; }

    /// A piece by its own place among the others.
    Piece at(Place piece) const;

private:
    int partsOf(int cells) const { return (m_order + cells - 1) / cells; }

    int m_order;
    int m_across;
    int m_down;
};

} // namespace quarvelle

#pragma once

#include "board/Place.h"

namespace quarvelle {

/// A rectangle of a square's cells on the board.
struct Piece {
    Place first{1, 1};
    int across = 0; ///< cells
    int down = 0;
};

/// How a square that is too large for the board is cut into pieces: each has as many cells across and down as
/// the board has room for, the last ones fewer. A square that fits is one piece.
class Pieces {
public:
    /// The pieces of the state's square, on a board with room for `visibleColumns` and `visibleRows`.
    explicit Pieces(const ProgramState& state)
        : m_order(state.squareSize), m_across(state.visibleColumns), m_down(state.visibleRows) {}

    /// How many pieces lie side by side, and how many one below the other.
    int across() const { return partsOf(m_across); }
    int down() const { return partsOf(m_down); }
    int count() const { return across() * down(); }

    /// Cells of a full piece.
    int cellsAcross() const { return m_across; }
    int cellsDown() const { return m_down; }

    /// The piece at a place among the pieces, counted from 1 each way.
    Piece at(Place piece) const;

private:
    int partsOf(int cells) const { return (m_order + cells - 1) / cells; }

    int m_order;
    int m_across;
    int m_down;
};

} // namespace quarvelle

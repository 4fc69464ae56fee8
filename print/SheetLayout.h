#pragma once

#include <QPoint>
#include <QRect>
#include <QSizeF>

namespace quarvelle {

struct ProgramState;

/// Where the squares of a batch go on their sheets, in pixels of the drawing, and how large a pixel is on
/// paper. It follows from the board's geometry, which is the same for the whole batch.
class SheetLayout {
public:
    /// For sheets of at most `squares` squares, each with its note below, on paper with `room` in
    /// millimetres. Chooses the columns and rows that let the squares be largest, up to a limit: cells 18 mm
    /// wide, or the scale at which the full board page fills the room, whichever is larger. For a square in
    /// pieces, the full board page fills the room.
    SheetLayout(const ProgramState& state, int squares, QSizeF room);

    /// How many squares fit on the board page at once; 1 for a square in pieces.
    static int squaresThatFit(const ProgramState& state);

    /// The top-left corner of the grid of square `index`, from 0: across, then down.
    QPoint place(int index) const;
    /// The upper edge of the note below a square whose upper edge is at `top`.
    int noteTop(int top) const;
    int boardWidth() const { return m_board.width(); }

    /// The area that a full sheet covers.
    QRect content() const { return m_content; }
    /// The size of a pixel on paper, in millimetres.
    double scale() const { return m_scale; }

private:
    QRect contentOf(int columns, int rows) const;

    QSize m_board; ///< of one square or piece, grid lines included
    int m_columns = 1;
    QRect m_content;
    double m_scale;
};

} // namespace quarvelle

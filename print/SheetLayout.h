#pragma once

#include <QPoint>
#include <QRect>
#include <QSizeF>

namespace quarvelle {

struct ProgramState;

/// Where the squares of a batch go on their sheets, in pixels of the drawing surface, and how large a pixel
/// is on paper. Follows from the board's geometry, which is the same for the whole batch.
class SheetLayout {
public:
    /// For sheets of at most that many squares, each with its note below, in a room of that many millimetres:
    /// in the columns and rows that let them be largest. They are no larger than cells 18 mm wide make them,
    /// or than a full drawing surface would be, whichever is more. For a square in pieces, a full surface is
    /// what fills the room.
    SheetLayout(const ProgramState& state, int squares, QSizeF room);

    /// How many squares share a full drawing surface; 1 for a square in pieces, each of which has its own.
    static int squaresThatFit(const ProgramState& state);

    /// Top-left grid corner of a square, `index` from 0: across, then down.
    QPoint place(int index) const;
    /// Upper edge of the note below a square whose own is at `top`.
    int noteTop(int top) const;
    int boardWidth() const { return m_board.width(); }

    /// What a full sheet covers.
    QRect content() const { return m_content; }
    /// A pixel on paper, in millimetres.
    double scale() const { return m_scale; }

private:
    QRect contentOf(int columns, int rows) const;

    QSize m_board; ///< a board, grid lines included
    int m_columns = 1;
    QRect m_content;
    double m_scale;
};

} // namespace quarvelle

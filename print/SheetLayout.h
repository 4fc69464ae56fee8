#pragma once

#include <QPoint>
#include <QRect>

namespace quarvelle {

struct ProgramState;

/// Where the squares of a batch go on their sheets, in pixels of the drawing surface. Follows from the
/// board's geometry, which is the same for the whole batch.
class SheetLayout {
public:
    explicit SheetLayout(const ProgramState& state);

    /// How many squares share a sheet; 1 for a square in pieces, each of which has its own.
    int squares() const { return m_columns * m_rows; }
    /// Top-left grid corner of a square, `index` from 0 to `squares()` - 1: across, then down.
    QPoint place(int index) const;

    /// The drawing surface inside its margins, and the label of a piece where it is further right.
    QRect frame() const { return m_frame; }
    /// What a full sheet covers.
    QRect content() const { return m_content; }

private:
    int m_columns = 1;
    int m_rows = 1;
    QSize m_board; ///< a board, grid lines included
    QRect m_frame;
    QRect m_content;
};

} // namespace quarvelle

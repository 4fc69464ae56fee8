#include "print/SheetLayout.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <tuple>

#include "board/Board.h"
#include "board/BoardGeometry.h"
#include "engine/ProgramState.h"
#include "widgets/Fonts.h"

namespace quarvelle {

namespace {

constexpr int margin = 8;
/// Between two squares: clearly more than between a number and its grid line, less than a cell.
constexpr int gap = 16;
/// From a board down to its note, and to the note's lower edge: a note is nearer to its own board than to the
/// next.
constexpr int noteInset = 1;
constexpr int noteBottom = 13;
/// Digits in a larger cell would look clumsy on the paper that people have.
constexpr double widestCell = 18;

QSize boardSize(const ProgramState& state) {
    return {static_cast<int>(state.cellWidth) * state.visibleColumns + 1, rowHeight * state.visibleRows + 1};
}

/// The board page inside its margins.
QRect surface(const ProgramState& state) {
    return {QPoint(margin, margin), QPoint(state.boardWidthLimit, state.boardHeightLimit)};
}

/// How many boards of `size` pixels fit into `room` pixels; 1 even if none does.
int boardsThatFit(int size, int room) {
    return std::max(1, (room + gap) / (size + gap));
}

double scaleToFit(const QRect& area, QSizeF room) {
    return std::min(room.width() / area.width(), room.height() / area.height());
}

/// The right edge of the widest label.
int labelRight(int cellWidth, const Pieces& pieces) {
    const QString label = QString("%1,%2").arg(pieces.across()).arg(pieces.down());
    return margin + pieceLabelInset(cellWidth, pieces) +
           static_cast<int>(std::ceil(QFontMetricsF(boardFont()).horizontalAdvance(label)));
}

} // namespace

SheetLayout::SheetLayout(const ProgramState& state, int squares, QSizeF room) : m_board(boardSize(state)) {
    if (const Pieces pieces(state); pieces.count() > 1) {
        m_content = QRect(place(0), m_board);
        m_content.setRight(labelRight(static_cast<int>(state.cellWidth), pieces));
        m_scale = scaleToFit(surface(state) | m_content, room);
        return;
    }
    const double largest = std::max(widestCell / state.cellWidth, scaleToFit(surface(state), room));
    const auto merits = [&](int columns) {
        const int rows = (squares + columns - 1) / columns;
        const double scale = std::min(largest, scaleToFit(contentOf(columns, rows), room));
        return std::tuple(scale, -columns * rows, columns);
    };
    for (int columns = 2; columns <= squares; ++columns)
        if (merits(columns) > merits(m_columns))
            m_columns = columns;
    m_content = contentOf(m_columns, (squares + m_columns - 1) / m_columns);
    m_scale = std::get<0>(merits(m_columns));
}

int SheetLayout::squaresThatFit(const ProgramState& state) {
    if (Pieces(state).count() > 1)
        return 1;
    const QSize board = boardSize(state);
    return boardsThatFit(board.width(), surface(state).width()) *
           boardsThatFit(board.height(), surface(state).height());
}

QPoint SheetLayout::place(int index) const {
    return {margin + index % m_columns * (m_board.width() + gap),
            margin + index / m_columns * (m_board.height() + gap)};
}

int SheetLayout::noteTop(int top) const {
    return top + m_board.height() + noteInset;
}

QRect SheetLayout::contentOf(int columns, int rows) const {
    return {margin, margin, columns * (m_board.width() + gap) - gap,
            rows * (m_board.height() + gap) - gap + noteBottom};
}

} // namespace quarvelle

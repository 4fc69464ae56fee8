#include "print/SheetLayout.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "engine/BoardGeometry.h"
#include "engine/ProgramState.h"
#include "practice/Board.h"
#include "ui/Fonts.h"

namespace quarvelle {

namespace {

constexpr int margin = 8;
/// Between two squares: clearly more than the gap between a number and its grid, less than a number's cell.
constexpr int gap = 16;

/// How many boards of `size` pixels fit from the margin to `limit`.
int boardsThatFit(int size, int limit) {
    return std::max(1, (limit + 1 - margin + gap) / (size + gap));
}

/// Right edge of the label with the most digits.
int labelRight(const ProgramState& state) {
    const QString label = QString("%1,%2").arg(piecesAcross(state)).arg(piecesDown(state));
    return pieceLabelLeft(state) +
           static_cast<int>(std::ceil(QFontMetricsF(boardFont()).horizontalAdvance(label)));
}

} // namespace

SheetLayout::SheetLayout(const ProgramState& state)
    : m_board(static_cast<int>(state.cellWidth) * state.visibleColumns + 1,
              rowHeight * state.visibleRows + 1),
      m_frame(QPoint(margin, margin), QPoint(state.boardWidthLimit, state.boardHeightLimit)) {
    if (isInPieces(state)) {
        m_content = QRect(place(0), m_board);
        m_content.setRight(labelRight(state));
        m_frame |= m_content;
        return;
    }
    m_columns = boardsThatFit(m_board.width(), state.boardWidthLimit);
    m_rows = boardsThatFit(m_board.height(), state.boardHeightLimit);
    m_content = QRect(place(0), m_board) | QRect(place(squares() - 1), m_board);
}

QPoint SheetLayout::place(int index) const {
    return {margin + index % m_columns * (m_board.width() + gap),
            margin + index / m_columns * (m_board.height() + gap)};
}

} // namespace quarvelle

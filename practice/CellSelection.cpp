#include "practice/CellSelection.h"

#include "board/BoardGeometry.h"
#include "engine/LineKinds.h"
#include "board/BoardPage.h"
#include "ui/MainWindow.h"

namespace quarvelle {

bool CellSelection::mayAnswer() const {
    const ProgramState& state = m_window.state();
    return state.practising == 1 && state.stopRequested == Request::playing && state.answering == 1;
}

bool CellSelection::isBlank(Cell cell) const {
    return quarvelle::isBlank(cellAt(m_window.state().puzzle, cell));
}

Cell CellSelection::cell() const {
    return {m_window.state().selectedRow, m_window.state().selectedColumn};
}

Cell CellSelection::neighbour(Cell from, Step step) const {
    return wrapped(from + step, m_window.state().squareSize);
}

Cell CellSelection::blankTowards(Cell from, Step step) const {
    Cell found = from;
    do
        found = neighbour(found, step);
    while (found != from && !isBlank(found));
    return found;
}

Cell CellSelection::blankInReadingOrder(Cell from, int step) const {
    // The first index runs across the screen.
    const int n = m_window.state().squareSize;
    Cell found = from;
    do {
        const int place = ((found.column - 1) * n + found.row - 1 + step + n * n) % (n * n);
        found = {place % n + 1, place / n + 1};
    } while (found != from && !isBlank(found));
    return found;
}

Cell CellSelection::firstBlank() const {
    const int n = m_window.state().squareSize;
    return blankInReadingOrder({n, n}, 1);
}

Cell CellSelection::lastBlank() const {
    return blankInReadingOrder({1, 1}, -1);
}

void CellSelection::start() {
    m_window.boardPage().beginPuzzle();
    moveTo(firstBlank());
    m_window.boardPage().takeKeyboard();
}

void CellSelection::moveTo(Cell cell) {
    ProgramState& state = m_window.state();
    state.selectedRow = cell.row;
    state.selectedColumn = cell.column;
    state.selectedCellX = state.boardLeft + (cell.row - 1) * static_cast<int>(state.cellWidth);
    state.selectedCellY = state.boardTop + (cell.column - 1) * rowHeight;
    BoardPage& board = m_window.boardPage();
    const QRect area = board.shown(board.cellArea(cell.row, cell.column)).toRect();
    const QPoint middle = board.mapTo(m_window.menus().pages, area.center());
    m_window.menus().client->ensureVisible(middle.x(), middle.y(), area.width(), area.height());
    board.markSelectedCell();
}

void CellSelection::openBox() {
    m_window.boardPage().openAnswerBox(m_window.state().selectedCellX, m_window.state().selectedCellY);
}

void CellSelection::leaveBox() {
    // While the box still has the keyboard: hidden, it would hand it to some other control first.
    m_window.boardPage().takeKeyboard();
    m_window.boardPage().closeAnswerBox();
}

} // namespace quarvelle

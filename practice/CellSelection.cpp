#include "practice/CellSelection.h"

#include "board/BoardPage.h"
#include "engine/LineKinds.h"
#include "ui/MainWindow.h"

namespace quarvelle {

bool CellSelection::mayAnswer() const {
    const ProgramState& state = m_window.state();
    return state.practising == 1 && state.stopRequested == Request::playing && state.answering == 1;
}

bool CellSelection::isBlank(Place place) const {
    return quarvelle::isBlank(cellAt(m_window.state().puzzle, cellOf(place)));
}

Place CellSelection::place() const {
    return selectedPlace(m_window.state());
}

Place CellSelection::neighbour(Place from, Way way) const {
    const int n = m_window.state().squareSize;
    return {wrapped(from.across + way.across, n), wrapped(from.down + way.down, n)};
}

Place CellSelection::blankTowards(Place from, Way way) const {
    Place found = from;
    do
        found = neighbour(found, way);
    while (found != from && !isBlank(found));
    return found;
}

Place CellSelection::blankInReadingOrder(Place from, int step) const {
    const int n = m_window.state().squareSize;
    Place found = from;
    do {
        const int index = ((found.down - 1) * n + found.across - 1 + step + n * n) % (n * n);
        found = {index % n + 1, index / n + 1};
    } while (found != from && !isBlank(found));
    return found;
}

Place CellSelection::firstBlank() const {
    const int n = m_window.state().squareSize;
    return blankInReadingOrder({n, n}, 1);
}

Place CellSelection::lastBlank() const {
    return blankInReadingOrder({1, 1}, -1);
}

void CellSelection::start() {
    m_window.boardPage().beginPuzzle();
    moveTo(firstBlank());
    m_window.boardPage().setFocus();
}

void CellSelection::moveTo(Place place) {
    ProgramState& state = m_window.state();
    BoardPage& board = m_window.boardPage();
    if (place != selectedPlace(state))
        board.clearLine();
    selectPlace(state, place);
    const QRect area = board.cellArea(place);
    state.selectedCellX = area.left();
    state.selectedCellY = area.top();
    showPlace();
    board.markSelectedCell();
}

/// Scrolls to the selected cell.
void CellSelection::showPlace() const {
    const BoardPage& board = m_window.boardPage();
    m_window.scrollTo(board, board.shown(board.cellArea(place())).toRect());
}

void CellSelection::openBox() {
    m_window.boardPage().openAnswerBox();
    showPlace();
}

void CellSelection::leaveBox() {
    // Before the box is hidden: hiding it would first give the keyboard to some other control.
    m_window.boardPage().setFocus();
    m_window.boardPage().closeAnswerBox();
}

} // namespace quarvelle

#include "practice/AnswerEntry.h"

#include "board/BoardGeometry.h"
#include "engine/LineKinds.h"
#include "engine/Numbers.h"
#include "board/Board.h"
#include "practice/Titles.h"
#include "board/BoardPage.h"
#include "widgets/KeyCodes.h"
#include "ui/MainWindow.h"

namespace quarvelle {

namespace {

/// An answer is written from a pixel left of its cell on, after the place of a sign: its digits keep off the
/// grid line and stand in line with the numbers printed above and below.
constexpr int signPlace = 3;

/// Which cell from 1 to `n` a coordinate lies in; 0 for none. A grid line belongs to the cell that follows
/// it.
int cellOf(int coordinate, int origin, int cellSize, int n) {
    if (coordinate < origin || coordinate >= origin + n * cellSize)
        return 0;
    return (coordinate - origin) / cellSize + 1;
}

} // namespace

AnswerEntry::AnswerEntry(MainWindow& window) : QObject(&window), m_window(window), m_selection(window) {
    connect(&window.boardPage(), &DrawingSurface::pressed, this, &AnswerEntry::Form_MouseDown);
    connect(&window.boardPage().answerBox(), &EntryBox::keyPressed, this,
            [this](int keyCode) { Text6_KeyDown(keyCode, 0); });
}

void AnswerEntry::Form_MouseDown(int, int, int x, int y) {
    ProgramState& state = m_window.state();
    if (state.practising != 1)
        return;
    const int cellWidth = static_cast<int>(state.cellWidth);
    const int row = cellOf(x, state.boardLeft, cellWidth, state.squareSize);
    const int column = cellOf(y, state.boardTop, rowHeight, state.squareSize);
    if (row == 0 || column == 0)
        return;
    const Cell cell{row, column};
    const bool boxIsHere = cell == m_selection.cell() && m_window.boardPage().answerBox().isVisible();
    if (boxIsHere || !m_selection.mayAnswer() || !m_selection.isBlank(cell))
        return;
    m_selection.moveTo(cell);
    m_selection.openBox();
}

void AnswerEntry::Text6_KeyDown(int keyCode, int) {
    if (keyCode != KeyCode::enter)
        return;
    const double entry = m_window.boardPage().answerBox().number();
    if (isRight(entry))
        takeRightAnswer();
    else
        takeWrongAnswer(entry);
}

bool AnswerEntry::isRight(double entry) const {
    const ProgramState& state = m_window.state();
    const double answer = cellAt(state.square, {state.selectedRow, state.selectedColumn});
    // A number that needs more digits than a text has isn't the one that its text reads as.
    return numberText(entry) == numberText(answer);
}

void AnswerEntry::takeWrongAnswer(double entry) {
    ProgramState& state = m_window.state();
    EntryBox& box = m_window.boardPage().answerBox();
    if (entry != 0 || box.text() == "0") {
        ++state.numbersIncorrect;
        m_window.showTitle(scoreTitle(state));
        m_window.boardPage().announce(
            QString("%1 is wrong. Numbers incorrect: %2").arg(box.text()).arg(state.numbersIncorrect));
    }
    box.clear();
}

void AnswerEntry::takeRightAnswer() {
    ProgramState& state = m_window.state();
    const double answer = cellAt(state.square, {state.selectedRow, state.selectedColumn});
    cellAt(state.puzzle, {state.selectedRow, state.selectedColumn}) = answer;
    drawNumber(state, m_window.boardPage(), state.selectedCellX,
               state.selectedCellX - 1 + signPlace + signRoom(state, answer), state.selectedCellY + 3,
               answer);
    m_selection.leaveBox();
    m_window.boardPage().tellCellChanged();
    ++state.numbersCorrect;
    m_window.showTitle(scoreTitle(state));
    --state.remainingBlanks;
    m_window.boardPage().announce(QString("Right. Blanks left: %1").arg(state.remainingBlanks - 1));
}

} // namespace quarvelle

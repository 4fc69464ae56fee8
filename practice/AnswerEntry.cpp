#include "practice/AnswerEntry.h"

#include <QRegularExpression>

#include "board/Board.h"
#include "board/BoardPage.h"
#include "engine/LineKinds.h"
#include "engine/Numbers.h"
#include "practice/Titles.h"
#include "ui/MainWindow.h"
#include "widgets/KeyCodes.h"

namespace quarvelle {

namespace {

/// The pixels that an answer leaves for a sign, counted from one pixel left of its cell. So its digits stay
/// clear of the grid line, in line with the numbers above and below.
constexpr int signPlace = 3;

/// Whether what the text is read as stands there, and isn't 0 for lack of a number.
bool beginsWithNumber(const QString& text) {
    static const QRegularExpression number(R"(^\s*[+-]?\.?\d)");
    return number.match(text).hasMatch();
}

} // namespace

AnswerEntry::AnswerEntry(MainWindow& window) : QObject(&window), m_window(window), m_selection(window) {
    connect(&window.boardPage(), &DrawingSurface::pressed, this, &AnswerEntry::Form_MouseDown);
}

void AnswerEntry::Form_MouseDown(int, int, int x, int y) {
    if (m_window.state().practising != 1)
        return;
    const std::optional<Place> place = m_window.boardPage().placeAt({x, y});
    if (!place)
        return;
    const bool boxIsHere = *place == m_selection.place() && m_window.boardPage().answerBox().isVisible();
    if (boxIsHere || !m_selection.mayAnswer() || !m_selection.isBlank(*place))
        return;
    m_selection.moveTo(*place);
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
    const double answer = cellAt(m_window.state().square, cellOf(m_selection.place()));
    // Texts are compared because a number with more than 15 digits differs from what its text reads as.
    return numberText(entry) == numberText(answer);
}

void AnswerEntry::takeWrongAnswer(double entry) {
    ProgramState& state = m_window.state();
    EntryBox& box = m_window.boardPage().answerBox();
    const QString text = box.text();
    box.setProgramText({});
    if (entry != 0 || text == "0") {
        ++state.numbersIncorrect;
        m_window.showTitle(scoreTitle(state));
        m_window.tell(
            QString("%1 is wrong. Numbers incorrect: %2").arg(text, QString::number(state.numbersIncorrect)));
    } else {
        m_window.tell(beginsWithNumber(text) ? text + " is not counted" : "Not a number");
    }
}

void AnswerEntry::takeRightAnswer() {
    ProgramState& state = m_window.state();
    const Cell cell = cellOf(m_selection.place());
    const double answer = cellAt(state.square, cell);
    cellAt(state.puzzle, cell) = answer;
    const QPoint corner(state.selectedCellX, state.selectedCellY);
    const QPoint inset(signPlace - 1 + signRoom(state, answer), textInset.y());
    drawNumber(m_window.boardPage(), corner + inset, answer, corner.x(), static_cast<int>(state.cellWidth));
    m_selection.leaveBox();
    m_window.boardPage().clearLine();
    m_window.boardPage().tellCellChanged();
    ++state.numbersCorrect;
    m_window.showTitle(scoreTitle(state));
    --state.remainingBlanks;
    m_window.tell(QString("Right. Blanks left: %1").arg(state.remainingBlanks - 1));
}

} // namespace quarvelle

#include "practice/ShowLine.h"

#include <QAction>
#include <algorithm>

#include "board/BoardPage.h"
#include "engine/LinesInPlay.h"
#include "practice/LineTexts.h"
#include "ui/MainWindow.h"
#include "widgets/FootLine.h"

namespace quarvelle {

ShowLine::ShowLine(MainWindow& window) : QObject(&window), m_window(window), m_selection(window) {
    connect(&window.command("showline"), &QAction::triggered, this, &ShowLine::showline_Click);
}

void ShowLine::showline_Click() {
    if (!m_selection.mayAnswer())
        return;
    const ProgramState& state = m_window.state();
    const bool goesOn = m_window.boardPage().hasShadedLine();
    if (goesOn && !m_hasSum) {
        m_hasSum = true;
        tell();
        return;
    }
    if (!goesOn)
        goToGivenBlank();
    const std::vector<int> kinds = kindsThatGive(state, cellOf(m_selection.place()));
    // There is no blank when the last one has just been answered.
    if (!m_selection.isBlank(m_selection.place()) || kinds.empty())
        return;
    const auto next = std::upper_bound(kinds.begin(), kinds.end(), goesOn ? m_kind : 0);
    m_kind = next == kinds.end() ? kinds.front() : *next;
    m_hasSum = false;
    m_window.boardPage().shadeLine(placesOnLine(state, m_kind, m_selection.place()));
    tell();
}

/// Moves the mark, unless it is on such a blank.
void ShowLine::goToGivenBlank() {
    const Cell marked = cellOf(m_selection.place());
    if (m_selection.isBlank(m_selection.place()) && !kindsThatGive(m_window.state(), marked).empty())
        return;
    if (const std::optional<Cell> next = nextGivenBlank(m_window.state(), marked)) {
        m_selection.leaveBox();
        m_selection.moveTo(placeOf(*next));
    }
}

void ShowLine::tell() const {
    const ProgramState& state = m_window.state();
    const std::vector<Place> line = placesOnLine(state, m_kind, m_selection.place());
    const QString name = lineName(state, m_kind, m_selection.place());
    const QString spoken = name + ": " + lineNumbers(state, line);
    if (m_hasSum)
        m_window.tell(shownSum(name, line), spoken + ". " + spokenSum(state, line));
    else
        m_window.tell(name, spoken);
}

/// With the line's name, if the window is wide enough for that.
QString ShowLine::shownSum(const QString& name, const std::vector<Place>& line) const {
    const ProgramState& state = m_window.state();
    const FootLine& foot = m_window.foot();
    const QFontMetrics metrics = foot.fontMetrics();
    const QString begin = name + ": ";
    const QString named =
        begin + lineSum(state, line, metrics, foot.messageRoom() - metrics.horizontalAdvance(begin));
    return metrics.horizontalAdvance(named) <= foot.messageRoom()
               ? named
               : lineSum(state, line, metrics, foot.messageRoom());
}

} // namespace quarvelle

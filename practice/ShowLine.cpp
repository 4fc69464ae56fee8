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
    // An answer elsewhere may have brought in another line since, but none goes before the blank is found.
    const std::vector<int> kinds = kindsThatGive(state, cellOf(m_selection.place()));
    if (kinds.empty())
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
    const QString name = lineName(state, m_kind, m_selection.place()) + (m_hasSum ? ": " : "");
    const QString spoken = lineName(state, m_kind, m_selection.place()) + ": " + lineNumbers(state, line);
    const FootLine& foot = m_window.foot();
    const int room = foot.messageRoom() - foot.fontMetrics().horizontalAdvance(name);
    m_window.tell(m_hasSum ? name + lineSum(state, line, foot.fontMetrics(), room) : name,
                  m_hasSum ? spoken + ". " + spokenSum(state, line) : spoken);
}

} // namespace quarvelle

#include "print/Sheets.h"

#include "engine/EventQueue.h"
#include "engine/ProgramState.h"
#include "practice/Board.h"
#include "ui/DrawingSurface.h"

namespace quarvelle {

namespace {

void drawView(ProgramState& state, Canvas& canvas, int showAnswers) {
    state.showAnswers = showAnswers;
    showsquare(state, canvas);
}

} // namespace

Sheets::Sheets(ProgramState& state, DrawingSurface& surface, PrintJob& job, EventQueue& events)
    : m_state(state), m_surface(surface), m_job(job), m_events(events), m_layout(state) {}

QString Sheets::add() {
    const int across = piecesAcross(m_state);
    const int pieces = across * piecesDown(m_state);
    for (int piece = 0; piece < pieces; ++piece) {
        if (piece > 0) {
            m_events.yield();
            if (m_state.stopRequested == Request::stop)
                break;
        }
        m_state.pageColumn = piece % across + 1;
        m_state.pageRow = piece / across + 1;
        draw();
        QString failure = m_filled == m_layout.squares() ? printSheet() : QString();
        if (!failure.isEmpty())
            return failure;
    }
    return {};
}

void Sheets::draw() {
    const QPoint place = m_layout.place(m_filled);
    m_state.boardLeft = place.x();
    m_state.boardTop = place.y();
    if (m_state.puzzleMode == PuzzleMode::both)
        drawView(m_state, m_answers, 1);
    drawView(m_state, m_surface, m_state.puzzleMode == PuzzleMode::answers ? 1 : 0);
    ++m_filled;
}

QString Sheets::printRest() {
    return m_filled > 0 ? printSheet() : QString();
}

QString Sheets::printSheet() {
    const bool puzzles = m_state.puzzleMode != PuzzleMode::answers;
    QString failure = printView(m_surface.drawing(), puzzles ? "Puzzles" : "Squares");
    if (failure.isEmpty() && m_state.puzzleMode == PuzzleMode::both)
        failure = printView(m_answers, "Answers");
    m_surface.clear();
    m_answers.clear();
    m_filled = 0;
    ++m_sheet;
    return failure;
}

QString Sheets::printView(const Drawing& drawing, const char* name) {
    return m_job.print(
        Sheet{drawing, m_layout.frame(), m_layout.content(), QString("%1, sheet %2").arg(name).arg(m_sheet)});
}

} // namespace quarvelle

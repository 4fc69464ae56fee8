#include "print/Sheets.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "board/Board.h"
#include "board/BoardPage.h"
#include "engine/EventQueue.h"
#include "engine/ProgramState.h"
#include "print/BatchTexts.h"
#include "print/SheetPainter.h"
#include "ui/MainWindow.h"
#include "widgets/FootLine.h"

namespace quarvelle {

namespace {

constexpr int largestInt = std::numeric_limits<int>::max();

int viewsOf(const ProgramState& state) {
    return state.puzzleMode == PuzzleMode::both ? 2 : 1;
}

} // namespace

SheetPlan Sheets::planFor(const ProgramState& state) {
    const int sheetsOfBundle = Pieces(state).count() * viewsOf(state);
    // Few enough for an int to count the sheets, even if each square has its own.
    const int mostSquares = largestInt / sheetsOfBundle;
    const auto squares = static_cast<int>(std::min<double>(std::ceil(state.printCount), mostSquares));
    return {squares, SheetLayout::squaresThatFit(state), sheetsOfBundle};
}

Sheets::Sheets(MainWindow& window, const SheetPlan& plan, const PrintOrder& order, EventQueue& events)
    : m_window(window), m_state(window.state()), m_pieces(window.state()), m_plan(plan), m_order(order),
      m_events(events), m_layout(m_state, plan.mostSquares(), roomAboveCaption(order.paper)),
      m_first(std::max(1, order.firstSheet)), m_last(std::min(order.lastSheet, plan.sheets())),
      m_bundle(plan.bundleOf(order.backwards ? m_last : m_first)),
      m_bundlesLeft(m_first > m_last ? 0 : plan.bundleOf(m_last) - plan.bundleOf(m_first) + 1) {
    m_window.boardPage().makeRoomFor(m_layout.content());
    m_window.foot().beginSheets(static_cast<int>(std::min<std::int64_t>(ordered(), largestInt)));
}

Sheets::~Sheets() {
    m_window.foot().endSheets();
}

std::int64_t Sheets::ordered() const {
    return std::int64_t{std::max(0, m_last - m_first + 1)} * m_order.copies;
}

QString Sheets::add() {
    const QString note = squareNote(m_state, m_plan.firstSquareOf(m_bundle) + m_placed);
    QString failure;
    if (m_pieces.count() > 1) {
        failure = addPieces(note);
    } else {
        if (m_placed == 0)
            clear();
        const QPoint corner = m_layout.place(m_placed);
        writeNote(corner, note);
        draw(corner, m_pieces.at({1, 1}));
        if (m_placed + 1 == m_plan.squaresOf(m_bundle))
            failure = printSheets(m_plan.firstSheetOf(m_bundle));
    }
    if (++m_placed == m_plan.squaresOf(m_bundle)) {
        m_bundle += m_order.backwards ? -1 : 1;
        --m_bundlesLeft;
        m_placed = 0;
    }
    return failure;
}

QString Sheets::addPieces(const QString& note) {
    const int pieces = m_pieces.count();
    QString failure;
    for (int turn = 0; turn < pieces && failure.isEmpty(); ++turn) {
        if (turn > 0 && isStopped())
            break;
        const int index = inOrder(turn, pieces);
        const Place piece{index % m_pieces.across() + 1, index / m_pieces.across() + 1};
        const QPoint corner = m_layout.place(0);
        clear();
        writeLabel(corner, piece);
        draw(corner, m_pieces.at(piece));
        failure = printSheets(m_plan.firstSheetOf(m_bundle) + index * viewsOf(m_state), note);
    }
    return failure;
}

int Sheets::inOrder(int turn, int turns) const {
    return m_order.backwards ? turns - 1 - turn : turn;
}

void Sheets::clear() {
    m_window.boardPage().clear();
    m_answers.clear();
}

std::vector<Canvas*> Sheets::canvases() {
    std::vector<Canvas*> canvases{&m_window.boardPage()};
    if (m_state.puzzleMode == PuzzleMode::both)
        canvases.push_back(&m_answers);
    return canvases;
}

void Sheets::writeNote(QPoint corner, const QString& note) {
    for (Canvas* canvas : canvases())
        canvas->drawNote(corner.x(), m_layout.noteTop(corner.y()), note, m_layout.boardWidth());
}

void Sheets::writeLabel(QPoint corner, Place piece) {
    for (Canvas* canvas : canvases())
        drawPieceLabel(*canvas, corner, static_cast<int>(m_state.cellWidth), m_pieces, piece);
}

void Sheets::draw(QPoint corner, const Piece& piece) {
    const SquareShown square = shownSquare(m_state);
    const View first = m_state.puzzleMode == PuzzleMode::answers ? View::answers : View::puzzle;
    drawBoard(m_window.boardPage(), corner, square, piece, first);
    if (m_state.puzzleMode == PuzzleMode::both)
        drawBoard(m_answers, corner, square, piece,
                  m_state.highlightAnswers == 1 ? View::shadedAnswers : View::answers);
}

QString Sheets::printSheets(int sheet, const QString& note) {
    const bool squares = m_state.puzzleMode == PuzzleMode::answers;
    const bool drawsStarts = note.isEmpty() && m_state.randomStarts;
    const int views = viewsOf(m_state);
    QString failure;
    for (int turn = 0; turn < views && failure.isEmpty(); ++turn) {
        const int view = inOrder(turn, views);
        if (sheet + view < m_first || sheet + view > m_last)
            continue;
        const char* const name = squares ? "Squares" : view == 0 ? "Puzzles" : "Answers";
        QStringList contents{QString("%1, sheet %2").arg(name).arg((sheet - 1) / views + 1)};
        if (!note.isEmpty())
            contents << note;
        const QString caption = sheetCaption(m_state, contents, drawsStarts, m_order.date);
        const Drawing& drawing = view == 0 ? m_window.boardPage().drawing() : m_answers;
        failure = print(drawing, caption, m_order.collated ? 1 : m_order.copies);
        if (m_order.collated && m_order.copies > 1)
            m_kept.push_back({drawing, caption});
    }
    return failure;
}

QString Sheets::print(const Drawing& drawing, const QString& caption, int times) {
    QString failure;
    for (int time = 0; time < times && failure.isEmpty(); ++time) {
        // Only copies ask for a new stop: handling events between the sheets of a bundle could part them.
        if (m_state.stopRequested == Request::stop || (time > 0 && isStopped()))
            break;
        failure = m_order.job->print(Sheet{drawing, m_layout.content(), m_layout.scale(), caption});
        m_window.foot().showDone(static_cast<int>(std::min<std::int64_t>(++m_printed, largestInt)));
    }
    return failure;
}

QString Sheets::printCopies() {
    for (int copy = 1; copy < m_order.copies; ++copy)
        for (const KeptSheet& kept : m_kept) {
            if (isStopped())
                return {};
            QString failure = print(kept.drawing, kept.caption, 1);
            if (!failure.isEmpty())
                return failure;
        }
    return {};
}

bool Sheets::isStopped() {
    m_events.yield();
    return m_state.stopRequested == Request::stop;
}

} // namespace quarvelle

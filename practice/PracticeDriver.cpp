#include "practice/PracticeDriver.h"

#include "board/Board.h"
#include "board/BoardGeometry.h"
#include "board/BoardPage.h"
#include "engine/BlankSelection.h"
#include "engine/Construction.h"
#include "engine/EventQueue.h"
#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/StartNumber.h"
#include "practice/CellSelection.h"
#include "practice/Titles.h"
#include "ui/MainPage.h"
#include "ui/MainWindow.h"
#include "ui/Pages.h"
#include "ui/PropertiesPage.h"
#include "ui/RunSettings.h"

namespace quarvelle {

namespace {

QStringList textsOfNumbers(const ProgramState& state) {
    const int n = state.squareSize;
    QStringList texts;
    for (int down = 1; down <= n; ++down)
        for (int across = 1; across <= n; ++across)
            texts << QString::fromStdString(numberText(cellAt(state.square, cellOf({across, down}))));
    return texts;
}

} // namespace

PracticeDriver::PracticeDriver(MainWindow& window, RandomSource& random, EventQueue& events)
    : QObject(&window), m_window(window), m_random(random), m_events(events) {
    connect(window.mainPage().controls().Command4, &QPushButton::clicked, this,
            &PracticeDriver::Command4_Click);
}

void PracticeDriver::Command4_Click() {
    openRun();
    // Reading the settings may have changed the distance, so that the board doesn't fit.
    const bool isPossible =
        boardGeometry(m_window.state()).hasAllCells && hasPlayableNumbers(m_window.state());
    while (isPossible && playSquare()) {
    }
    closeRun();
    if (!isPossible)
        m_window.tell("There is nothing to practise. " + m_window.mainPage().whyNoPractice());
}

void PracticeDriver::openRun() {
    ProgramState& state = m_window.state();
    m_solved = false;
    state.practising = 1;
    state.savedPuzzleMode = state.puzzleMode;
    state.puzzleMode = PuzzleMode::puzzles;
    state.numbersCorrect = state.numbersIncorrect = state.squaresSolved = 0;
    readRunSettings(state, m_window.mainPage(), m_window.propertiesPage());
    state.stopRequested = Request::none;
    resetPosition(state);
    m_window.boardPage().clear();
    m_window.boardPage().makeRoomFor(boardArea({state.boardLeft, state.boardTop},
                                               static_cast<int>(state.cellWidth), Pieces(state).at({1, 1})));
    m_window.pages().show(Page::board);
    m_window.present();
    state.baseStart = state.startNumber;
}

/// Returns false when the run is to end.
bool PracticeDriver::playSquare() {
    if (!makePuzzle())
        return false;
    showPuzzle();
    if (!waitForPlayer())
        return false;
    closeSquare();
    return true;
}

/// Builds the next square and chooses its blanks. Returns false when stopped.
bool PracticeDriver::makePuzzle() {
    ProgramState& state = m_window.state();
    drawStartNumber(state, m_random);
    m_window.showTitle(constructionTitle(state));
    buildCompleteSquare(state, m_random, m_events);
    if (state.stopRequested == Request::stop)
        return false;
    state.showAnswers = 0;
    selectBlanks(state, m_random, m_events);
    return state.stopRequested != Request::stop;
}

void PracticeDriver::showPuzzle() {
    ProgramState& state = m_window.state();
    BoardPage& board = m_window.boardPage();
    board.fitAnswerBox(static_cast<int>(state.cellWidth), textsOfNumbers(state),
                       {textInset, signRoom(state, 0)});
    showsquare(state, board);
    state.remainingBlanks = state.placeIndex;
    m_window.showTitle(scoreTitle(state));
    state.answering = 1;
    CellSelection(m_window).start();
    m_window.tell(QString("%1New square of %2 by %2. Blanks: %3")
                      .arg(m_solved ? "Solved. " : "")
                      .arg(state.squareSize)
                      .arg(state.remainingBlanks - 1));
}

/// Sleeps between events until the square is solved or abandoned. Returns false when stopped.
bool PracticeDriver::waitForPlayer() {
    const ProgramState& state = m_window.state();
    // A puzzle without blanks never waits, so this is its only chance to handle events.
    m_events.yield();
    while (state.stopRequested != Request::stop) {
        if (state.remainingBlanks <= 1 || state.stopRequested == Request::abandon)
            return true;
        m_events.wait();
    }
    return false;
}

void PracticeDriver::closeSquare() {
    ProgramState& state = m_window.state();
    state.answering = 0;
    m_window.boardPage().endPuzzle();
    m_window.boardPage().clear();
    resetPosition(state);
    state.showAnswers = 1;
    m_solved = state.stopRequested != Request::abandon;
    if (m_solved)
        ++state.squaresSolved;
    state.stopRequested = Request::none;
    m_window.showTitle(scoreTitle(state));
}

void PracticeDriver::closeRun() {
    ProgramState& state = m_window.state();
    state.startNumber = state.baseStart;
    state.practising = state.answering = 0;
    m_window.boardPage().endPuzzle();
    state.puzzleMode = state.savedPuzzleMode;
    resetPosition(state);
    m_window.boardPage().clear();
    m_window.setWindowTitle("Quarvelle");
    m_window.pages().returnToMain();
    m_window.mainPage().focusPractice();
}

} // namespace quarvelle

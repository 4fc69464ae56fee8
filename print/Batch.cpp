#include "print/Batch.h"

#include <algorithm>
#include <limits>

#include "engine/BoardGeometry.h"
#include "engine/Construction.h"
#include "engine/EventQueue.h"
#include "engine/MagicArithmetic.h"
#include "practice/BlankSelection.h"
#include "practice/Board.h"
#include "practice/RunSettings.h"
#include "print/BatchTitle.h"
#include "print/Printer.h"
#include "print/Sheets.h"
#include "ui/BoardPage.h"
#include "ui/MainPage.h"
#include "ui/MainWindow.h"
#include "ui/Pages.h"
#include "ui/PropertiesPage.h"

namespace quarvelle {

Batch::Batch(MainWindow& window, RandomSource& random, EventQueue& events, Printer& printer)
    : QObject(&window), m_window(window), m_random(random), m_events(events), m_printer(printer) {
    connect(window.mainPage().controls().Command1, &QPushButton::clicked, this, &Batch::Command1_Click);
}

void Batch::Command1_Click() {
    ProgramState& state = m_window.state();
    if (state.squareSize > maxBatchOrder)
        return;
    mainsub1();
    QString failure;
    // Tidying may have brought in other numbers.
    if (state.printCount > 0 && hasPlayableNumbers(state))
        if (const auto job = m_printer.choose(QString("Quarvelle %1 by %1").arg(state.squareSize)))
            failure = printSquares(*job);
    closeBatch();
    // A window that was closed meanwhile has ended the program.
    if (!failure.isEmpty() && m_window.isVisible())
        m_printer.tellFailure(failure);
}

void Batch::mainsub1() {
    ProgramState& state = m_window.state();
    MainPage& page = m_window.mainPage();
    state.practising = 0;
    // Asked of the boxes again as in practice: the shapes of 5 by 5 squares take no part in other sizes.
    m_window.propertiesPage().readPairs();
    tidyRandomStarts(page);
    readNumbers(state, page);
    measureBoard(state);
    readCounts(state, page);
    state.squaresSolved = 0;
    // A stop key pressed earlier was not meant for this batch.
    state.stopRequested = Request::none;
    m_window.boardPage().clear();
    m_window.setWindowTitle(QString::fromStdString(batchTitle(state)));
    Pages::show(m_window, Page::board);
    m_window.present();
    resetPosition(state);
    state.baseStart = state.startNumber;
}

/// Returns why printing failed, or an empty text.
QString Batch::printSquares(PrintJob& job) {
    ProgramState& state = m_window.state();
    Sheets sheets(state, m_window.boardPage(), job, m_events);
    const double count = std::min<double>(state.printCount, std::numeric_limits<int>::max());
    QString failure = job.begin();
    while (failure.isEmpty() && state.squaresSolved < count) {
        if (isStopped() || !makeSquare())
            return job.finish();
        failure = sheets.add();
        if (state.stopRequested == Request::stop)
            continue;
        ++state.squaresSolved;
        m_window.showTitle(batchTitle(state));
    }
    if (failure.isEmpty())
        failure = sheets.printRest();
    return failure.isEmpty() ? job.finish() : failure;
}

/// Returns false when stopped.
bool Batch::makeSquare() {
    ProgramState& state = m_window.state();
    if (m_window.mainPage().controls().Check1->isChecked())
        drawStartNumber(state, m_window.mainPage(), m_random);
    state.curRow = state.curCol = 1;
    buildCompleteSquare(state, m_random, m_events);
    if (state.stopRequested == Request::stop)
        return false;
    if (state.puzzleMode != PuzzleMode::answers)
        selectBlanks(state, m_random, m_events);
    return state.stopRequested != Request::stop;
}

bool Batch::isStopped() {
    m_events.yield();
    return m_window.state().stopRequested == Request::stop;
}

void Batch::closeBatch() {
    ProgramState& state = m_window.state();
    state.startNumber = state.baseStart;
    state.stopRequested = Request::none;
    resetPosition(state);
    m_window.boardPage().clear();
    m_window.setWindowTitle("Quarvelle");
    Pages::returnToMain(m_window);
    m_window.mainPage().controls().Command1->setFocus();
}

} // namespace quarvelle

#include "print/Batch.h"

#include <QAction>

#include "board/Board.h"
#include "board/BoardPage.h"
#include "engine/BlankSelection.h"
#include "engine/Construction.h"
#include "engine/EventQueue.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/StartNumber.h"
#include "print/BatchTexts.h"
#include "print/Printer.h"
#include "print/Sheets.h"
#include "ui/MainPage.h"
#include "ui/MainWindow.h"
#include "ui/Pages.h"
#include "ui/PropertiesPage.h"
#include "ui/RunSettings.h"
#include "widgets/FootLine.h"

namespace quarvelle {

Batch::Batch(MainWindow& window, RandomSource& random, EventQueue& events, Printer& printer)
    : QObject(&window), m_window(window), m_random(random), m_events(events), m_printer(printer) {
    connect(window.mainPage().controls().Command1, &QPushButton::clicked, this, &Batch::Command1_Click);
    connect(&window.command("aprinting"), &QAction::triggered, this, &Batch::aprinting_Click);
}

void Batch::Command1_Click() {
    const ProgramState& state = m_window.state();
    if (state.squareSize > maxBatchOrder)
        return;
    mainsub1();
    Outcome outcome;
    // Reading the settings may have changed the numbers.
    if (!(state.printCount > 0))
        outcome.message = "There is nothing to print: the number of squares to print is " +
                          QString::fromStdString(numberText(state.printCount)) + '.';
    else if (!hasPlayableNumbers(state))
        outcome.message = outOfRange(state);
    else
        outcome = print();
    closeBatch();
    // If the window was closed meanwhile, the program is ending.
    if (!m_window.isVisible())
        return;
    if (!outcome.message.isEmpty())
        m_printer.tell(outcome.message);
    else
        m_window.foot().say(outcome.ending);
}

void Batch::mainsub1() {
    ProgramState& state = m_window.state();
    state.practising = 0;
    readRunSettings(state, m_window.mainPage(), m_window.propertiesPage());
    state.squaresSolved = 0;
    // A stop key pressed earlier was not meant for this batch.
    state.stopRequested = Request::none;
    m_window.boardPage().clear();
    m_window.setWindowTitle(QString::fromStdString(batchTitle(state)));
    m_window.pages().show(Page::board);
    m_window.present();
    resetPosition(state);
    state.baseStart = state.startNumber;
}

void Batch::aprinting_Click() {
    m_window.state().stopRequested = Request::stop;
}

Batch::Outcome Batch::print() {
    const ProgramState& state = m_window.state();
    const SheetPlan plan = Sheets::planFor(state);
    const PrintOrder order =
        m_printer.choose(QString("Quarvelle %1 by %1").arg(state.squareSize), plan.sheets());
    if (!order.job)
        return {{}, "Cancelled"};
    Sheets sheets(m_window, plan, order, m_events);
    QString failure = order.job->begin();
    if (failure.isEmpty())
        failure = printSquares(sheets);
    if (failure.isEmpty())
        failure = order.job->finish();
    return {failure, batchEnding(sheets.printed(), sheets.ordered(), order)};
}

/// Returns why printing failed, or an empty text.
QString Batch::printSquares(Sheets& sheets) {
    ProgramState& state = m_window.state();
    QString failure;
    while (failure.isEmpty() && !sheets.isComplete()) {
        if (isStopped() || !makeSquare())
            return {};
        failure = sheets.add();
        if (state.stopRequested == Request::stop)
            continue;
        ++state.squaresSolved;
        m_window.showTitle(batchTitle(state));
    }
    return failure.isEmpty() ? sheets.printCopies() : failure;
}

/// Returns false when stopped.
bool Batch::makeSquare() {
    ProgramState& state = m_window.state();
    drawStartNumber(state, m_random);
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
    m_window.pages().returnToMain();
    m_window.mainPage().controls().Command1->setFocus();
}

} // namespace quarvelle

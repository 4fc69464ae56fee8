#pragma once

#include <QAccessible>

#include "engine/BoardGeometry.h"
#include "engine/MagicArithmetic.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

/// Looks at the whole window, at every page and in every run, for what must always hold.
class Inspector : public WindowFixture {
protected:
    long m_step = 0;
    std::string m_done;
    bool m_keepsScore = false; ///< practice goes on, and was not started over since the last look
    bool m_isSolved = false;   ///< the square had no open blank at the last look
    std::array<int, 3> m_score{};
    std::string m_title;
    int m_turns = 0;              ///< under this title
    int m_stops = 0;              ///< turns that left a run asked to stop
    std::size_t m_sheets = 0;     ///< at the last turn
    std::set<std::string> m_seen; ///< what was come across

    void expect(bool holds, const char* what, const QObject* where = nullptr) {
        EXPECT_TRUE(holds) << "step " << m_step << " (" << m_done << "): " << what << ' '
                           << (where ? where->objectName().toStdString() : "");
    }

    /// A puzzle is there to be answered.
    bool plays() {
        return state().practising == 1 && state().stopRequested == Request::playing &&
               title().starts_with("Number of");
    }
    std::array<int, 3> score() {
        return {state().squaresSolved, state().numbersCorrect, state().numbersIncorrect};
    }

    void watchTurn() {
        expect(m_stops < 2 && (window().isVisible() || m_stops == 1), "goes on after a stop");
        expect(m_stops > 0 || state().stopRequested != Request::stop, "stopped by an earlier key");
        if (title() != std::exchange(m_title, title()))
            m_turns = 0;
        // No square takes more passes than a scan for each of its cells.
        if (++m_turns > 5 * std::pow(state().squareSize, 4)) {
            expect(false, "no end in sight");
            state().stopRequested = Request::stop;
        }
    }

    void noteRequest() {
        const int request = state().stopRequested;
        m_stops = request == Request::stop ? m_stops + 1 : 0;
        m_sheets = printer.sheets.size();
        if (request == Request::stop || request == Request::abandon)
            m_seen.insert(title().substr(0, 6) + (window().isVisible() ? numberText(request) : " closed"));
    }

    void check() {
        checkPage();
        if (state().currentPage == Page::board)
            checkTidied();
        checkMarks();
        checkReadouts();
        checkBoard();
        for (std::size_t i = 0; i < m_score.size(); ++i) {
            // A run begins at 0, and an answer can't solve a square before the next look.
            const int least = m_keepsScore ? m_score[i] : 0, most = m_keepsScore ? INT_MAX : i != 0;
            expect(state().practising == 0 || (score()[i] >= least && score()[i] <= most), "wrong score");
        }
        expect(score()[0] <= m_score[0] || state().practising == 0 || m_isSolved, "a dropped square counts");
        m_score = score();
        m_keepsScore = state().practising == 1;
        m_isSolved = state().remainingBlanks <= 1;
        // What the toolkit has done with goes at the next turn of its own.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        expect(window().findChildren<QObject*>().size() < 200, "objects pile up");
    }

    void checkPage() {
        const int current = state().currentPage;
        const bool running = current == Page::board;
        m_seen.insert("page " + std::to_string(current));
        expect(menus().pages->currentIndex() == current, "another page is shown");
        expect(menus().options2->menuAction()->isVisible() == (current == Page::main), "wrong menus");
        expect(menus().options1->menuAction()->isVisible() == running, "wrong menus");
        for (QMenu* menu : {menus().printoptions, menus().puzzlemode, menus().size})
            expect(menu->menuAction()->isVisible() != running, "wrong menus");
        for (const QAction* item : menus().options1->actions())
            expect(!running || item->isVisible() == (state().practising != (item == menus().aprinting)),
                   "wrong menu");
        expect(running || state().practising == 0, "practice on another page");
        expect(running || menus().chooseproperties->isEnabled() == (current == Page::main), "wrong menu");
        expect(running || title() == "Quarvelle", "keeps a run's title");
        expect(state().practising == 0 || title()[0] == 'N' || title().ends_with(" Square (with blanks)"),
               "wrong title");
        if (running || printer.steps == 0)
            return;
        const bool failed = printer.failingStep > 0 && printer.steps >= printer.failingStep;
        const auto steps = failed ? printer.failingStep : 2 + std::ssize(printer.sheets);
        expect(printer.failuresTold == failed && printer.steps == steps, "ended wrongly");
        expect(m_stops == 0 || printer.sheets.size() == m_sheets, "printed after a stop");
        printer.steps = 0;
        m_seen.insert(failed ? "failed batch" : "batch");
    }

    /// What a run has made of the boxes.
    void checkTidied() {
        for (const EntryBox* box : {page().Text1, page().Text2, page().Text3, page().text4, page().Text5})
            expect(box->text().toStdString() == numberText(box->number()), "is not tidied", box);
        expect(page().Text2->number() == state().squareSize && page().Text5->number() == state().distance &&
                   page().Text3->number() >= 1 && state().distance > 0,
               "runs with other numbers than it shows");
        const double steps = state().startNumber - state().baseStart;
        const double limit = page().Check1->isChecked() ? page().Text7->number() : 1;
        const double rounding = 1e-9 * (1 + std::fabs(state().baseStart));
        expect(steps < limit && std::fabs(steps - std::round(steps)) <= rounding, "wrong start");
        expect(std::fabs(state().startNumber) > 1e6 ||
                   leadingNumber(numberText(state().startNumber)) == state().startNumber,
               "starts with a rounding error");
    }

    void checkMarks() {
        const int puzzleMode = state().practising == 1 ? state().savedPuzzleMode : state().puzzleMode;
        for (const auto& [item, marked] : std::initializer_list<std::pair<QAction*, bool>>{
                 {menus().panswers, puzzleMode == PuzzleMode::answers},
                 {menus().ppuzzles, puzzleMode == PuzzleMode::puzzles},
                 {menus().pboth, puzzleMode == PuzzleMode::both},
                 {menus().highlighted, state().highlightAnswers == 1},
                 {menus().nhighlighted, state().highlightAnswers == 0},
                 {menus().easy, state().difficulty == Difficulty::easy},
                 {menus().challenging, state().difficulty == Difficulty::challenging}})
            expect(item->isChecked() == marked, "disagrees with its field", item);
        expect(std::ranges::count_if(menus().size->actions(), &QAction::isChecked) == 1, "not one size");
        expect(properties().Check2->isChecked() == state().mainDiagonalsAndLines, "wrong line option");
        expect(properties().Check3->isChecked() == state().allDiagonals, "wrong line option");
        for (const PropertyPair& pair : propertyPairs) {
            const QCheckBox* all = properties().*pair.all;
            const int ticked = (properties().*pair.onlyMain)->isChecked() + 2 * all->isChecked();
            const int mode = state().*pair.mode;
            // A run with another size than 5 sets the mode aside.
            const bool asTicked = state().currentPage == Page::board && state().squareSize == 5;
            expect(ticked != 3 && (mode == ticked || (mode == 0 && !asTicked)), "disagrees", all);
        }
    }

    void checkReadouts() {
        const bool running = state().currentPage == Page::board;
        const int n = state().squareSize;
        const double start = running ? state().baseStart : state().startNumber;
        const std::string total = magicTotalCaption(numberText(magicTotal(n, start, state().distance)));
        expect(page().Label11->text().toStdString() == total, "wrong Magic Total");
        expect(page().Label18->text().toStdString() == lastNumberCaption(n, start, state().distance),
               "wrong last");
        expect(page().Label4->text().startsWith(QString("How many (%1 by %1) ").arg(n)), "wrong count");
        const BoardGeometry board = boardGeometry(n, start, state().distance, {753, 530});
        const bool fits = board.hasAllCells && hasPlayableNumbers(state());
        expect(running ? state().practising == 0 || fits
                       : page().Command4->isEnabled() == fits && page().Label19->isHidden() == fits,
               "wrong fit");
        expect(!running || (state().cellWidth == board.cellWidth && state().maxDigits == board.maxDigits &&
                            state().visibleColumns == board.visibleColumns),
               "another board than measured");
    }

    void checkBoard() {
        const Drawing& drawing = window().boardPage().drawing();
        expect(drawing.items().size() < 21000, "the drawing grows");
        if (!plays())
            return;
        const auto blanks = blanksOf(state());
        const int n = state().squareSize;
        const std::string order = numberText(n);
        expect(std::ssize(blanks) + 1 == state().remainingBlanks, "blanks are miscounted");
        expect(title() == "Number of (" + order + " by " + order + ") Complete Magic Square(s) solved: " +
                              numberText(score()[0]) + " / Numbers correct: " + numberText(score()[1]) +
                              " / Numbers incorrect: " + numberText(score()[2]),
               "wrong title");
        const bool answers = answerBox().isVisible();
        const QWidget* keyboard = answers ? &answerBox() : static_cast<QWidget*>(&window().boardPage());
        expect(window().focusWidget() == keyboard, "the keyboard is elsewhere");
        const Cell selected(state().selectedRow, state().selectedColumn);
        expect(cellAt(state().square, selected) < emptyMarker && (!answers || blanks.count(selected) != 0),
               "selects what is no cell, or answers what is no blank");
        // A large board has a thousand things to look at.
        if (n > 7 && m_step % 8 != 0)
            return;
        const auto boards = boardsOf(drawing, state());
        ASSERT_EQ(boards.size(), 1U);
        expect(boards[0].label.text.isEmpty(), "not one board");
        expect(std::ssize(boards[0].numbers) + std::ssize(blanks) == n * n, "wrong blanks");
        for (const auto& [cell, number] : boards[0].numbers)
            expect(number < emptyMarker && number == leadingNumber(numberText(cellAt(state().square, cell))),
                   "wrong number");
        auto* table = QAccessible::queryAccessibleInterface(&window().boardPage())->tableInterface();
        for (int row = 1; row <= n; ++row)
            for (int column = 1; column <= n; ++column) {
                const auto shown = boards[0].numbers.find({column, row});
                const std::string name =
                    shown == boards[0].numbers.end() ? "blank" : numberText(shown->second);
                expect(table->cellAt(row - 1, column - 1)->text(QAccessible::Name).toStdString() == name,
                       "a screen reader hears another number");
            }
    }
};

} // namespace quarvelle::testing

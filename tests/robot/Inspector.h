#pragma once

#include <QRegularExpression>

#include "board/BoardGeometry.h"
#include "engine/MagicArithmetic.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

/// Looks at the whole window, at every page and in every run, for what must always hold. The first thing that
/// doesn't hold is told and closes the window, which ends whatever runs in it.
class Inspector : public WindowFixture {
protected:
    long m_step = 0;
    std::string m_done;
    bool m_keepsScore = false; ///< practice goes on, and was not started over since the last look
    bool m_isSolved = false;   ///< the square had no open blank at the last look
    enum Count { solved, right, wrong };
    std::array<int, 3> m_score{}; ///< at the last look, by `Count`
    int m_stops = 0;              ///< turns that left a run asked to stop
    std::size_t m_sheets = 0;     ///< at the last turn
    std::set<std::string> m_seen; ///< what was come across

    void expect(bool holds, const auto& what) {
        if (holds || HasFailure())
            return;
        ADD_FAILURE() << "step " << m_step << " (" << m_done << "): " << what;
        window().close();
    }
    template <class Value>
    void expectEqual(const Value& seen, const std::type_identity_t<Value>& wanted, const char* what,
                     const QObject* where = nullptr) {
        if (!(seen == wanted))
            expect(false, what + (where ? " of " + where->objectName().toStdString() : "") + " is " +
                              ::testing::PrintToString(seen) + ", not " + ::testing::PrintToString(wanted));
    }

    /// A puzzle is there to be answered.
    bool plays() {
        return state().practising == 1 && state().stopRequested == Request::playing &&
               title().starts_with("Number of");
    }
    std::set<Place> blanks() {
        std::set<Place> found;
        for (int across = 1; across <= state().squareSize; ++across)
            for (int down = 1; down <= state().squareSize; ++down)
                if (cellAt(state().puzzle, cellOf({across, down})) >= emptyMarker)
                    found.insert({across, down});
        return found;
    }
    std::array<int, 3> score() {
        return {state().squaresSolved, state().numbersCorrect, state().numbersIncorrect};
    }

    void watchTurn() {
        expect(m_stops < 2 && (window().isVisible() || m_stops == 1), "goes on after a stop");
        expect(m_stops > 0 || state().stopRequested != Request::stop, "stopped by an earlier key");
    }

    void noteRequest() {
        const int request = state().stopRequested;
        m_stops = request == Request::stop ? m_stops + 1 : 0;
        m_sheets = printer.sheets.size();
        const char* const doing = state().practising == 0 ? "printing"
                                  : title()[0] == 'C'     ? "making"
                                                          : "playing";
        const char* const done = !window().isVisible() ? "closed " : m_stops > 0 ? "stopped " : "abandoned ";
        if (m_stops > 0 || request == Request::abandon)
            m_seen.insert(std::string(done) + doing);
    }

    void check() {
        checkPage();
        checkKeyboard();
        if (state().currentPage == Page::board)
            checkTidied();
        checkMarks();
        checkReadouts();
        checkScore();
        checkBoard();
        // What Qt has done with goes at the next turn of its own.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        expect(window().findChildren<QObject*>().size() < 200, "objects pile up");
    }

    void checkPage() {
        const int current = state().currentPage;
        const bool running = current == Page::board;
        const char* const names[] = {"main page", "board", "information page", "properties page"};
        m_seen.insert(names[current]);
        expectEqual(client()->currentIndex(), running && state().practising == 0 ? 4 : current,
                    "the page shown");
        const auto bar = window().menuBar()->actions();
        for (const auto& [name, offered] : {std::pair{"options2", current == Page::main},
                                            {"options1", running},
                                            {"printoptions", !running},
                                            {"puzzlemode", !running},
                                            {"size", !running}})
            expectEqual(bar.contains(menu(name)->menuAction()), offered, "the visibility", menu(name));
        for (const QAction* item : menu("options1")->actions())
            if (running)
                expectEqual(item->isVisible(), (item == command("aprinting")) == (state().practising == 0),
                            "the visibility", item);
        if (running) {
            const QString making("Creating (%1 by %1) Complete Magic Square (with blanks)");
            if (state().practising == 1 && title()[0] != 'N')
                expectEqual(window().windowTitle(), making.arg(state().squareSize), "the title");
            return;
        }
        expectEqual(state().practising, 0, "practice on another page");
        expectEqual(command("chooseproperties")->isEnabled(), current == Page::main, "the way on");
        expectEqual(title(), "Quarvelle", "the title outside of runs");
        if (printer.steps == 0)
            return;
        const bool failed = printer.failingStep > 0 && printer.steps >= printer.failingStep;
        expectEqual(printer.failuresTold, failed, "how often a failure was told");
        expectEqual(printer.steps, failed ? printer.failingStep : 2 + static_cast<int>(printer.sheets.size()),
                    "the beginning, sheets and end of a job");
        expect(m_stops == 0 || printer.sheets.size() == m_sheets, "printed after a stop");
        printer.steps = 0;
        m_seen.insert(failed ? "failed batch" : "batch");
    }

    void checkKeyboard() {
        const QWidget* keyboard = window().focusWidget();
        expect(keyboard && keyboard->isVisible() && keyboard->isEnabled(), "nothing has the keyboard");
        if (plays())
            expect(keyboard == (answerBox().isVisible() ? &answerBox() : client()->currentWidget()),
                   "the keyboard is elsewhere");
    }

    /// What a run has made of the boxes.
    void checkTidied() {
        for (const EntryBox* box : {page().Text1, page().Text2, page().Text3, page().text4, page().Text5}) {
            expectEqual(box->text().toStdString(), numberText(box->number()), "the tidied text", box);
            expectEqual(box->cursorPosition(), 0, "what is shown first", box);
        }
        expectEqual(page().Text2->number(), state().squareSize, "the size shown");
        expectEqual(page().Text3->number(), state().blankCount, "the blanks shown");
        expectEqual(page().Text5->number(), state().distance, "the distance shown");
        expect(state().blankCount >= 1 && state().distance > 0 && page().Text7->number() >= 1,
               "unusable numbers");
    }

    void checkMarks() {
        const int puzzleMode = state().practising == 1 ? state().savedPuzzleMode : state().puzzleMode;
        const std::map<const QAction*, bool> marks{
            {command("panswers"), puzzleMode == PuzzleMode::answers},
            {command("ppuzzles"), puzzleMode == PuzzleMode::puzzles},
            {command("pboth"), puzzleMode == PuzzleMode::both},
            {command("highlighted"), state().highlightAnswers == 1},
            {command("nhighlighted"), state().highlightAnswers == 0},
            {command("easy"), state().difficulty == Difficulty::easy},
            {command("challenging"), state().difficulty == Difficulty::challenging}};
        for (const auto& [item, marked] : marks)
            expectEqual(item->isChecked(), marked, "the mark", item);
        const auto* size = window().findChild<QAction*>(QString("sqr%1").arg(state().squareSize));
        expect((size ? size : command("larger"))->isChecked(), "another size is marked");
        expectEqual(state().mainDiagonalsAndLines, properties().Check2->isChecked(), "the line option");
        expectEqual(state().allDiagonals, properties().Check3->isChecked(), "the diagonals' option");
        for (const PropertyPair& pair : propertyPairs) {
            const QCheckBox* all = properties().*pair.all;
            const int ticked = (properties().*pair.onlyMain)->isChecked() + 2 * all->isChecked();
            const int mode = state().*pair.mode;
            expect(ticked != 3, "both of a pair are ticked");
            // A run with another size than 5 sets the mode aside.
            if (mode != 0 || (state().currentPage == Page::board && state().squareSize == 5))
                expectEqual(mode, ticked, "the mode", all);
        }
    }

    void checkReadouts() {
        const bool running = state().currentPage == Page::board;
        const int n = state().squareSize;
        const double start = running ? state().baseStart : state().startNumber;
        expectEqual(page().Label11->text().toStdString(),
                    magicTotalCaption(numberText(magicTotal(n, start, state().distance))), "the total");
        expectEqual(page().Label18->text().toStdString(), lastNumberCaption(n, start, state().distance),
                    "the last number");
        expect(page().Check1->isChecked() || state().startNumber == start,
               "a random start that nobody asked for");
        const BoardGeometry board = boardGeometry(n, start, state().distance, {753, 530});
        expectEqual(state().cellWidth, board.cellWidth, "the width of a cell");
        const bool fits = board.hasAllCells && hasPlayableNumbers(state());
        if (running)
            return expect(state().practising == 0 || fits, "practises what doesn't fit");
        expectEqual(page().Command4->isEnabledTo(&window().mainPage()), fits, "the offer of practice");
        expectEqual(page().Command2->isEnabled(), state().currentPage == Page::main,
                    "the way to the information");
        expectEqual(page().Label19->isHidden(), fits, "the silence about the page");
    }

    void checkScore() {
        const bool practises = state().practising == 1;
        for (const Count count : {solved, right, wrong}) {
            // A run begins at 0, and an answer can't solve a square before the next look.
            const int least = m_keepsScore ? m_score[count] : 0,
                      most = m_keepsScore ? INT_MAX : count != solved;
            expect(!practises || score()[count] >= least, "a count goes down");
            expect(!practises || score()[count] <= most, "a run begins with a score");
        }
        expect(!practises || score()[solved] <= m_score[solved] || m_isSolved, "a dropped square counts");
        m_score = score();
        m_keepsScore = practises;
        m_isSolved = state().remainingBlanks <= 1;
    }

    void checkBoard() {
        const Drawing& drawing = window().boardPage().drawing();
        expect(drawing.items().size() < 21000, "the drawing grows");
        if (!plays())
            return;
        const auto open = blanks();
        const int n = state().squareSize;
        expectEqual(state().remainingBlanks, static_cast<int>(open.size()) + 1, "the count of blanks");
        expect(static_cast<double>(open.size()) < state().blankCount + 1, "more blanks than asked for");
        const QString title("Number of (%1 by %1) Complete Magic Square(s) solved: %2 / "
                            "Numbers correct: %3 / Numbers incorrect: %4");
        expectEqual(window().windowTitle(),
                    title.arg(n).arg(m_score[solved]).arg(m_score[right]).arg(m_score[wrong]), "the title");
        if (m_score[solved] > 0)
            m_seen.insert("square solved");
        const Place selected = selectedPlace(state());
        expect(cellAt(state().square, cellOf(selected)) < emptyMarker, "selects what is no cell");
        expect(answerBox().isHidden() || open.count(selected) != 0, "answers what is no blank");
        // A large board has a thousand things to look at.
        if (n > 7 && m_step % 8 != 0)
            return;
        const auto boards = boardsOf(drawing, state());
        ASSERT_EQ(boards.size(), 1U);
        expectEqual(boards[0].label.text, QString(), "the label");
        expectEqual(boards[0].numbers.size() + open.size(), static_cast<std::size_t>(n * n), "all cells");
        const QString heard = reader.nameOf(QAccessible::queryAccessibleInterface(&window()));
        expectEqual(heard, window().windowTitle(), "the title heard");
        const bool isWrong = reader.news.contains(" is wrong. "),
                   counts = !reader.news.contains(QRegularExpression("blank|[Nn]ot "));
        expect(!counts || reader.news.endsWith(QString(": %1").arg(isWrong ? score()[wrong] : open.size())),
               "old news");
        auto* table = QAccessible::queryAccessibleInterface(&window().boardPage())->tableInterface();
        for (int across = 1; across <= n; ++across)
            for (int down = 1; down <= n; ++down) {
                const auto shown = boards[0].numbers.find({across, down});
                const bool isShown = shown != boards[0].numbers.end();
                const std::string name = isShown ? numberText(shown->second) : "blank";
                if (isShown)
                    expectEqual(name, numberText(cellAt(state().square, cellOf({across, down}))), "a number");
                if (board().isOnShadedLine({across, down}))
                    expectEqual(!isShown, selected == Place{across, down}, "a blank on the line shown");
                expectEqual(reader.nameOf(table->cellAt(down - 1, across - 1)).toStdString(), name, "a name");
            }
    }
};

} // namespace quarvelle::testing

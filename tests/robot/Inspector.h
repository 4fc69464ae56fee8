#pragma once

#include "engine/MagicArithmetic.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

/// Looks at the whole window, at every page and in every run, for what must always hold.
class Inspector : public WindowFixture {
protected:
    long m_step = 0;
    std::string m_done;
    bool m_keepsScore = false; ///< practice goes on, and was not started over since the last look
    bool m_isSolved = false;   ///< by the last answer
    std::array<int, 3> m_score{};
    std::string m_title;
    int m_turns = 0;          ///< under this title
    int m_stops = 0;          ///< turns that left a run asked to stop
    std::size_t m_sheets = 0; ///< at the last turn
    int m_looks = 0;
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
            expect(m_keepsScore ? score()[i] >= m_score[i]
                                : state().practising == 0 || score()[i] <= (i != 0),
                   "the score goes down, or is an old one");
            if (score()[i] > m_score[i])
                m_seen.insert("score " + numberText(static_cast<double>(i)));
        }
        expect(score()[0] <= m_score[0] || state().practising == 0 || m_isSolved, "a dropped square counts");
        m_score = score();
        m_keepsScore = state().practising == 1;
        expect(window().findChildren<QObject*>().size() < 400, "objects pile up");
    }

    void checkPage() {
        const int current = state().currentPage;
        const bool running = current == Page::board;
        const bool practising = state().practising == 1;
        m_seen.insert("page " + std::to_string(current));
        expect(menus().pages->currentIndex() == current, "another page is shown");
        expect(menus().options2->menuAction()->isVisible() == (current == Page::main) &&
                   menus().options1->menuAction()->isVisible() == running,
               "the first menu is wrong");
        for (QMenu* menu : {menus().printoptions, menus().puzzlemode, menus().size})
            expect(menu->menuAction()->isVisible() != running, "is shown or hidden", menu);
        for (const QAction* item : menus().options1->actions())
            expect(!running || item->isVisible() == (practising != (item == menus().aprinting)),
                   "is shown or hidden", item);
        expect(running || !practising, "practice on another page");
        expect(running || menus().chooseproperties->isEnabled() == (current == Page::main),
               "is enabled or not", menus().chooseproperties);
        expect(running || title() == "Quarvelle", "keeps a run's title");
        if (running || printer.steps == 0)
            return;
        const bool failed = printer.steps == printer.failingStep;
        expect(printer.failuresTold == failed && (failed || printer.finished), "ended wrongly");
        expect(m_stops == 0 || printer.sheets.size() == m_sheets, "printed after a stop");
        expect(m_stops != 0 || failed || !printer.sheets.empty(), "stopped by an earlier key");
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
        expect(page().Check1->isChecked()
                   ? steps < page().Text7->number() &&
                         std::fabs(steps - std::round(steps)) <= 1e-9 * (1 + std::fabs(state().baseStart))
                   : steps == 0,
               "starts with another number");
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
        const auto sizes = menus().size->actions();
        expect(std::count_if(sizes.begin(), sizes.end(), [](auto* item) { return item->isChecked(); }) == 1,
               "not one mark", menus().size);
        expect(properties().Check2->isChecked() == state().mainDiagonalsAndLines &&
                   properties().Check3->isChecked() == state().allDiagonals,
               "a line option disagrees with its field");
        for (const PropertyPair& pair : propertyPairs) {
            const QCheckBox* all = properties().*pair.all;
            const int ticked = (properties().*pair.onlyMain)->isChecked() + 2 * all->isChecked();
            const int mode = state().*pair.mode;
            // A run with another size than 5 sets the mode aside.
            const bool asTicked = state().currentPage == Page::board && state().squareSize == 5;
            expect(ticked != 3 && (mode == ticked || (mode == 0 && !asTicked)), "disagrees with its field",
                   all);
        }
    }

    void checkReadouts() {
        const bool running = state().currentPage == Page::board;
        const int n = state().squareSize;
        const double start = running ? state().baseStart : state().startNumber;
        const double distance = state().distance;
        expect(page().Label11->text().toStdString() ==
                       magicTotalCaption(numberText(magicTotal(n, start, distance))) &&
                   page().Label18->text().toStdString() == lastNumberCaption(n, start, distance) &&
                   page().Label4->text().startsWith(QString("How many (%1 by %1) ").arg(n)),
               "a readout disagrees");
        // Measuring changes the board, so not in a run.
        const bool fits = !running && hasPlayableNumbers(state()) && !boardIsTooLarge(state());
        expect(running || (page().Command4->isEnabled() == fits && page().Label19->isHidden() == fits),
               "practice is offered for a board that doesn't fit, or the other way round");
    }

    void checkBoard() {
        const Drawing& drawing = window().boardPage().drawing();
        expect(drawing.items().size() < 21000, "the drawing grows");
        if (!plays())
            return;
        const auto blanks = blanksOf(state());
        const std::string n = numberText(state().squareSize);
        expect(static_cast<int>(blanks.size()) + 1 == state().remainingBlanks, "blanks are miscounted");
        expect(title() == "Number of (" + n + " by " + n + ") Complete Magic Square(s) solved: " +
                              numberText(score()[0]) + " / Numbers correct: " + numberText(score()[1]) +
                              " / Numbers incorrect: " + numberText(score()[2]),
               "the title disagrees");
        // A large board has a thousand things to look at.
        if (state().squareSize > 7 && ++m_looks % 8 != 0)
            return;
        const auto boards = boardsOf(drawing, state());
        expect(boards.size() == 1 && boards[0].label.text.isEmpty(), "not one board");
        expect(static_cast<int>(boards[0].numbers.size() + blanks.size()) ==
                   state().squareSize * state().squareSize,
               "wrong blanks");
        for (const auto& [cell, number] : boards[0].numbers)
            expect(numberText(number) == numberText(at(state().square, cell)) && number < emptyMarker,
                   "a wrong number is shown");
    }
};

} // namespace quarvelle::testing

#include "engine/LineKinds.h"
#include "engine/Numbers.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

class PracticeTest : public WindowFixture {
protected:
    std::string score(int n, int solved, int correct, int incorrect) {
        const auto text = [](int number) { return numberText(number); };
        return "Number of (" + text(n) + " by " + text(n) +
               ") Complete Magic Square(s) solved: " + text(solved) + " / Numbers correct: " + text(correct) +
               " / Numbers incorrect: " + text(incorrect);
    }
    Cell firstBlank() { return *blanksOf(state()).begin(); }
    std::string answerAt(Cell cell) { return numberText(at(state().square, cell)); }
    void answerAll() {
        for (const Cell& cell : blanksOf(state()))
            answer(cell, answerAt(cell));
    }
    std::vector<TextAtPoint> texts() { return itemsOf<TextAtPoint>(window().boardPage().drawing()); }
};

TEST_F(PracticeTest, PlaysSquareAfterSquare) {
    type(page().Text2, "7");
    type(page().Text3, "3");
    for (QAction* item : {menus().easy, menus().nhighlighted, menus().panswers})
        item->trigger();
    Grid first{};
    practise({
        [&] {
            EXPECT_EQ(title(), score(7, 0, 0, 0));
            EXPECT_EQ(state().puzzleMode, PuzzleMode::puzzles);
            EXPECT_EQ(state().remainingBlanks, 4);
            first = state().square;
            const Cell blank = firstBlank();
            for (const char* wrong : {"0", "", "x", "1000"})
                answer(blank, wrong);
            EXPECT_TRUE(answerBox().isVisible() && answerBox().text().isEmpty());
            answer(blank, answerAt(blank));
            EXPECT_EQ(title(), score(7, 0, 1, 2));
            EXPECT_TRUE(answerBox().isHidden() && !answerBox().isEnabled());
            EXPECT_EQ(state().remainingBlanks, 3);
            EXPECT_EQ(texts().back().point,
                      QPoint(10 + 24 * (blank.first - 1), 11 + 18 * (blank.second - 1)));
            EXPECT_EQ(texts().back().text.toStdString(), answerAt(blank));
        },
        [&] {
            EXPECT_EQ(state().square, first) << "still the same square";
            answerAll();
        },
        [&] {
            EXPECT_EQ(title(), score(7, 1, 3, 2));
            EXPECT_NE(state().square, first);
            EXPECT_EQ(texts().size(), 46U) << "the earlier board is gone";
            answer(firstBlank(), answerAt(firstBlank()));
            first = state().square;
            window().setWindowState(Qt::WindowNoState);
            menus().newsquare->trigger();
        },
        [&] {
            EXPECT_EQ(title(), score(7, 1, 4, 2)) << "dropped without counting";
            EXPECT_NE(state().square, first);
            EXPECT_TRUE(window().isMaximized());
            press(firstBlank());
            menus().startover->trigger();
        },
        [&] {
            EXPECT_EQ(title(), score(7, 0, 0, 0));
            EXPECT_FALSE(answerBox().isVisible());
            press(firstBlank());
            pressKey(Qt::Key_Q);
        },
    });
    EXPECT_EQ(title(), "Quarvelle");
    EXPECT_EQ(state().puzzleMode, PuzzleMode::answers);
    EXPECT_EQ(state().difficulty, Difficulty::easy);
    EXPECT_EQ(state().highlightAnswers, 0);
    EXPECT_TRUE(texts().empty());
    practise({[&] {
        menus().options1->popup({0, 0});
        ASSERT_TRUE(menus().options1->isVisible());
        pressKey(Qt::Key_Q);
    }});
    EXPECT_FALSE(menus().options1->isVisible());
}

TEST_F(PracticeTest, SelectsCellsByTheirPixels) {
    type(page().Text3, "6");
    type(page().Text2, "7");
    practise({});
    type(page().Text2, "5");
    practise({[&] {
        const auto blanks = blanksOf(state());
        const auto clickAt = [&](int x, int y) {
            state().selectedRow = state().selectedColumn = 0;
            window().boardPage().closeAnswerBox();
            QTest::mouseClick(&window().boardPage(), Qt::LeftButton, {}, {x, y});
            return Cell(state().selectedRow, state().selectedColumn);
        };
        for (int row = 0; row <= 6; ++row)
            for (int column = 0; column <= 6; ++column) {
                const Cell selected = blanks.count({row, column}) ? Cell{row, column} : Cell{0, 0};
                const int left = 8 + 24 * (row - 1);
                const int top = 8 + 18 * (column - 1);
                EXPECT_EQ(clickAt(left, top), selected) << "a grid line belongs to the cell after it";
                EXPECT_EQ(clickAt(left + 23, top + 17), selected);
            }
        press(firstBlank());
        typeText("1");
        pressKey(Qt::Key_Up);
        press(firstBlank());
        EXPECT_EQ(answerBox().text(), "1") << "the open box keeps what was typed";
        press(*blanks.rbegin());
        EXPECT_EQ(answerBox().text(), "") << "but not for another cell";
        window().boardPage().closeAnswerBox();
        press(firstBlank());
        EXPECT_TRUE(answerBox().isVisible()) << "the cell selected last can be chosen again";
        window().boardPage().closeAnswerBox();
        window().setWindowTitle("Creating (5 by 5) Complete Magic Square (with blanks)");
        press(firstBlank());
        EXPECT_FALSE(answerBox().isVisible()) << "not while a square is being made";
    }});
}

TEST_F(PracticeTest, TakesAnswersByNumberOrTextAndShowsThemWhole) {
    const std::array<const char*, 3> rows[] = {{"5", "1", "1"},         {"5", "-3", "1"},  {"5", "1", "0.5"},
                                               {"5", "0.1", "0.1"},     {"5", "-24", "1"}, {"29", "1", "1"},
                                               {"5", "1E+15", "1E+11"}, {"7", "1", "1E-9"}};
    for (const auto& [size, start, distance] : rows) {
        enter(size, start, distance);
        const bool negative = *start == '-';
        practise({
            [&] {
                press(firstBlank());
                const QFontMetricsF metrics(answerBox().font());
                QString widest;
                for (int cell = 0; cell < state().squareSize * state().squareSize; ++cell) {
                    const auto text = QString::fromStdString(
                        answerAt({1 + cell / state().squareSize, 1 + cell % state().squareSize}));
                    if (metrics.horizontalAdvance(text) > metrics.horizontalAdvance(widest))
                        widest = text;
                }
                typeText(widest);
                EXPECT_EQ(answerBox().text(), widest);
                EXPECT_LT(metrics.horizontalAdvance(widest), answerBox().width());
                EXPECT_EQ(answerBox().cursorPositionAt({0, 9}), 0) << widest.toStdString() << " has scrolled";
                EXPECT_EQ(answerBox().geometry(), QRect(state().selectedCellX, state().selectedCellY,
                                                        static_cast<int>(state().cellWidth) + 1, 18));
                answerBox().clear();
                answerAll();
            },
            [&] {
                EXPECT_TRUE(state().squaresSolved == 1 && state().numbersIncorrect == 0) << start << distance;
                const Cell blank = firstBlank();
                const double number = at(state().square, blank);
                press(blank);
                answerBox().setProgramText(number < 0 ? "-00" + answerAt(blank).substr(1)
                                                      : "00" + answerAt(blank));
                pressKey(Qt::Key_Enter);
                EXPECT_FALSE(isBlank(at(state().puzzle, blank))) << "zeros in front don't matter";
                EXPECT_EQ(texts().back().point.x(),
                          state().selectedCellX + (negative && number >= 0 ? 5 : 2));
            },
        });
    }
}

TEST_F(PracticeTest, TidiesTheSettings) {
    // Size, blanks, start, distance, random starts, count.
    EntryBox* const boxes[] = {page().Text2, page().Text3, page().text4,
                               page().Text5, page().Text7, page().Text1};
    const struct {
        const char* distanceBefore;
        std::array<const char*, 6> typed, shown;
        double distanceUsed;
    } rows[] = {
        {"1", {"5", "", "", "", "0", ""}, {"5", "1", "0", "1", "2", "0"}, 1},
        {"1", {"007", "7", "007", "2.50", "3x", "12"}, {"7", "7", "7", "2.5", "3x", "12"}, 2.5},
        {"2", {"9", "0", "x", "0", "-1", "1"}, {"7", "1", "0", "1", "2", "1"}, 1},
        {"2", {"5.", "0.5", "1", "-3", "1", "1"}, {"5", "1", "1", "1", "1", "1"}, 1},
        {"1", {"5x", "-9", "1e2", "1e-3", "1", "1"}, {"5", "1", "100", "0.001", "1", "1"}, 0.001},
        {"1", {"5", "1.5E+16x", "1E9", "1", "1", "1"}, {"5", "1.5E+16", "1000000000", "1", "1", "1"}, 1}};
    for (const auto& row : rows) {
        type(page().Text5, row.distanceBefore);
        for (std::size_t box = 0; box < 6; ++box)
            type(boxes[box], row.typed[box]);
        practise({[&] { EXPECT_EQ(state().distance, row.distanceUsed); }});
        for (std::size_t box = 0; box < 6; ++box)
            EXPECT_EQ(boxes[box]->text(), row.shown[box]);
    }
    type(page().text4, "12345678901");
    EXPECT_EQ(page().text4->text(), "123456789") << "only the program's own texts are longer";

    enter("23", "9990", "-1");
    events = {};
    click(page().Command4);
    EXPECT_EQ(state().distance, 1);
    EXPECT_EQ(state().currentPage, Page::main) << "tidied, the numbers are too wide";
    EXPECT_FALSE(page().Command4->isEnabled());
    EXPECT_EQ(window().focusWidget(), page().Text2);
    EXPECT_EQ(events.yields(), 0);
}

TEST_F(PracticeTest, DrawsStartingNumbers) {
    const struct {
        const char *size, *start, *distance, *starts;
        std::vector<double> draws;
        double drawn;
    } rows[] = {
        {"5", "1", "1", "3", {0.9, 0.99}, 3},      // as many as asked for
        {"5", "1", "1", "74", {0.99}, 73},         // as many as there are
        {"7", "1", "1", "1000", {0.99}, 49},       // 1 to 49 of two digits
        {"5", "-5", "1", "1E+300", {0.5}, 34},     // -5 + floor(79 / 2)
        {"5", "0.5", "0.1", "2", {0.1, 0.6}, 1.5}, // whole steps
        {"5", "75", "1", "3", {0.5}, 74},          // no room at all
        {"5", "-9.9E+199", "7E198", "2", {0.9}, -9.9e199},
    };
    click(page().Check1);
    for (const auto& row : rows) {
        enter(row.size, row.start, row.distance);
        type(page().Text7, row.starts);
        random = ScriptedRandom(row.draws);
        practise({[&] { EXPECT_EQ(state().startNumber, row.drawn) << row.start; }});
        EXPECT_EQ(numberText(state().startNumber), row.start) << "the typed number is back";
    }
}

TEST_F(PracticeTest, StopsAbandonsAndClosesAtEveryYield) {
    type(page().Text3, "4");
    practise({});
    // Its axes, its filling, its blanks, and the first look at the player.
    const int turnsOfASquare = events.yields();
    ASSERT_GT(turnsOfASquare, 40);
    const std::function<void()> requests[] = {
        [this] { QTest::keyClick(page().Text2, Qt::Key_Q, Qt::ShiftModifier); },
        [this] { menus().qplaying->trigger(); },
        [this] { window().close(); },
        [this] { menus().newsquare->trigger(); },
    };
    for (int request = 0; request < 4; ++request)
        for (int turn = 1; turn <= turnsOfASquare; ++turn) {
            window().show();
            random = ScriptedRandom();
            events = ScriptedEvents();
            events.onYield = [&](int now) {
                if (now == turn)
                    requests[request]();
            };
            practise({});
            EXPECT_EQ(state().practising, 0);
            EXPECT_EQ(title(), "Quarvelle");
            EXPECT_EQ(window().focusWidget(), page().Command4);
            EXPECT_EQ(state().squaresSolved, 0);
            EXPECT_EQ(window().isVisible(), request != 2);
            if (request < 3)
                EXPECT_EQ(events.yields(), turn) << "nothing goes on after the stop";
            else
                EXPECT_EQ(events.yields() > turnsOfASquare, turn == turnsOfASquare)
                    << "only the wait for the player looks whether a new square is wanted";
        }
}

} // namespace
} // namespace quarvelle::testing

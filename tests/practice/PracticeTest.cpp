#include "engine/Numbers.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

using PracticeTest = WindowFixture;

TEST_F(PracticeTest, TidiesTheSettings) {
    // Size, blanks, start, distance, random starts, count.
    EntryBox* const boxes[] = {page().Text2, page().Text3, page().text4,
                               page().Text5, page().Text7, page().Text1};
    const struct {
        const char* distanceBefore;
        std::array<const char*, 6> typed, shown;
    } rows[] = {
        {"2", {"5", "", "", "", "0", ""}, {"5", "1", "0", "1", "2", "0"}},
        {"1", {"007", "7", "007", "2.50", "3x", "12"}, {"7", "7", "7", "2.5", "3x", "12"}},
        {"1", {"9", "0.5", "x", "-3", "-1", "1"}, {"7", "1", "0", "1", "2", "1"}},
        {"1", {"5", "1.5E+16x", "1E9", "1", "1", "1"}, {"5", "1.5E+16", "1000000000", "1", "1", "1"}}};
    for (const auto& row : rows) {
        type(page().Text5, row.distanceBefore);
        for (std::size_t box = 0; box < 6; ++box)
            type(boxes[box], row.typed[box]);
        practise([&] { EXPECT_EQ(state().distance, page().Text5->number()); });
        for (std::size_t box = 0; box < 6; ++box)
            EXPECT_EQ(boxes[box]->text(), row.shown[box]);
    }
    type(page().text4, "12345678901");
    EXPECT_EQ(page().text4->text(), "123456789") << "only the program's own texts are longer";

    enter("23", "9990", "-1");
    practise();
    EXPECT_EQ(window().focusWidget(), page().Text2) << "tidied, the numbers are too wide";
}

TEST_F(PracticeTest, DrawsStartingNumbers) {
    const struct {
        const char *size, *start, *distance, *starts;
        std::vector<double> draws;
        double drawn;
    } rows[] = {
        {"5", "1", "1", "3", {0.9, 0.99}, 3},      // as many as asked for
        {"5", "1", "1", "74", {0.99}, 73},         // as many as there are
        {"5", "0.5", "0.1", "2", {0.1, 0.6}, 1.5}, // whole steps
        {"5", "-9.9E+199", "7E198", "2", {0.9}, -9.9e199},
    };
    click(page().Check1);
    for (const auto& row : rows) {
        enter(row.size, row.start, row.distance);
        type(page().Text7, row.starts);
        random = ScriptedRandom(row.draws);
        practise([&] { EXPECT_EQ(state().startNumber, row.drawn) << row.start; });
        EXPECT_EQ(numberText(state().startNumber), row.start) << "the typed number is back";
    }
}

TEST_F(PracticeTest, StopsAbandonsAndClosesAtEveryTurn) {
    type(page().Text3, "4");
    practise();
    // Its axes, its filling, its blanks, and the first look at the player.
    const int turnsOfASquare = events.yields();
    ASSERT_GT(turnsOfASquare, 40);
    const std::function<void()> requests[] = {
        [this] { QTest::keyClick(page().Text2, Qt::Key_Q, Qt::ShiftModifier); },
        [this] { menus().newsquare->trigger(); },
        [this] { window().close(); },
    };
    for (int request = 0; request < 3; ++request)
        for (int turn = 1; turn <= turnsOfASquare; ++turn) {
            random = ScriptedRandom();
            events = ScriptedEvents();
            events.onYield = [&](int now) {
                if (now == turn)
                    requests[request]();
            };
            window().show();
            practise();
            EXPECT_EQ(title(), "Quarvelle");
            EXPECT_EQ(window().focusWidget(), page().Command4);
            EXPECT_EQ(state().squaresSolved, 0);
            EXPECT_EQ(window().isVisible(), request != 2);
            // Only the wait for the player looks whether a new square is wanted.
            if (request != 1)
                EXPECT_EQ(events.yields(), turn) << "goes on after the stop";
            else
                EXPECT_EQ(events.yields() > turnsOfASquare, turn == turnsOfASquare);
        }
}

} // namespace
} // namespace quarvelle::testing

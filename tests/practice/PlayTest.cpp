#include "engine/LineKinds.h"
#include "practice/LineTexts.h"
#include "tests/support/WindowFixture.h"
#include "widgets/PageScale.h"

namespace quarvelle::testing {

class PlayTest : public WindowFixture {
protected:
    /// The selected cell on the screen, its grid lines included.
    QRect selectedArea() { return board().shown(board().cellArea(selectedPlace(state()))).toRect(); }

    QRect inkInSelectedCell() {
        // Inside its lines and the mark, which grow with the board.
        const int lines = qRound(3 * PageScale::factorOf(board())) + 1;
        const QImage seen = board().grab(selectedArea().adjusted(lines, lines, -lines, -lines)).toImage();
        return boundsOf(seen.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither), Qt::black);
    }

    /// What is typed stands where the board then shows it.
    void enterRightAnswer() {
        const double answer = cellAt(state().square, cellOf(selectedPlace(state())));
        typeText(QString::fromStdString(numberText(answer)));
        const QRect typed = inkInSelectedCell();
        pressKey(Qt::Key_Return);
        // The cursor is higher than digits, and behind them.
        EXPECT_FALSE(typed.isEmpty());
        EXPECT_EQ(typed.left(), inkInSelectedCell().left());
    }
};

TEST_F(PlayTest, IsRefusedWhereTidyingLeavesNoBoard) {
    events.onYield = [] { ADD_FAILURE() << "a run"; };
    // Negative distances become 1.
    const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
        {"29", "300", "-0.25", "(Larger than Page)", "The board is larger than the page."},
        {"5", "1E+16", "-10000", "(Numbers too Close)", "Some numbers can't be told apart in 15 digits."}};
    for (const auto& [size, start, distance, caption, why] : rows | untilFailure) {
        enter(size, start, distance);
        EXPECT_TRUE(page().Label19->isHidden()) << caption;
        click(page().Command4);
        EXPECT_EQ(page().Label19->text(), caption);
        EXPECT_EQ(foot(), QString("There is nothing to practise. ") + why);
    }
}

TEST_F(PlayTest, GoesFromBlankToBlankByKeyboard) {
    constexpr const char* closed = nullptr;
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Place place;         ///< selected then
        const char* typed{}; ///< in the box then, if it is open
    } rows[] = {
        // clang-format off
        {Qt::Key_Home, {}, {1, 1}}, {Qt::Key_Tab, {}, {5, 1}}, {Qt::Key_Tab, {}, {2, 5}},
        {Qt::Key_End, {}, {5, 5}}, {Qt::Key_Tab, {}, {1, 1}}, {Qt::Key_Backtab, Qt::ShiftModifier, {5, 5}},
        {Qt::Key_Right, Qt::KeypadModifier, {1, 5}}, {Qt::Key_Right, {}, {2, 5}},
        {Qt::Key_Left, Qt::ControlModifier, {5, 5}}, {Qt::Key_Left, Qt::ControlModifier, {2, 5}},
        {Qt::Key_Up, Qt::ControlModifier, {2, 5}}, // no other blank that way
        {Qt::Key_Up, {}, {2, 4}}, {Qt::Key_Left, {}, {1, 4}}, {Qt::Key_Right, {}, {2, 4}},
        {Qt::Key_Right, Qt::ControlModifier, {2, 4}}, {Qt::Key_Home, Qt::ControlModifier, {2, 4}},
        {Qt::Key_Return, {}, {2, 4}}, {Qt::Key_7, {}, {2, 4}}, // no blank here
        {Qt::Key_Down, {}, {2, 5}}, {Qt::Key_Down, {}, {2, 1}}, {Qt::Key_Up, {}, {2, 5}},
        {Qt::Key_Minus, {}, {2, 5}, "-"}, {Qt::Key_7, {}, {2, 5}, "-7"},
        {Qt::Key_7, {}, {2, 5}, "-7"}, // no number is longer
        {Qt::Key_Down, {}, {2, 5}, "-7"}, {Qt::Key_Left, {}, {2, 5}, "-7"}, {Qt::Key_Right, {}, {2, 5}, "-7"},
        {Qt::Key_Right, {}, {5, 5}, closed}, {Qt::Key_F2, {}, {5, 5}, ""}, {Qt::Key_3, {}, {5, 5}, "3"},
        {Qt::Key_Home, {}, {5, 5}, "3"}, {Qt::Key_Left, Qt::ShiftModifier, {5, 5}, "3"},
        {Qt::Key_Escape, {}, {5, 5}, closed}, {Qt::Key_Space, {}, {5, 5}, ""},
        {Qt::Key_Backtab, Qt::ShiftModifier, {2, 5}, closed}, {Qt::Key_Tab, {}, {5, 5}, closed},
        {Qt::Key_Enter, Qt::KeypadModifier, {5, 5}, ""}, {Qt::Key_Up, {}, {5, 1}, closed},
        {Qt::Key_3, {}, {5, 1}, "3"}, {Qt::Key_Home, {}, {5, 1}, "3"}, {Qt::Key_Left, {}, {1, 1}, closed},
        // clang-format on
    };
    play({{1, 1}, {5, 1}, {2, 5}, {5, 5}}, [&] {
        pressKey(Qt::Key_Home);
        pressKey(Qt::Key_Return, {}, {}, true);
        EXPECT_TRUE(answerBox().isHidden()) << "the key that started the run is still down";
        for (const auto& row : rows | untilFailure) {
            const QString name = QKeySequence(row.key).toString();
            SCOPED_TRACE(name.toStdString() + " at row " + std::to_string(&row - rows));
            pressKey(row.key, row.modifiers, name.size() == 1 ? name : "");
            EXPECT_TRUE(selectedPlace(state()) == row.place);
            EXPECT_EQ(answerBox().isVisible(), row.typed != nullptr);
            EXPECT_EQ(answerBox().text(), row.typed);
            auto* cell = heardBoard()->tableInterface()->cellAt(row.place.down - 1, row.place.across - 1);
            auto* box = QAccessible::queryAccessibleInterface(&answerBox());
            EXPECT_EQ(reader.focus, row.typed ? box : cell);
            const QImage seen = board().grab(selectedArea()).toImage();
            const auto colorAt = [&](QPointF pixel) {
                return seen.pixelColor(
                    (pixel * PageScale::factorOf(board()) * seen.devicePixelRatio()).toPoint());
            };
            EXPECT_TRUE(colorAt({9, 0.5}) == Qt::black && colorAt({24.5, 9}) == Qt::black) << "the grid";
            const QColor mark(0, 96, 224);
            EXPECT_EQ(colorAt({2, 2}) == mark, row.typed == nullptr) << "the mark";
            EXPECT_NE(colorAt({4, 9}), mark) << "inside of it";
        }
        pressKey(Qt::Key_Q);
    });
}

TEST_F(PlayTest, IsSolvedByTheLinesShownAlone) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"5", "-2.4", "0.1"}, {"7", "-30", "1"}, {"13", "1E+15", "7"}, {"29", "0.5", "0.25"}};
    for (QCheckBox* box : {properties().Check3, properties().Check5, properties().Check6})
        box->setChecked(true);
    for (const auto& [order, start, distance] : rows | untilFailure) {
        enter(order, start, distance);
        double total = 0;
        events.onWait = [&] {
            command("showline")->trigger();
            const QStringList named = reader.news.split(": "); // "Row 3: 8, 15, blank, 3, 20"
            EXPECT_EQ(foot(), named.first());
            command("showline")->trigger();
            const QString heard = reader.news.section(". Sum ", 1);
            total = leadingNumber(heard.section("Magic Total ", 1).toStdString());
            EXPECT_TRUE(foot().contains(" = " + heard.section(',', 0, 0) + "; the Magic Total is "));
            double sum = 0;
            for (const QString& number : named.last().split(", "))
                sum += leadingNumber(number.toStdString());
            EXPECT_NEAR(sum, leadingNumber(heard.toStdString()), 1e-6 * std::fabs(sum))
                << heard.toStdString();
            // In units of the distance, as decimals are added.
            const double unit = leadingNumber(distance);
            pressKey(Qt::Key_F2);
            typeText(QString::fromStdString(numberText(std::round((total - sum) / unit * 10) * unit / 10)));
            pressKey(Qt::Key_Return);
            EXPECT_EQ(state().numbersIncorrect, 0) << foot().toStdString();
            EXPECT_FALSE(board().hasShadedLine());
            if (state().squaresSolved > 0)
                pressKey(Qt::Key_Q);
        };
        click(page().Command4);
        EXPECT_EQ(state().squaresSolved, 1) << "of order " << order;
    }
}

TEST(LineTexts, NameLinesAsTheyLieOnTheBoardAndAddThemUp) {
    const auto state = stateOf(5, 1, 1);
    const std::tuple<int, Place, const char*> rows[] = {
        // clang-format off
        {WholeLine::column, {4, 3}, "Row 3"}, {WholeLine::row, {5, 3}, "Column 5"},
        {WholeLine::diagonal, {2, 2}, "Diagonal going down from row 1, column 1"},
        {WholeLine::diagonal, {1, 3}, "Diagonal going down from row 1, column 4, around the edge"},
        {WholeLine::antiDiagonal, {2, 4}, "Diagonal going up from row 5, column 1"},
        {WholeLine::antiDiagonal, {1, 1}, "Diagonal going up from row 5, column 2, around the edge"},
        {5, {2, 3}, "Cross-diagonal around row 3, column 2"},
        {6, {1, 2}, "Cross-diagonal around row 3, column 2"},
        {16, {1, 1}, "Cross-line around row 2, column 1, around the edge"},
        {10, {3, 3}, "Scattered cross-diagonal around row 3, column 3"},
        {20, {3, 2}, "Scattered cross-line around row 2, column 3, around the edge"},
        // clang-format on
    };
    for (const auto& [kind, through, name] : rows | untilFailure)
        EXPECT_EQ(lineName(*state, kind, through), name) << kind;
    state->startNumber = -0.3;
    state->distance = 0.1;
    const double numbers[] = {0.1, -0.3, 1e200, 2, 0.2};
    for (int across = 1; across <= 5; ++across)
        cellAt(state->puzzle, cellOf({across, 2})) = numbers[across - 1];
    const auto line = placesOnLine(*state, WholeLine::column, {3, 2});
    const QFontMetrics metrics{QFont()};
    EXPECT_EQ(lineSum(*state, line, metrics, 10000), "0.1 + (-0.3) + 2 + 0.2 = 2; the Magic Total is 4.5.");
    EXPECT_EQ(lineSum(*state, line, metrics, 0), QString::fromUtf8("… = 2; the Magic Total is 4.5."));
    EXPECT_EQ(lineNumbers(*state, line) + ". " + spokenSum(*state, line),
              "0.1, -0.3, blank, 2, 0.2. Sum 2, Magic Total 4.5");
}

TEST_F(PlayTest, TellsWhatHappens) {
    bool isSolved = false;
    const auto player = [&] {
        EXPECT_EQ(reader.nameOf(heardBoard()), "Puzzle of 5 by 5 cells");
        EXPECT_EQ(reader.news.section(": ", 0, 0),
                  (isSolved ? "Solved. " : "") + QString("New square of 5 by 5. Blanks"));
        if (isSolved)
            return command("qplaying")->trigger();
        pressKey(Qt::Key_Space);
        typeText("99");
        pressKey(Qt::Key_Return, {}, {}, true);
        EXPECT_EQ(answerBox().text(), "99") << "while the key is held";
        pressKey(Qt::Key_Return);
        EXPECT_EQ(reader.news, "99 is wrong. Numbers incorrect: 1");
        EXPECT_EQ(foot(), reader.news);
        enterRightAnswer();
        for (int left = 3; left > 0 && !HasFailure(); --left) {
            EXPECT_EQ(reader.news, QString("Right. Blanks left: %1").arg(left));
            EXPECT_EQ(foot(), reader.news);
            pressKey(Qt::Key_Tab);
            EXPECT_EQ(foot(), "") << "the next thing that a person does";
            enterRightAnswer();
        }
        isSolved = true;
    };
    enter("5", "-12", "1");
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(reader.nameOf(heardBoard()), "Empty board");
        isSolved = false;
        play({{2, 1}, {5, 1}, {2, 4}, {4, 4}}, player);
    }
}

} // namespace quarvelle::testing

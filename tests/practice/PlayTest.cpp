#include <QAccessible>

#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

/// A run of practice in which four cells of the first square are blank: (2, 1), (5, 1), (2, 4) and (4, 4),
/// counted across and down.
class PlayTest : public WindowFixture {
protected:
    const std::set<Cell> m_blanks{{2, 1}, {5, 1}, {2, 4}, {4, 4}};

    /// As a key that is held down repeats itself.
    void holdEnter() {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "", true);
        QApplication::sendEvent(window().focusWidget(), &repeated);
    }

    /// Lets the player act when the first square has come, and again whenever the run would wait, until `Q`.
    void play(const std::function<void()>& player) {
        events.onWait = [this, player, first = true]() mutable {
            if (std::exchange(first, false)) {
                state().puzzle = state().square;
                for (const Cell& cell : m_blanks)
                    cellAt(state().puzzle, cell) = emptyMarker;
                state().remainingBlanks = static_cast<int>(m_blanks.size()) + 1;
            }
            player();
        };
        page().Command4->click(); // which doesn't give it the keyboard
        EXPECT_EQ(state().currentPage, Page::main);
        EXPECT_EQ(window().focusWidget(), page().Command4);
    }

    void enterRightAnswer() {
        const double answer = cellAt(state().square, {state().selectedRow, state().selectedColumn});
        typeText(QString::fromStdString(numberText(answer)));
        pressKey(Qt::Key_Return);
    }

    std::string news() {
        return window().boardPage().findChild<QWidget*>("news")->accessibleName().toStdString();
    }
};

TEST_F(PlayTest, OpensTheBoxOnTheBlankPressed) {
    // The board is 120 pixels wide and 90 high, from (8, 8) on; a grid line belongs to the cell that follows.
    const struct {
        QPoint point;
        Cell opened; ///< by then
    } presses[] = {{{32, 8}, {2, 1}},  {{31, 8}, {2, 1}},  {{127, 25}, {5, 1}}, {{128, 8}, {5, 1}},
                   {{55, 79}, {2, 4}}, {{32, 98}, {2, 4}}, {{104, 7}, {2, 4}},  {{80, 62}, {4, 4}},
                   {{7, 62}, {4, 4}},  {{56, 62}, {4, 4}}, {{8, 62}, {1, 4}}};
    play([&] {
        for (const Cell blank : {Cell(1, 4), Cell(6, 1), Cell(2, 6)}) // two of them beyond the board
            cellAt(state().puzzle, blank) = emptyMarker;
        for (const auto& [point, opened] : presses) {
            const QRectF pixel = window().boardPage().shown({point, QSize(1, 1)});
            QTest::mouseClick(&window().boardPage(), Qt::LeftButton, {}, pixel.topLeft().toPoint());
            SCOPED_TRACE(std::to_string(point.x()) + "," + std::to_string(point.y()));
            EXPECT_EQ(Cell(state().selectedRow, state().selectedColumn), opened);
            EXPECT_TRUE(answerBox().isVisible());
        }
        pressKey(Qt::Key_Q);
    });
}

TEST_F(PlayTest, CountsEachAnswerOnceInTheTitle) {
    const std::string right = " Complete Magic Square(s) solved: 0 / Numbers correct: ",
                      wrong = " / Numbers incorrect: ";
    play([&] {
        holdEnter();
        EXPECT_TRUE(answerBox().isHidden()) << "the key that started the run is still down";
        pressKey(Qt::Key_Return);
        for (const auto& [typed, count] : {std::pair{".", "0"}, {"0", "1"}, {"00", "1"}, {"99", "2"}}) {
            typeText(typed);
            holdEnter();
            EXPECT_EQ(answerBox().text(), typed);
            pressKey(Qt::Key_Return);
            EXPECT_EQ(title(), "Number of (5 by 5)" + right + "0" + wrong + count);
        }
        enterRightAnswer();
        EXPECT_EQ(title(), "Number of (5 by 5)" + right + "1" + wrong + "2");
        pressKey(Qt::Key_Q);
    });
}

TEST_F(PlayTest, IsRefusedWhereTidyingLeavesNoBoard) {
    events.onYield = [this](int) {
        ADD_FAILURE() << "a run";
        pressKey(Qt::Key_Q);
    };
    enter("29", "300", "-0.25"); // The distance becomes 1 and the last number 1140.
    click(page().Command4);
    EXPECT_EQ(menus().pages->currentIndex(), Page::main);
    enter("5", "1", "1");
    page().text4->setText("1E+200");
    click(page().Command4);
}

TEST_F(PlayTest, GoesFromBlankToBlankByKeyboard) {
    constexpr const char* closed = nullptr;
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Cell cell;           ///< selected then
        const char* typed{}; ///< in the box then, if it is open
    } rows[] = {
        // clang-format off
        {Qt::Key_Home, {}, {2, 1}}, {Qt::Key_Tab, {}, {5, 1}}, {Qt::Key_Tab, {}, {2, 4}},
        {Qt::Key_End, {}, {4, 4}}, {Qt::Key_Tab, {}, {2, 1}}, {Qt::Key_Backtab, Qt::ShiftModifier, {4, 4}},
        {Qt::Key_Right, Qt::KeypadModifier, {5, 4}}, {Qt::Key_Right, {}, {1, 4}},
        {Qt::Key_Left, Qt::ControlModifier, {4, 4}}, {Qt::Key_Left, Qt::ControlModifier, {2, 4}},
        {Qt::Key_Up, Qt::ControlModifier, {2, 1}}, {Qt::Key_Up, {}, {2, 5}},
        {Qt::Key_Right, Qt::ControlModifier, {2, 5}}, // no blank that way
        {Qt::Key_Return, {}, {2, 5}}, {Qt::Key_7, {}, {2, 5}}, // nor here
        {Qt::Key_Down, {}, {2, 1}}, {Qt::Key_Minus, {}, {2, 1}, "-"}, {Qt::Key_7, {}, {2, 1}, "-7"},
        {Qt::Key_7, {}, {2, 1}, "-7"}, // no number is longer
        {Qt::Key_Left, {}, {2, 1}, "-7"}, {Qt::Key_Right, {}, {2, 1}, "-7"}, {Qt::Key_Right, {}, {5, 1}, closed},
        {Qt::Key_F2, {}, {5, 1}, ""}, {Qt::Key_3, {}, {5, 1}, "3"},
        {Qt::Key_Down, {}, {5, 1}, "3"}, // no other blank that way
        {Qt::Key_Home, {}, {5, 1}, "3"}, {Qt::Key_Left, Qt::ShiftModifier, {5, 1}, "3"},
        {Qt::Key_Escape, {}, {5, 1}, closed}, {Qt::Key_Space, {}, {5, 1}, ""},
        {Qt::Key_Backtab, Qt::ShiftModifier, {2, 1}, closed},
        {Qt::Key_Enter, Qt::KeypadModifier, {2, 1}, ""}, {Qt::Key_Up, {}, {2, 4}, closed},
        // clang-format on
    };
    play([&] {
        for (const auto& row : rows) {
            const QString name = QKeySequence(row.key).toString();
            pressKey(row.key, row.modifiers, name.size() == 1 ? name : "");
            SCOPED_TRACE(name.toStdString() + " at row " + std::to_string(&row - rows));
            EXPECT_EQ(Cell(state().selectedRow, state().selectedColumn), row.cell);
            EXPECT_EQ(answerBox().isVisible(), row.typed != nullptr);
            EXPECT_EQ(answerBox().text(), row.typed);
            BoardPage& board = window().boardPage();
            EXPECT_EQ(window().focusWidget(), row.typed ? &answerBox() : static_cast<QWidget*>(&board));
            const QRect cell = board.shown(board.cellArea(row.cell.row, row.cell.column)).toRect();
            const QImage seen = board.grab().toImage();
            for (const QPoint corner : {cell.topLeft() + QPoint(2, 2), cell.bottomRight() - QPoint(2, 2)})
                EXPECT_EQ(seen.pixelColor(corner) == QColor(0, 96, 224), row.typed == nullptr) << "the mark";
        }
        pressKey(Qt::Key_Q);
    });
}

TEST_F(PlayTest, HasShortcutsThatNoBoxSwallows) {
    for (const auto& [key, request] : {std::pair{Qt::Key_N, Request::abandon},
                                       {Qt::Key_R, Request::abandon},
                                       {Qt::Key_Q, Request::stop}}) {
        play([&] {
            pressKey(Qt::Key_F2);
            state().numbersIncorrect = 1;
            QTest::keyClick(window().focusWidget(), key, Qt::ControlModifier);
            EXPECT_EQ(state().stopRequested, request);
            EXPECT_EQ(state().numbersIncorrect, key != Qt::Key_R);
            state().stopRequested = Request::stop;
        });
    }
}

TEST_F(PlayTest, IsHeardWithoutAScreen) {
    QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&window().boardPage());
    const auto textOf = [](const QAccessibleInterface* about) {
        return about->text(QAccessible::Name).toStdString();
    };
    int square = 0;
    play([&] {
        const std::string solved = square++ == 0 ? "" : "Solved. ";
        EXPECT_TRUE(news().starts_with(solved + "New square of 5 by 5. Blanks: ")) << news();
        if (square == 2)
            return pressKey(Qt::Key_Q);
        pressKey(Qt::Key_End);
        QAccessibleInterface* cell = board->focusChild();
        EXPECT_EQ(textOf(cell), "blank");
        EXPECT_EQ(cell, board->childAt(cell->rect().center().x(), cell->rect().center().y()));
        EXPECT_TRUE(cell->state().focused);
        cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        typeText("99");
        pressKey(Qt::Key_Return);
        EXPECT_EQ(textOf(QAccessible::queryAccessibleInterface(&answerBox())), "Row 4, column 4");
        EXPECT_TRUE(cell->rect().contains(answerBox().mapToGlobal(answerBox().rect().center())));
        EXPECT_EQ(news(), "99 is wrong. Numbers incorrect: 1");
        enterRightAnswer();
        EXPECT_EQ(textOf(cell), numberText(cellAt(state().square, {4, 4})));
        for (int left = 3; left > 0; --left) {
            EXPECT_EQ(news(), "Right. Blanks left: " + numberText(left));
            pressKey(Qt::Key_Tab);
            enterRightAnswer();
        }
    });
    EXPECT_EQ(board->tableInterface()->rowCount(), 0) << "a table that is gone";
}

} // namespace quarvelle::testing

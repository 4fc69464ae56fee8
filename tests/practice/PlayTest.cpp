#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

/// A run of practice in which four cells of the first square are blank: (2, 1), (5, 1), (2, 4) and (4, 4),
/// counted across and down.
class PlayTest : public WindowFixture {
protected:
    std::set<Cell> m_blanks{{2, 1}, {5, 1}, {2, 4}, {4, 4}};

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

    /// What is typed stands where the board then shows it.
    void enterRightAnswer() {
        const Cell cell(state().selectedRow, state().selectedColumn);
        typeText(QString::fromStdString(numberText(cellAt(state().square, cell))));
        const auto inked = [&] {
            BoardPage& board = window().boardPage();
            const QRect inside = board.shown(board.cellArea(placeOf(cell))).toRect();
            const QImage seen = board.grab(inside.adjusted(4, 4, -4, -4)).toImage();
            return boundsOf(seen.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither), Qt::black);
        };
        const QRect typed = inked();
        pressKey(Qt::Key_Return);
        // The cursor is higher than digits, and behind them.
        EXPECT_TRUE(!typed.isEmpty() && typed.left() == inked().left()) << typed.left();
    }
};

TEST_F(PlayTest, IsRefusedWhereTidyingLeavesNoBoard) {
    events.onYield = [this](int) {
        ADD_FAILURE() << "a run";
        pressKey(Qt::Key_Q);
    };
    enter("29", "300", "-0.25"); // The distance becomes 1 and the last number 1140.
    click(page().Command4);
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
    m_blanks = {{1, 1}, {5, 1}, {2, 5}, {5, 5}};
    play([&] {
        pressKey(Qt::Key_Return, {}, {}, true);
        EXPECT_TRUE(answerBox().isHidden()) << "the key that started the run is still down";
        for (const auto& row : rows) {
            const QString name = QKeySequence(row.key).toString();
            pressKey(row.key, row.modifiers, name.size() == 1 ? name : "");
            SCOPED_TRACE(name.toStdString() + " at row " + std::to_string(&row - rows));
            EXPECT_EQ(Cell(state().selectedRow, state().selectedColumn), row.cell);
            EXPECT_EQ(answerBox().isVisible(), row.typed != nullptr);
            EXPECT_EQ(answerBox().text(), row.typed);
            BoardPage& board = window().boardPage();
            auto* table = QAccessible::queryAccessibleInterface(&board)->tableInterface();
            auto* box = QAccessible::queryAccessibleInterface(&answerBox());
            EXPECT_EQ(reader.focus, row.typed ? box : table->cellAt(row.cell.column - 1, row.cell.row - 1));
            const QRect cell = board.shown(board.cellArea(placeOf(row.cell))).toRect();
            const QImage seen = board.grab().toImage();
            for (const QPoint edge :
                 {QPoint(cell.right(), cell.top() + 9), QPoint(cell.left() + 9, cell.top())})
                EXPECT_EQ(seen.pixelColor(edge), QColor(Qt::black)) << "the grid";
            EXPECT_NE(seen.pixelColor(cell.left() + 4, cell.center().y()), QColor(0, 96, 224)) << "inside";
            for (const QPoint corner : {cell.topLeft() + QPoint(2, 2), cell.bottomRight() - QPoint(2, 2)})
                EXPECT_EQ(seen.pixelColor(corner) == QColor(0, 96, 224), row.typed == nullptr) << "the mark";
        }
        pressKey(Qt::Key_Q);
    });
}

TEST_F(PlayTest, IsATableToAScreenReader) {
    play([&] {
        QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&window().boardPage());
        pressKey(Qt::Key_Home);
        EXPECT_TRUE(board->focusChild()->state().focused);
        board->focusChild()->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        for (int index = 0; index < 25; ++index) {
            auto* cell = board->child(index);
            const auto* place = cell->tableCellInterface();
            EXPECT_TRUE(place->table() == board && place->rowExtent() == 1 && place->columnExtent() == 1);
            EXPECT_TRUE(cell->isValid() && cell->window() == board->window() && cell->parent() == board);
            EXPECT_TRUE(cell->state().focusable && cell->state().selectable && cell->state().readOnly);
            EXPECT_EQ(board->indexOfChild(cell), index);
            EXPECT_EQ(board->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
            EXPECT_EQ(cell->state().selected, index == 1);
        }
        auto* box = QAccessible::queryAccessibleInterface(&answerBox());
        EXPECT_EQ(board->child(board->indexOfChild(box)), box);
        EXPECT_EQ(reader.nameOf(box), "Row 1, column 2");
        auto* table = board->tableInterface();
        EXPECT_TRUE(board->role() == QAccessible::Table && table->rowCount() == 5 &&
                    table->columnCount() == 5);
        EXPECT_TRUE(table->selectedCellCount() == 1 && table->selectedCells() == QList{board->child(1)});
        EXPECT_FALSE(table->cellAt(5, 0) || table->cellAt(0, 5) || board->childAt(-1, -1));
        pressKey(Qt::Key_Q);
    });
}

TEST_F(PlayTest, TellsWhatHappens) {
    QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&window().boardPage());
    EXPECT_EQ(reader.nameOf(board), "Empty board");
    int square = 0;
    const auto player = [&] {
        EXPECT_EQ(reader.nameOf(board), "Puzzle of 5 by 5 cells");
        const QString solved = ++square % 2 == 1 ? "" : "Solved. ";
        EXPECT_EQ(reader.news.section(": ", 0, 0), solved + "New square of 5 by 5. Blanks");
        if (square % 2 == 0)
            return pressKey(Qt::Key_Q);
        pressKey(Qt::Key_Space);
        typeText("99");
        pressKey(Qt::Key_Return, {}, {}, true);
        EXPECT_EQ(answerBox().text(), "99") << "while the key is held";
        pressKey(Qt::Key_Return);
        EXPECT_EQ(reader.news, "99 is wrong. Numbers incorrect: 1");
        enterRightAnswer();
        for (int left = 3; left > 0; --left) {
            EXPECT_EQ(reader.news, QString("Right. Blanks left: %1").arg(left));
            pressKey(Qt::Key_Tab);
            enterRightAnswer();
        }
    };
    enter("5", "-12", "1");
    play(player);
    EXPECT_EQ(reader.nameOf(board), "Empty board");
    play(player);
}

} // namespace quarvelle::testing

#include "board/BoardGeometry.h"

#include <cmath>

#include "engine/MagicArithmetic.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

TEST(BoardGeometry, FollowsOrderAndNumbers) {
    // n, s, d, the width of a cell and how many fit across
    const std::tuple<std::int16_t, double, double, int, int> rows[] = {
        {29, 1, 1, 24, 29},        {31, 1, 1, 24, 31},    {5, -500, 58, 32, 5},  {5, -500, 100, 40, 5},
        {5, -0.3, 0.1, 32, 5},     {5, -2.4, 0.1, 32, 5}, {5, -1000, -1, 40, 5}, {29, 1, 1e14, 56, 13},
        {5, 1e200, -1e199, 72, 5}, {5, 1, 1e199, 64, 5},  {32749, 1, 1, 80, 9}};
    for (const auto& [n, s, d, cellWidth, columns] : rows | untilFailure) {
        SCOPED_TRACE(::testing::PrintToString(std::tuple(n, s, d)));
        ProgramState state;
        state.squareSize = n;
        state.startNumber = s;
        state.distance = d;
        const BoardGeometry board = boardGeometry(state);
        EXPECT_EQ(board.cellWidth, cellWidth);
        EXPECT_EQ(board.visibleColumns, columns);
        EXPECT_EQ(board.visibleRows, std::min<int>(n, 29));
        EXPECT_EQ(board.hasAllCells, columns == n && n <= 29);
        EXPECT_EQ(hasPlayableNumbers(state), std::fabs(d) < 1e199);
    }
}

TEST_F(WindowFixture, BoardIsATableToAScreenReader) {
    QAccessibleInterface* const heard = heardBoard();
    play({{2, 1}}, [&] {
        pressKey(Qt::Key_Home);
        EXPECT_TRUE(heard->focusChild()->state().focused);
        heard->focusChild()->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        for (const int index : std::views::iota(0, 25) | untilFailure) {
            SCOPED_TRACE(index);
            auto* cell = heard->child(index);
            const auto* inTable = cell->tableCellInterface();
            EXPECT_EQ(inTable->table(), heard);
            EXPECT_EQ(inTable->rowExtent() * inTable->columnExtent(), 1);
            EXPECT_TRUE(cell->isValid() && cell->window() == heard->window() && cell->parent() == heard);
            EXPECT_TRUE(cell->state().focusable && cell->state().selectable && cell->state().readOnly);
            EXPECT_EQ(heard->indexOfChild(cell), index);
            EXPECT_EQ(heard->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
            EXPECT_EQ(cell->state().selected, index == 1);
        }
        auto* box = QAccessible::queryAccessibleInterface(&answerBox());
        EXPECT_EQ(heard->child(heard->indexOfChild(box)), box);
        EXPECT_EQ(reader.nameOf(box), "Row 1, column 2");
        auto* table = heard->tableInterface();
        EXPECT_EQ(heard->role(), QAccessible::Table);
        EXPECT_TRUE(table->rowCount() == 5 && table->columnCount() == 5);
        EXPECT_TRUE(table->selectedCellCount() == 1 && table->selectedCells() == QList{heard->child(1)});
        EXPECT_FALSE(table->cellAt(5, 0) || table->cellAt(0, 5) || heard->childAt(-1, -1));
        pressKey(Qt::Key_Q);
    });
}

} // namespace quarvelle::testing

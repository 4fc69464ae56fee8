#include "tests/support/PlayFixture.h"

namespace quarvelle::testing {

TEST_F(PlayFixture, BoardIsATableToAScreenReader) {
    play([&] {
        pressKey(Qt::Key_Home);
        EXPECT_TRUE(heard->focusChild()->state().focused);
        heard->focusChild()->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        for (const int index : std::views::iota(0, 25) | untilFailure) {
            SCOPED_TRACE(index);
            auto* cell = heard->child(index);
            const auto* inTable = cell->tableCellInterface();
            EXPECT_TRUE(inTable->table() == heard && inTable->rowExtent() == 1 &&
                        inTable->columnExtent() == 1);
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

#pragma once

#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {

/// A run of practice, of 5 by 5, in which some cells of the first square are blank.
class PlayFixture : public WindowFixture {
protected:
    std::set<Place> blanks{{2, 1}, {5, 1}, {2, 4}, {4, 4}};
    BoardPage& board = window().boardPage();
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&board);

    /// Lets the player act when the first square has come, and again whenever the run would wait, until they
    /// quit.
    void play(const std::function<void()>& player) {
        bool isFirst = true;
        events.onWait = [&] {
            if (isFirst)
                makeBlanks();
            isFirst = false;
            player();
        };
        page().Command4->click(); // which doesn't give it the keyboard
        EXPECT_EQ(state().currentPage, Page::main);
        EXPECT_EQ(window().focusWidget(), page().Command4);
        EXPECT_TRUE(command("chooseproperties")->isEnabled()) << "the way to the properties";
    }

private:
    void makeBlanks() {
        state().puzzle = state().square;
        for (const Place& place : blanks)
            cellAt(state().puzzle, cellOf(place)) = emptyMarker;
        state().remainingBlanks = static_cast<int>(blanks.size()) + 1;
    }
};

} // namespace quarvelle::testing

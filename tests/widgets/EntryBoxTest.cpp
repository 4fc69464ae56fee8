#include <QTimer>
#include <QToolTip>

#include "tests/support/WindowFixture.h"
#include "widgets/QtEventQueue.h"

namespace quarvelle::testing {

TEST_F(WindowFixture, BoxesTellOfEachEditOnce) {
    QHelpEvent asks(QEvent::ToolTip, {}, {});
    for (const auto& [typed, asTip] : {std::pair{"12", ""}, {"1234567890", "123456789"}}) {
        type(page().text4, typed);
        QApplication::sendEvent(page().text4, &asks);
        EXPECT_EQ(QToolTip::text(), asTip) << "of nine digits";
    }
    // Choosing "Undo" with the mouse is an edit without a key.
    type(page().text4, "12");
    page().text4->undo();
    EXPECT_NE(state().startNumber, 12);
    QTest::keyPress(page().text4, Qt::Key_5);
    page().Text5->setFocus();
    EXPECT_EQ(state().startNumber, page().text4->number()) << "the key comes up in the next box";
    EXPECT_EQ(page().text4->cursorPosition(), 0);
}

TEST(EventQueue, GoesToQtOnceAnIntervalAndAfterAWait) {
    QtEventQueue::Clock::time_point time;
    QtEventQueue events([&time] { return time; });
    std::string turns(11, '.');
    for (std::size_t turn = 0; turn < turns.size(); ++turn) {
        QObject receiver;
        QTimer::singleShot(0, &receiver, [&] {
            turns[turn] = 'x';
            time += std::chrono::milliseconds(1);
        });
        turn == 5 ? events.wait() : events.yield();
        time += std::chrono::milliseconds(1);
    }
    EXPECT_EQ(turns, "x...xxx...x") << "the interval counts from the end of a turn";
}

} // namespace quarvelle::testing

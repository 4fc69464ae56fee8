#include <QRegularExpression>
#include <QSignalSpy>

#include "tests/support/WindowFixture.h"
#include "widgets/FootLine.h"

namespace quarvelle::testing {

TEST_F(WindowFixture, MainPageFollowsItsBoxesAndTheMenu) {
    const std::tuple<const char*, const char*, const char*, const char*, int> rows[] = {
        {"29.5", "", "-0.5", "Magic Total = -6090 / Last number equals: -420", 1},
        {"103", "1", "0", "Magic Total = -273053 / Last number equals: -5303", 0},
        {"101", "-1.94E7", "1804", "Magic Total = -1030159600 / Last number equals: -999200", 1},
        {"5", "-4.1E9", "170416667", "Magic Total is {very large!} / Last number is {very large!}", 2},
        {"5", "-2.4", "0.1", "Magic Total = -6 / Last number equals: 0", 2},
        {"5", "1E+200", "-", "Magic Total = 5E+200 / Last number equals: 1E+200", 0},
    };
    for (const auto& [size, start, distance, readouts, runsOffered] : rows | untilFailure) {
        enter(size, start, distance);
        EXPECT_EQ((page().Label11->text() + " / " + page().Label18->text()).toStdString(), readouts);
        EXPECT_EQ(page().Command4->isEnabled() + page().Command1->isEnabled(), runsOffered) << readouts;
    }
    EXPECT_EQ(page().Command1->toolTip(), "The numbers are too large.");
    enter("103", "1", "1");
    EXPECT_EQ(page().Command1->toolTip(), "Only up to 101 by 101.");
    EXPECT_EQ(page().Command4->toolTip(), "The board is larger than the page.");
    command("sqr7")->trigger();
    QString counts;
    for (const QLabel* label : {page().Label4, page().Label3, page().Label5, page().Label6, page().Label7})
        counts += label->text();
    EXPECT_TRUE(
        counts.contains(QRegularExpression("7 by 7.*are 1555200.*yields 49.*three times.*exactly 304819200")))
        << counts.toStdString();
}

TEST_F(WindowFixture, ArrowsStepTheSizeFromPrimeToPrime) {
    // Typed, and what Down and Up make of it.
    const char* const rows[][3] = {
        {"9", "7", "11"}, {"5", "5", "7"}, {"", "", "5"}, {"-1", "-1", "-1"}, {"5.5", "5.5", "5.5"}};
    for (const auto& [typed, below, above] : rows | untilFailure)
        for (const auto& [key, shown] : {std::pair{Qt::Key_Down, below}, {Qt::Key_Up, above}}) {
            type(page().Text2, typed);
            pressKey(key, {}, {}, true);
            pressKey(key);
            EXPECT_EQ(page().Text2->text(), shown) << "from " << typed;
        }
}

TEST_F(WindowFixture, StartsAfreshOnlyWhenItIsFirstShown) {
    command("quit")->trigger();
    EXPECT_TRUE(window().isHidden());
    MainWindow fresh;
    const QSignalSpy starts(&fresh, &MainWindow::activated);
    for (const bool shown : {true, false, true})
        fresh.setVisible(shown);
    EXPECT_EQ(starts.size(), 1);
    EXPECT_EQ(fresh.focusWidget(), fresh.mainPage().controls().Text2);
}

TEST_F(WindowFixture, PropertiesPageWorksByKeyboardAndKeepsALine) {
    const auto looks = [](QWidget* widget) { return widget->grab().toImage(); };
    const QImage before = looks(page().Text2);
    command("chooseproperties")->trigger();
    EXPECT_TRUE(looks(page().Text2) != before) << "a cursor where no keyboard is";
    const QImage ticked = looks(properties().Check2);
    click(properties().Check3);
    click(properties().Check2);
    const QImage focused = looks(properties().Check2);
    EXPECT_TRUE(focused != ticked) << "the tick";
    properties().Command6->setFocus();
    EXPECT_TRUE(looks(properties().Check2) != focused) << "where is the keyboard?";
    pressKey(Qt::Key_Return);
    EXPECT_EQ(window().focusWidget(), page().Command4);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    command("chooseproperties")->trigger();
    click(properties().Check3);
    click(properties().Command6);
    EXPECT_TRUE(properties().Check2->isChecked() && state().mainDiagonalsAndLines == 1) << "no line at all";
}

TEST_F(WindowFixture, StaysAsSmallAsItWasMadeUntilTheNextRun) {
    EXPECT_TRUE(window().isMaximized());
    for (int run = 0; run < 2; ++run) {
        int squares = 0;
        events.onWait = [&] {
            EXPECT_EQ(window().isMaximized(), squares == 0);
            window().setWindowState(Qt::WindowNoState);
            ++squares;
            command(squares < 3 ? "newsquare" : "qplaying")->trigger();
        };
        click(page().Command4);
    }
    printer.dialog = [&](PrintOrder&) { return !window().isMaximized(); };
    click(page().Command1);
    EXPECT_EQ(window().foot().currentMessage(), "Cancelled");
}

} // namespace quarvelle::testing

#include <QClipboard>
#include <QSignalSpy>

#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

class MainPageTest : public WindowFixture {
protected:
    std::string marked() {
        std::string names;
        for (const QAction* item : menus().size->actions())
            if (item->isChecked())
                names += item->objectName().toStdString();
        return names;
    }
    std::string readouts() { return (page().Label11->text() + " / " + page().Label18->text()).toStdString(); }
};

TEST_F(MainPageTest, FollowsTheBoxes) {
    const char* unchanged = nullptr;
    const struct {
        const char *size, *start, *distance;
        const char* readouts; ///< null: as before
        const char* marked;
        bool practice, batch;
    } rows[] = {
        {"7", "1", "1", "Magic Total = 175 / Last number equals: 49", "sqr7", true, true},
        {"-11", "1", "1", unchanged, "sqr7", true, true},
        {"7.5", "1", "1", unchanged, "sqr7", true, true},
        {"29", "1", "2", "Magic Total = 24389 / Last number equals: 1681", "sqr29", false, true},
        {"101", "1", "1", "Magic Total = 515201 / Last number equals: 10201", "larger", false, true},
        {"103", "1", "1", "Magic Total = 546415 / Last number equals: 10609", "larger", false, false},
        {"5", "", "1", "Magic Total = 60 / Last number equals: 24", "sqr5", true, true},
        {"5", "-24", "1", "Magic Total = -60 / Last number equals: 0", "sqr5", true, true},
        {"5", "1", "-", "Magic Total = 65 / Last number equals: 25", "sqr5", true, true},
        {"5", "1", "-0.5", "Magic Total = -25 / Last number equals: -11", "sqr5", true, true},
        {"5", "1", "0.1", "Magic Total = 11 / Last number equals: 3.4", "sqr5", true, true},
        {"5", "-1000000", "1", "Magic Total = -4999940 / Last number equals: -999976", "sqr5", true, true},
        {"5", "9999976", "1", "Magic Total = 49999940 / Last number is {very large!}", "sqr5", true, true},
        {"5", "2E10", "1", "Magic Total is {very large!} / Last number is {very large!}", "sqr5", true, true},
        {"5", "1E+200", "1", "Magic Total = 5E+200 / Last number equals: 1E+200", "sqr5", false, false},
        {"5", "1E+308", "1E+308", "Magic Total is {very large!} / Last number is {very large!}", "sqr5",
         false, false},
    };
    EXPECT_EQ(window().focusWidget(), page().Text2);
    std::string before;
    for (const auto& row : rows) {
        enter(row.size, row.start, row.distance);
        EXPECT_EQ(readouts(), row.readouts ? row.readouts : before) << row.size << ' ' << row.start;
        EXPECT_EQ(marked(), row.marked);
        EXPECT_EQ(page().Command4->isEnabled(), row.practice) << row.size << ' ' << row.start;
        EXPECT_EQ(page().Label19->isHidden(), row.practice);
        EXPECT_EQ(page().Command1->isEnabled(), row.batch);
        before = readouts();
    }

    enter("5", "1", "2");
    click(page().Command2);
    EXPECT_EQ(window().focusWidget(), window().informationPage().controls().Command3);
    for (QAction* item : {menus().sqr29, menus().larger, menus().sqr29}) {
        item->trigger();
        EXPECT_EQ(marked(), "sqr29") << "nothing changes by choosing it again, or \"Larger Size\"";
    }
    click(window().informationPage().controls().Command3);
    EXPECT_EQ(window().focusWidget(), page().Command2);
    EXPECT_EQ(page().Text2->text(), "29");
    EXPECT_EQ(readouts(), "Magic Total = 24389 / Last number equals: 1681");
    EXPECT_FALSE(page().Command4->isEnabled());

    menus().quit->trigger();
    EXPECT_FALSE(window().isVisible());
    MainWindow other;
    const QSignalSpy started(&other, &MainWindow::activated);
    for (int shown = 0; shown < 2; ++shown, other.hide())
        other.show();
    EXPECT_EQ(started.count(), 1) << "only the first showing starts afresh";
}

TEST_F(MainPageTest, StepsTheSizeWithTheArrows) {
    const struct {
        const char* typed;
        Qt::Key key;
        const char* shown;
        int size;
    } rows[] = {{"7", Qt::Key_Up, "11", 11},
                {"11", Qt::Key_Down, "7", 7},
                {"5", Qt::Key_Down, "5", 5},
                {"", Qt::Key_Up, "5", 5},
                {"29", Qt::Key_Up, "31", 31},
                {"9", Qt::Key_Down, "7", 7},
                {"4", Qt::Key_Up, "5", 5},
                {"6", Qt::Key_Down, "5", 5},
                {"-1", Qt::Key_Up, "-1", 5},
                {"5.5", Qt::Key_Up, "5.5", 5},
                {"32749", Qt::Key_Up, "32749", 32749},
                {"99999", Qt::Key_Down, "99999", 32749}};
    for (const auto& row : rows) {
        type(page().Text2, row.typed);
        pressKey(row.key);
        EXPECT_EQ(page().Text2->text(), row.shown);
        EXPECT_EQ(state().squareSize, row.size) << row.typed;
    }
}

TEST_F(MainPageTest, BoxesEditLikeTextBoxes) {
    int handled = 0;
    QObject::connect(page().Text2, &EntryBox::keyPressed, [&handled] { ++handled; });
    QObject::connect(page().Text2, &EntryBox::keyReleased, [&handled] { ++handled; });
    page().Text2->clear();
    for (const auto& [pressRepeats, releaseRepeats] : {std::pair{false, true}, {true, true}, {true, false}}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, "1", pressRepeats);
        QApplication::sendEvent(page().Text2, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_1, Qt::NoModifier, "1", releaseRepeats);
        QApplication::sendEvent(page().Text2, &release);
    }
    EXPECT_EQ(page().Text2->text(), "111");
    EXPECT_EQ(handled, 2) << "a held key counts once when it goes down and once when it comes up";

    type(page().text4, "123");
    pressKey(Qt::Key_Home);
    typeText("98");
    EXPECT_EQ(page().text4->text(), "98123");
    pressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(page().text4->text(), "98123");

    // Choosing "Paste" with the mouse is an edit without a key.
    type(page().Text2, "5");
    page().text4->clear();
    QApplication::clipboard()->setText("40");
    page().text4->paste();
    EXPECT_EQ(page().Label18->text(), "Last number equals: 64");
    // The last digit's key comes up in the next box.
    type(page().text4, "1");
    QTest::keyPress(page().text4, Qt::Key_5);
    page().Text5->setFocus();
    EXPECT_EQ(page().Label18->text(), "Last number equals: 39");
}

TEST_F(MainPageTest, PropertyBoxesExcludeEachOther) {
    menus().chooseproperties->trigger();
    for (const PropertyPair& pair : propertyPairs) {
        QCheckBox* boxes[] = {nullptr, properties().*pair.onlyMain, properties().*pair.all};
        for (const auto& [clicked, mode] :
             {std::pair{1, 1}, {2, 2}, {2, 0}, {2, 2}, {1, 1}, {1, 0}, {2, 2}}) {
            click(boxes[clicked]);
            EXPECT_EQ(state().*pair.mode, mode);
            EXPECT_EQ(boxes[1]->isChecked() + 2 * boxes[2]->isChecked(), mode);
        }
    }
    click(properties().Check2);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    properties().Command6->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_EQ(state().currentPage, Page::main);
    EXPECT_EQ(properties().Check2->isChecked() + state().mainDiagonalsAndLines, 2) << "no line at all";

    menus().chooseproperties->trigger();
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
             properties().Check3, properties().Check2, properties().Command6})
        click(button);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    EXPECT_EQ(state().allDiagonals, 1);
}

} // namespace
} // namespace quarvelle::testing

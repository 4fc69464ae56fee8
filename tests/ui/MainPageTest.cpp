#include <QClipboard>

#include "tests/support/WindowFixture.h"

namespace quarvelle {
namespace {

using testing::pressKey;
using testing::typeText;
using testing::WindowFixture;

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
        bool practice;
    } rows[] = {
        {"7", "1", "1", "Magic Total = 175 / Last number equals: 49", "sqr7", true},
        {"9", "1", "1", unchanged, "sqr7", true},
        {"-11", "1", "1", unchanged, "sqr7", true},
        {"7.5", "1", "1", "Magic Total = 175 / Last number equals: 49", "sqr7", true},
        {"29", "1", "1", "Magic Total = 12209 / Last number equals: 841", "sqr29", true},
        {"29", "1", "2", "Magic Total = 24389 / Last number equals: 1681", "sqr29", false},
        {"31", "1", "1", "Magic Total = 14911 / Last number equals: 961", "larger", false},
        {"5", "", "1", "Magic Total = 60 / Last number equals: 24", "sqr5", true},
        {"5", "-24", "1", "Magic Total = -60 / Last number equals: 0", "sqr5", true},
        {"5", "1", "", "Magic Total = 65 / Last number equals: 25", "sqr5", true},
        {"5", "1", "-", unchanged, "sqr5", true},
        {"5", "1", "-0.5", "Magic Total = -25 / Last number equals: -11", "sqr5", true},
        {"5", "1E+200", "1", "Magic Total = 5E+200 / Last number equals: 1E+200", "sqr5", false},
        {"5", "1E+308", "1E+308", "Magic Total is {very large!} / Last number is {very large!}", "sqr5",
         false},
    };
    std::string before = readouts();
    for (const auto& row : rows) {
        enter(row.size, row.start, row.distance);
        EXPECT_EQ(readouts(), row.readouts ? row.readouts : before) << row.size << ' ' << row.start;
        EXPECT_EQ(marked(), row.marked);
        EXPECT_EQ(page().Command4->isEnabled(), row.practice);
        EXPECT_EQ(page().Label19->isHidden(), row.practice);
        before = readouts();
    }
    EXPECT_FALSE(page().Command1->isEnabled()) << "numbers that could be taken for blanks";
    for (const auto& [size, offered] : {std::pair{"101", true}, {"103", false}, {"97", true}}) {
        enter(size, "1", "1");
        EXPECT_EQ(page().Command1->isEnabled(), offered) << size;
    }
    EXPECT_EQ(page().Label4->text(), "How many (97 by 97) \"Complete\" Magic Squares are there?:");
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
                {"-3", Qt::Key_Up, "-3", 5},
                {"5.5", Qt::Key_Up, "5.5", 5},
                {"32749", Qt::Key_Up, "32749", 32749},
                {"99999", Qt::Key_Down, "99999", 32749}};
    for (const auto& row : rows) {
        type(page().Text2, row.typed);
        pressKey(window(), row.key);
        EXPECT_EQ(page().Text2->text(), row.shown);
        EXPECT_EQ(state().squareSize, row.size) << row.typed;
    }
}

TEST_F(MainPageTest, HandlesAHeldKeyOnceAndEveryPaste) {
    int handled = 0;
    QObject::connect(page().Text2, &EntryBox::keyReleased, [&handled] { ++handled; });
    page().Text2->clear();
    for (const auto& [pressRepeats, releaseRepeats] : {std::pair{false, true}, {true, true}, {true, false}}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, "1", pressRepeats);
        QApplication::sendEvent(page().Text2, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_1, Qt::NoModifier, "1", releaseRepeats);
        QApplication::sendEvent(page().Text2, &release);
    }
    EXPECT_EQ(page().Text2->text(), "111");
    EXPECT_EQ(handled, 1);

    // Choosing "Paste" with the mouse is an edit without a key.
    type(page().Text2, "5");
    page().text4->clear();
    QApplication::clipboard()->setText("40");
    page().text4->paste();
    EXPECT_EQ(page().Label18->text().toStdString(), "Last number equals: 64");
}

TEST_F(MainPageTest, BoxesEditLikeTextBoxes) {
    type(page().text4, "123");
    pressKey(window(), Qt::Key_Home);
    typeText(window(), "98");
    EXPECT_EQ(page().text4->text(), "98123");
    pressKey(window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(page().text4->text(), "98123");

    // The last digit's key comes up in the next box.
    type(page().text4, "1");
    QTest::keyPress(page().text4, Qt::Key_5);
    page().Text5->setFocus();
    EXPECT_EQ(page().Label18->text().toStdString(), "Last number equals: 39");
}

TEST_F(MainPageTest, SizeMenuWorksOnEveryPage) {
    type(page().Text5, "2");
    click(page().Command2);
    menus().sqr29->trigger();
    EXPECT_EQ(marked(), "sqr29");
    menus().larger->trigger();
    EXPECT_EQ(marked(), "sqr29") << "choosing \"Larger Size\" changes nothing";
    menus().sqr29->trigger();
    EXPECT_EQ(marked(), "sqr29") << "choosing the size again neither";
    click(window().informationPage().controls().Command3);
    EXPECT_EQ(page().Text2->text(), "29");
    EXPECT_EQ(readouts(), "Magic Total = 24389 / Last number equals: 1681");
    EXPECT_FALSE(page().Command4->isEnabled());
    EXPECT_TRUE(page().Label19->isVisible());
}

TEST_F(MainPageTest, ProgramTextIsNeverCut) {
    type(page().text4, "1E9");
    type(page().Text3, "1.5E+16x");
    practise({});
    EXPECT_EQ(page().text4->text(), "1000000000") << "ten characters in a box that takes nine";
    EXPECT_EQ(page().Text3->text(), "1.5E+16");
    type(page().text4, "12345678901");
    EXPECT_EQ(page().text4->text(), "123456789");
}

TEST_F(MainPageTest, PropertyBoxesExcludeEachOther) {
    menus().chooseproperties->trigger();
    for (const PropertyPair& pair : propertyPairs) {
        QCheckBox* onlyMain = properties().*pair.onlyMain;
        QCheckBox* all = properties().*pair.all;
        const int& mode = state().*pair.mode;
        const struct {
            QCheckBox* clicked;
            int mode;
        } steps[] = {{onlyMain, 1}, {all, 2}, {all, 0}, {all, 2}, {onlyMain, 1}, {onlyMain, 0}, {all, 2}};
        for (const auto& step : steps) {
            click(step.clicked);
            EXPECT_EQ(mode, step.mode);
            EXPECT_EQ(onlyMain->isChecked(), mode == 1);
            EXPECT_EQ(all->isChecked(), mode == 2);
        }
    }
    click(properties().Check2);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    properties().Command6->setFocus();
    pressKey(window(), Qt::Key_Return);
    EXPECT_EQ(state().currentPage, Page::main);
    EXPECT_TRUE(properties().Check2->isChecked());
    EXPECT_EQ(state().mainDiagonalsAndLines, 1);

    menus().chooseproperties->trigger();
    click(properties().Check3);
    click(properties().Check2);
    click(properties().Command6);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    EXPECT_EQ(state().allDiagonals, 1);
    type(page().Text2, "7");
    practise({[this] { EXPECT_EQ(state().crossLineMode, 0) << "shapes belong to 5 by 5 squares"; }});
    type(page().Text2, "5");
    practise({[this] { EXPECT_EQ(state().crossLineMode, 2); }});
}

} // namespace
} // namespace quarvelle

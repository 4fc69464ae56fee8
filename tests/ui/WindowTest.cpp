#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>

#include "tests/support/WindowFixture.h"
#include "ui/QtEventQueue.h"

namespace quarvelle::testing {
namespace {

using LookTest = WindowFixture;

TEST_F(WindowFixture, MainPageFollowsItsBoxesAndTheMenus) {
    const std::tuple<const char*, const char*, const char*, const char*, int> rows[] = {
        {"29", "1", "2", "Magic Total = 24389 / Last number equals: 1681", 1},
        {"7.5", "", "0", "Magic Total = 24360 / Last number equals: 1680", 1},
        {"103", "1", "-0.5", "Magic Total = -273053 / Last number equals: -5303", 0},
        {"5", "-4.1E8", "17041667", "Magic Total = -1027499980 / Last number equals: -999992", 2},
        {"5", "-4.1E9", "170416667", "Magic Total is {very large!} / Last number is {very large!}", 2},
        {"5", "1E+200", "-", "Magic Total = 5E+200 / Last number equals: 1E+200", 0},
    };
    for (const auto& [size, start, distance, readouts, runsOffered] : rows) {
        enter(size, start, distance);
        EXPECT_EQ((page().Label11->text() + " / " + page().Label18->text()).toStdString(), readouts);
        EXPECT_EQ(page().Command4->isEnabled() + page().Command1->isEnabled(), runsOffered) << readouts;
    }
    for (QAction* item : menus().size->actions()) {
        item->trigger();
        EXPECT_TRUE(item == menus().larger || "sqr" + page().Text2->text() == item->objectName());
    }
    MainWindow other;
    const QSignalSpy started(&other, &MainWindow::activated);
    for (int shown = 0; shown < 2; ++shown, other.menus().quit->trigger())
        other.show();
    EXPECT_TRUE(other.isHidden() && started.count() == 1) << "only the first showing starts afresh";
}

TEST_F(WindowFixture, BoxesStepWithTheArrowsAndEditLikeTextBoxes) {
    const char* const rows[][3] = {
        {"9", "7", "11"}, {"5", "5", "7"}, {"", "", "5"}, {"-1", "-1", "-1"}, {"5.5", "5.5", "5.5"}};
    for (const auto& [typed, down, up] : rows)
        for (const auto& [key, shown] : {std::pair{Qt::Key_Down, down}, {Qt::Key_Up, up}}) {
            type(page().Text2, typed);
            // A held key counts once.
            QKeyEvent repeated(QEvent::KeyRelease, key, Qt::NoModifier, "", true);
            QApplication::sendEvent(page().Text2, &repeated);
            pressKey(key);
            EXPECT_EQ(page().Text2->text(), shown) << typed;
        }
    type(page().Text5, "12");
    pressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(page().Text5->text(), "12");
    page().Text5->setText("1");
    QApplication::clipboard()->setText("40");
    page().Text5->paste();
    EXPECT_EQ(state().distance, 140) << "pasting with the mouse is an edit without a key";
    QTest::keyPress(page().Text5, Qt::Key_5);
    page().text4->setFocus();
    EXPECT_EQ(state().distance, 1405) << "the key comes up in the next box";
}

TEST_F(WindowFixture, PropertyBoxesExcludeEachOther) {
    menus().chooseproperties->trigger();
    for (const PropertyPair& pair : propertyPairs)
        for (const auto& [clicked, mode] : {std::pair{1, 1}, {2, 2}, {1, 1}, {1, 0}, {2, 2}}) {
            click(clicked == 1 ? properties().*pair.onlyMain : properties().*pair.all);
            EXPECT_EQ(state().*pair.mode, mode);
        }
    click(properties().Check2);
    const QImage plain = properties().Check3->grab().toImage();
    properties().Check3->setFocus();
    EXPECT_TRUE(properties().Check3->grab().toImage() != plain) << "where the keyboard is can be seen";
    properties().Command6->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_EQ(properties().Check2->isChecked() + state().mainDiagonalsAndLines, 2) << "no line at all";
    menus().chooseproperties->trigger();
    click(properties().Check3);
    click(properties().Check2);
    click(properties().Command6);
    EXPECT_TRUE(state().mainDiagonalsAndLines == 0 && state().allDiagonals == 1);
    type(page().Text2, "7");
    practise({[this] { EXPECT_EQ(state().crossLineMode, 0) << "shapes belong to 5 by 5 squares"; }});
}

TEST_F(LookTest, CaptionsAreWholeAndBlackInEveryTheme) {
    EXPECT_FALSE(CaptionLayout("Print how many squares?", page().Label1->font(), {60, 17}, false).fits());
    const auto expectWhole = [](const auto& widgets, int least) {
        EXPECT_GE(widgets.size(), least);
        for (auto* widget : widgets) {
            const QString text = widget->text();
            EXPECT_TRUE(widget->captionLayout().fits()) << text.toStdString();
            const QImage whole = widget->grab().toImage();
            widget->setText("");
            EXPECT_TRUE(text.isEmpty() || widget->grab().toImage() != whole) << "not drawn";
            widget->setText(text);
        }
    };
    for (const QPalette& theme : {QPalette(Qt::black), QApplication::palette()}) {
        QApplication::setPalette(theme);
        for (const char* size : {"5", "7", "11", "13", "29", "31", "89", "97", "101"}) {
            enter(size, "-0.7", size);
            expectWhole(window().findChildren<CaptionLabel*>(), 21);
            expectWhole(window().findChildren<CaptionCheckBox*>(), 11);
            expectWhole(window().findChildren<CaptionButton*>(), 5);
        }
        for (const auto* label : window().findChildren<CaptionLabel*>())
            EXPECT_EQ(label->palette().windowText(), label == page().Label19 ? Qt::blue : Qt::black);
        for (const auto* box : window().findChildren<CaptionCheckBox*>())
            EXPECT_TRUE(box->palette().windowText() == Qt::black && box->palette().base() == Qt::white);
        EXPECT_EQ(answerBox().palette().text(), Qt::black);
        EXPECT_GT(answerBox().palette().base().color().lightness(), 200);
    }
}

TEST_F(LookTest, SmallScreensScroll) {
    window().setWindowState(Qt::WindowNoState);
    window().resize(500, 300);
    QTest::qWait(0);
    menus().client->ensureWidgetVisible(page().Label7);
    EXPECT_EQ(page().Label7->visibleRegion(), page().Label7->rect());
    click(page().Command2);
    EXPECT_EQ(menus().client->verticalScrollBar()->value(), 0) << "each page begins at its top";
}

TEST(EventQueue, GoesToTheToolkitWhenItsIntervalHasPassed) {
    QtEventQueue::Clock::time_point time;
    QtEventQueue events([&time] { return time; });
    /// Whether a turn handles an event, which takes some time.
    const auto handledAfter = [&](QtEventQueue::Clock::duration passing, int handling = 0) {
        QObject receiver;
        bool handled = false;
        QTimer::singleShot(0, &receiver, [&] { handled = true, time += handling * events.turnInterval; });
        time += passing;
        events.yield();
        return handled;
    };
    const QtEventQueue::Clock::duration none(0), tick(1);
    EXPECT_TRUE(handledAfter(none, 1));
    EXPECT_FALSE(handledAfter(events.turnInterval - tick)) << "the interval counts from the end of a turn";
    EXPECT_TRUE(handledAfter(tick));
    QTimer::singleShot(0, [] {});
    events.wait();
    EXPECT_TRUE(handledAfter(none)) << "the first turn after a wait";
}

TEST(DrawingSurface, PaintsEveryChangeSoonAndThenRests) {
    struct : DrawingSurface {
        int paints = 0;
        void paintEvent(QPaintEvent*) override { ++paints; }
    } surface;
    const std::function<void()> changes[] = {
        [&] { surface.show(); }, [&] { surface.fillRectangle(0, 0, 9, 9, Qt::white); },
        [&] { surface.drawText(0, 0, "1", 9); }, [&] { surface.clear(); }};
    for (const auto& change : changes) {
        surface.paints = 0;
        change();
        EXPECT_TRUE(QTest::qWaitFor([&] { return surface.paints > 0; }));
    }
    EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&surface).isEmpty());
}

} // namespace
} // namespace quarvelle::testing

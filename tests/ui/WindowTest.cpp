#include <QAbstractEventDispatcher>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include "tests/support/WindowFixture.h"
#include "ui/PageScale.h"
#include "ui/QtEventQueue.h"

namespace quarvelle::testing {
using LookTest = WindowFixture;

TEST_F(WindowFixture, MainPageFollowsItsBoxesAndTheMenu) {
    const std::tuple<const char*, const char*, const char*, const char*, int> rows[] = {
        {"29.5", "", "-0.5", "Magic Total = -6090 / Last number equals: -420", 1},
        {"103", "1", "0", "Magic Total = -273053 / Last number equals: -5303", 0},
        {"101", "-1.94E7", "1804", "Magic Total = -1030159600 / Last number equals: -999200", 1},
        {"5", "-4.1E9", "170416667", "Magic Total is {very large!} / Last number is {very large!}", 2},
        {"5", "-2.4", "0.1", "Magic Total = -6 / Last number equals: 0", 2},
        {"5", "1E+200", "-", "Magic Total = 5E+200 / Last number equals: 1E+200", 0},
    };
    for (const auto& [size, start, distance, readouts, runsOffered] : rows) {
        enter(size, start, distance);
        EXPECT_EQ((page().Label11->text() + " / " + page().Label18->text()).toStdString(), readouts);
        EXPECT_EQ(page().Command4->isEnabled() + page().Command1->isEnabled(), runsOffered) << readouts;
    }
    enter("103", "1", "1");
    EXPECT_EQ(page().Command1->toolTip(), "Only up to 101 by 101.");
    EXPECT_EQ(page().Command4->toolTip(), "The board is larger than the page.");
    type(page().text4, "1234567890");
    EXPECT_EQ(page().text4->text(), "123456789") << "nine digits";
    menus().sqr7->trigger();
    EXPECT_EQ(page().Text2->text(), "7");
    EXPECT_EQ(page().Label4->text(), "How many (7 by 7) \"Complete\" Magic Squares are there?:");
    EXPECT_TRUE(page().Label3->text().startsWith("There are 1555200 fundamental squares"));
    EXPECT_TRUE(page().Label5->text().startsWith("Each Square yields 49 other squares"));
    EXPECT_TRUE(page().Label6->text().startsWith("Each Square can also be rotated three times"));
    EXPECT_TRUE(page().Label7->text().startsWith("Therefore, there are exactly 304819200"));
    const char* const steps[][3] = {
        {"9", "7", "11"}, {"5", "5", "7"}, {"", "", "5"}, {"-1", "-1", "-1"}, {"5.5", "5.5", "5.5"}};
    for (const auto& [typed, down, up] : steps)
        for (const auto& [key, shown] : {std::pair{Qt::Key_Down, down}, {Qt::Key_Up, up}}) {
            type(page().Text2, typed);
            // A held key counts once.
            QKeyEvent repeated(QEvent::KeyRelease, key, Qt::NoModifier, "", true);
            QApplication::sendEvent(page().Text2, &repeated);
            pressKey(key);
            EXPECT_EQ(page().Text2->text(), shown) << typed;
        }
    // Choosing "Undo" with the mouse is an edit without a key.
    type(page().text4, "12");
    page().text4->undo();
    EXPECT_NE(state().startNumber, 12);
    QTest::keyPress(page().text4, Qt::Key_5);
    page().Text5->setFocus();
    EXPECT_EQ(state().startNumber, page().text4->number()) << "the key comes up in the next box";

    menus().quit->trigger();
    EXPECT_TRUE(window().isHidden());
    window().show();
    EXPECT_EQ(state().startNumber, page().text4->number()) << "only the first showing starts afresh";
}

TEST_F(WindowFixture, PropertiesPageWorksByKeyboardAndKeepsALine) {
    const QImage before = page().Text2->grab().toImage();
    menus().chooseproperties->trigger();
    EXPECT_TRUE(page().Text2->grab().toImage() != before) << "a cursor where no keyboard is";
    click(properties().Check3);
    click(properties().Check2);
    const QImage focused = properties().Check2->grab().toImage();
    properties().Command6->setFocus();
    EXPECT_TRUE(properties().Check2->grab().toImage() != focused) << "where is the keyboard?";
    pressKey(Qt::Key_Return);
    EXPECT_EQ(state().currentPage, Page::main);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    menus().chooseproperties->trigger();
    click(properties().Check3);
    click(properties().Command6);
    EXPECT_TRUE(properties().Check2->isChecked() && state().mainDiagonalsAndLines == 1) << "no line at all";
}

/// The cells with a green mark that has such an arm.
static Line marksOn(const QImage& picture, QPoint arm) {
    Line cells;
    for (int row = 1; row <= 5; ++row)
        for (int column = 1; column <= 5; ++column) {
            const QColor color = picture.pixelColor(QPoint(24 * column - 8, 18 * row - 6) + arm);
            if (color.green() > 2 * color.red())
                cells.push_back({row, column});
        }
    return cells;
}

TEST_F(WindowFixture, PicturesMarkWholeLinesOfTheirProperty) {
    window().setWindowState(Qt::WindowNoState);
    window().resize(PageScale::wholePage);
    const struct {
        const char* name;
        std::array<int, 4> modes; ///< of its property; of none for a diagonal
        int plusSigns = 0;        ///< lines marked with them
    } pictures[] = {
        // clang-format off
        {"Picture1", {}}, {"Picture2", {}}, {"Picture3", {1, 0, 0, 0}, 1}, {"Picture6", {0, 0, 1, 0}, 1},
        {"Picture5", {0, 1, 0, 0}}, {"Picture4", {0, 0, 0, 1}},
        // clang-format on
    };
    for (const auto& [name, modes, plusSigns] : pictures) {
        const bool isDiagonal = modes == std::array<int, 4>{};
        const auto lines = linesInPlay(*stateOf(5, 0, isDiagonal, Difficulty::easy, modes));
        const QImage picture = window().findChild<QWidget*>(name)->grab().toImage();
        EXPECT_EQ(lines.count(marksOn(picture, {3, 3})), 1) << name;
        EXPECT_EQ(lines.count(marksOn(picture, {4, 0})), plusSigns) << name;
    }
}

/// What its caption covers of a control.
static QRect inkOf(auto& widget) {
    const QString text = widget.text();
    const QImage whole = widget.grab().toImage();
    widget.setText("");
    const QImage bare = widget.grab().toImage();
    widget.setText(text);
    QRect ink;
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x)
            if (whole.pixel(x, y) != bare.pixel(x, y))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

TEST_F(LookTest, CaptionsAreWholeAtEveryFactor) {
    const auto expectWhole = [](const auto& widgets, double factor) {
        for (auto* widget : widgets) {
            if (widget->text().isEmpty())
                continue;
            const QRect ink = inkOf(*widget);
            const double unit = factor * widget->devicePixelRatio();
            const double left = ink.left() / unit,
                         right = widget->width() / factor - (ink.right() + 1) / unit;
            SCOPED_TRACE(widget->text().toStdString());
            EXPECT_TRUE(widget->captionLayout().fits() && left >= 1 && right >= 0.5) << left << ", " << right;
            EXPECT_GT(ink.height(), 6 * unit);
            if (qobject_cast<QPushButton*>(widget)) {
                EXPECT_NEAR(left, right, 2);
            }
        }
    };
    EXPECT_FALSE(CaptionLayout("Print how many squares?", page().Label1->font(), {60, 17}, false).fits());
    window().setWindowState(Qt::WindowNoState);
    for (const double factor : {1.0, 1.5, 1.9, 2.0, 3.0, 4.0}) {
        window().resize((QSizeF(760, 540) * factor).toSize() + QSize(0, window().menuBar()->height()));
        ASSERT_NEAR(PageScale::factorOf(*page().Label1), factor, 0.01);
        SCOPED_TRACE(factor);
        const std::vector<const char*> all{"5", "7", "11", "13", "29", "31", "89", "97", "101"};
        for (const char* size : factor == 1 ? all : std::vector{"97"}) {
            enter(size, "-0.7", size);
            expectWhole(window().findChildren<CaptionLabel*>(), factor);
            expectWhole(window().findChildren<CaptionCheckBox*>(), factor);
            expectWhole(window().findChildren<CaptionButton*>(), factor);
        }
    }
}

TEST_F(LookTest, PagesAreAlikeAtEveryFactor) {
    const auto expectAlike = [this] {
        QImage alike;
        for (const double factor : {1.0, 2.0, 3.0}) {
            window().resize((QSizeF(760, 540) * factor).toSize() + QSize(0, window().menuBar()->height()));
            // Of so few pixels, each is the mean of a place as large as a letter.
            const QImage seen = menus().pages->currentWidget()->grab().toImage().scaled(
                95, 68, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            alike = factor == 1 ? seen : alike;
            int different = 0;
            for (int place = 0; place < seen.width() * seen.height(); ++place) {
                const QPoint at(place % seen.width(), place / seen.width());
                different += std::abs(qGray(seen.pixel(at)) - qGray(alike.pixel(at))) > 32;
            }
            EXPECT_LT(different, 4) << "places at factor " << factor;
        }
    };
    window().setWindowState(Qt::WindowNoState);
    for (const int current : {Page::main, Page::information, Page::properties}) {
        menus().pages->setCurrentIndex(current);
        expectAlike();
    }
    menus().pages->setCurrentIndex(Page::main);
    events.onWait = [&] {
        expectAlike();
        pressKey(Qt::Key_Q);
    };
    enter("23", "-24", "0.5");
    click(page().Command4);
}

TEST_F(LookTest, CaptionsAreBlackInEveryTheme) {
    for (const QPalette& theme : {QPalette(QColor(35, 35, 38)), QApplication::palette()}) {
        QApplication::setPalette(theme);
        QCoreApplication::processEvents();
        for (const auto* label : window().findChildren<CaptionLabel*>())
            EXPECT_EQ(label->palette().windowText(), label == page().Label19 ? Qt::blue : Qt::black);
        for (const auto* box : window().findChildren<CaptionCheckBox*>())
            EXPECT_TRUE(box->palette().windowText() == Qt::black && box->palette().base() == Qt::white);
        EXPECT_EQ(answerBox().palette().text(), Qt::black);
        EXPECT_GT(answerBox().palette().base().color().lightness(), 200);
    }
}

TEST_F(LookTest, SmallScreensScroll) {
    window().resize(500, 300);
    menus().client->ensureWidgetVisible(page().Label7);
    EXPECT_EQ(page().Label7->visibleRegion(), page().Label7->rect());
    page().Text2->setFocus();
    const int place = menus().client->verticalScrollBar()->value();
    pressKey(Qt::Key_Up);
    EXPECT_EQ(menus().client->verticalScrollBar()->value(), place) << "the key is the size's";
    QWheelEvent notch({}, {}, {}, {0, 120}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(menus().client->viewport(), &notch);
    EXPECT_EQ(PageScale::factorOf(*page().Text2), 1.25);
    click(page().Command2);
    EXPECT_TRUE(window().informationPage().visibleRegion().contains(QPoint(0, 0))) << "its top";
    pressKey(Qt::Key_Return);
    EXPECT_EQ(state().currentPage, Page::main);
}

TEST(EventQueue, GoesToTheToolkitOnceAnIntervalAndAfterAWait) {
    QtEventQueue::Clock::time_point time;
    QtEventQueue events([&time] { return time; });
    std::string turns(11, '.');
    for (std::size_t turn = 0; turn < turns.size(); ++turn) {
        QObject receiver;
        QTimer::singleShot(0, &receiver, [&] { turns[turn] = 'x', time += events.turnInterval / 4; });
        turn == 5 ? events.wait() : events.yield();
        time += events.turnInterval / 4;
    }
    EXPECT_EQ(turns, "x...xxx...x") << "the interval counts from the end of a turn";
}

TEST(DrawingSurface, PaintsEveryChangeSoonAndThenRests) {
    struct : DrawingSurface {
        int paints = 0;
        void paintEvent(QPaintEvent* event) override { DrawingSurface::paintEvent(event), ++paints; }
    } surface;
    surface.show();
    for (int change = 0; change < 3; ++change, surface.paints = 0) {
        surface.drawText(0, 0, "1", 9);
        EXPECT_TRUE(QTest::qWaitFor([&] { return surface.paints > 0; }));
    }
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    EXPECT_TRUE(QTest::qWaitFor([&] { return dispatcher->registeredTimers(&surface).isEmpty(); }));
}

} // namespace quarvelle::testing

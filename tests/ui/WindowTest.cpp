#include <QAbstractEventDispatcher>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include "tests/support/WindowFixture.h"
#include "widgets/FootLine.h"
#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"
#include "widgets/QtEventQueue.h"

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
    EXPECT_EQ(page().Command1->toolTip(), "The numbers are too large.");
    enter("103", "1", "1");
    EXPECT_EQ(page().Command1->toolTip(), "Only up to 101 by 101.");
    EXPECT_EQ(page().Command4->toolTip(), "The board is larger than the page.");
    command("sqr7")->trigger();
    EXPECT_EQ(page().Text2->text(), "7");
    // clang-format off
    const std::pair<const QLabel*, const char*> counts[] = {
        {page().Label4, "7 by 7"}, {page().Label3, "are 1555200"}, {page().Label5, "yields 49"},
        {page().Label6, "three times"}, {page().Label7, "exactly 304819200"}};
    // clang-format on
    for (const auto& [label, told] : counts)
        EXPECT_TRUE(label->text().contains(told)) << told;
}

TEST_F(WindowFixture, BoxesTellOfEachEditOnce) {
    QHelpEvent asks(QEvent::ToolTip, {}, {});
    for (const auto& [typed, asTip] : {std::pair{"12", ""}, {"1234567890", "123456789"}}) {
        type(page().text4, typed);
        QApplication::sendEvent(page().text4, &asks);
        EXPECT_EQ(QToolTip::text(), asTip) << "of nine digits";
    }
    const char* const steps[][3] = {
        {"9", "7", "11"}, {"5", "5", "7"}, {"", "", "5"}, {"-1", "-1", "-1"}, {"5.5", "5.5", "5.5"}};
    for (const auto& [typed, down, up] : steps)
        for (const auto& [key, shown] : {std::pair{Qt::Key_Down, down}, {Qt::Key_Up, up}}) {
            type(page().Text2, typed);
            pressKey(key, {}, {}, true);
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
    EXPECT_EQ(page().text4->cursorPosition(), 0);
}

TEST_F(WindowFixture, StartsAfreshOnlyWhenItIsFirstShown) {
    command("quit")->trigger();
    EXPECT_TRUE(window().isHidden());
    MainWindow fresh;
    EXPECT_EQ(fresh.width(), 760);
    const QSignalSpy starts(&fresh, &MainWindow::activated);
    for (const bool shown : {true, false, true})
        fresh.setVisible(shown);
    EXPECT_EQ(starts.size(), 1);
    EXPECT_EQ(fresh.focusWidget(), fresh.mainPage().controls().Text2);
}

TEST_F(WindowFixture, PropertiesPageWorksByKeyboardAndKeepsALine) {
    const QImage before = page().Text2->grab().toImage();
    command("chooseproperties")->trigger();
    EXPECT_TRUE(page().Text2->grab().toImage() != before) << "a cursor where no keyboard is";
    const QImage ticked = properties().Check2->grab().toImage();
    click(properties().Check3);
    click(properties().Check2);
    const QImage focused = properties().Check2->grab().toImage();
    EXPECT_TRUE(focused != ticked) << "the tick";
    int dots = 0;
    for (int x = 0; x < focused.width(); ++x)
        dots += focused.pixelColor(x, 0) == Qt::black;
    EXPECT_NEAR(dots, focused.width() / 2, 1);
    properties().Command6->setFocus();
    EXPECT_TRUE(properties().Check2->grab().toImage() != focused) << "where is the keyboard?";
    pressKey(Qt::Key_Return);
    EXPECT_EQ(window().focusWidget(), page().Command4);
    EXPECT_EQ(state().mainDiagonalsAndLines, 0);
    command("chooseproperties")->trigger();
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
        EXPECT_TRUE(picture.pixelColor(1, 1) == QColor(192, 192, 192) &&
                    picture.pixelColor(7, 5) == Qt::white);
        EXPECT_EQ(lines.count(marksOn(picture, {4, 0})), plusSigns) << name;
        for (int line = 0; line <= 5; ++line)
            for (const QPoint inside : {QPoint(4 + 24 * line, 90), QPoint(120, 3 + 18 * line)})
                EXPECT_EQ(picture.pixelColor(inside), QColor(Qt::black)) << name << " at line " << line;
    }
}

/// What its caption covers of a control.
static QRect inkOf(auto& widget) {
    const QString text = widget.text();
    QImage ink = widget.grab().toImage();
    widget.setText("");
    QPainter painter(&ink);
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.drawPixmap(0, 0, widget.grab());
    widget.setText(text);
    return boundsOf(ink.createMaskFromColor(qRgb(0, 0, 0)), Qt::black);
}

TEST_F(LookTest, CaptionsAreWholeAtEveryFactorAndBlackOnDarkDesktopsToo) {
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
            EXPECT_GT(ink.height(), 7.5 * unit);
            if (qobject_cast<QPushButton*>(widget))
                EXPECT_TRUE(std::fabs(left - right) < 2 &&
                            std::fabs(ink.center().y() / unit - widget->height() / factor / 2) < 2);
            else
                EXPECT_EQ(widget->palette().windowText(),
                          widget->objectName() == "Label19" ? Qt::blue : Qt::black);
        }
    };
    QApplication::setPalette(QColor(35, 35, 38));
    QCoreApplication::processEvents();
    EXPECT_EQ(properties().Check2->palette().base(), Qt::white);
    EXPECT_EQ(answerBox().palette().text(), Qt::black);
    EXPECT_FALSE(CaptionLayout("Print how many squares?", page().Label1->font(), {60, 17}, false).fits());
    window().setWindowState(Qt::WindowNoState);
    for (const double factor : {1.0, 1.5, 1.9, 2.0, 3.0, 4.0}) {
        window().resize((QSizeF(760, 540) * factor).toSize() + QSize(0, window().menuBar()->height()));
        ASSERT_NEAR(PageScale::factorOf(*page().Label1), factor, 0.01);
        SCOPED_TRACE(factor);
        const PixelGrid grid(QTransform::fromScale(factor, factor), factor);
        for (int line = 0; line < 50; ++line)
            EXPECT_EQ(grid.onDevice({0, line, 9, 1}).height() + grid.onDevice({line, 0, 1, 9}).width(),
                      2 * qRound(factor));
        for (const char* const size : {"5", "7", "11", "13", "29", "31", "89", "97", "101"}) {
            enter(size, "-0.7", size);
            expectWhole(window().findChildren<CaptionLabel*>(), factor);
            expectWhole(window().findChildren<CaptionCheckBox*>(), factor);
            expectWhole(window().findChildren<CaptionButton*>(), factor);
        }
    }
    QApplication::setPalette({});
}

TEST_F(LookTest, PagesAreAsLargeAsTheyFitInEitherWay) {
    window().setWindowState(Qt::WindowNoState);
    for (const QSize size : {QSize(1140, 2000), QSize(2000, 810)}) {
        window().resize(size + QSize(0, window().menuBar()->height()));
        EXPECT_EQ(PageScale::factorOf(*page().Label1), 1.5);
    }
    for (const auto& [item, times, factor] :
         {std::tuple{command("zoomin"), 20, 4.0}, {command("zoomout"), 2, 3.5}, {command("zoomfit"), 1, 2.0}}) {
        for (int time = 0; time < times; ++time)
            item->trigger();
        window().resize(2000, 1080 + window().menuBar()->height());
        EXPECT_EQ(PageScale::factorOf(*page().Label1), factor);
        window().resize(1140, 2000);
    }
}

TEST_F(LookTest, PagesAreAlikeAtEveryFactor) {
    QWidget* const pages = allPages();
    const std::unique_ptr<QStyle> ordinary(QStyleFactory::create("Fusion"));
    const auto draw = [pages](QStyle* style) {
        for (auto* widget : pages->findChildren<QWidget*>())
            widget->setStyle(style);
        // Of so few pixels, each is the mean of a place as large as a letter.
        return pages->grab().toImage().scaled(95, 68, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const auto expectAlike = [&] {
        QStyle* const scaled = allPages()->currentWidget()->style();
        QImage alike;
        // At 0 in the toolkit's ordinary style, beside which all others are seen.
        for (const double factor : {0.0, 1.0, 2.0, 3.0}) {
            window().resize((QSizeF(760, 540) * std::max(factor, 1.0)).toSize() +
                            QSize(0, window().menuBar()->height()));
            const QImage seen = draw(factor == 0 ? ordinary.get() : scaled);
            alike = factor == 0 ? seen : alike;
            const bool isSame = factor <= 1 && std::fmod(pages->devicePixelRatio(), 1) == 0;
            int different = 0;
            for (int place = 0; place < seen.width() * seen.height(); ++place) {
                const QPoint at(place % seen.width(), place / seen.width());
                different += std::abs(qGray(seen.pixel(at)) - qGray(alike.pixel(at))) > (isSame ? 0 : 32);
            }
            EXPECT_EQ(different, 0) << "places at factor " << factor;
        }
    };
    window().setWindowState(Qt::WindowNoState);
    for (const int current : {Page::main, Page::information, Page::properties}) {
        allPages()->setCurrentIndex(current);
        expectAlike();
    }
    allPages()->setCurrentIndex(Page::main);
    events.onWait = [&] {
        expectAlike();
        pressKey(Qt::Key_F2);
        typeText("1");
        expectAlike();
        pressKey(Qt::Key_Q);
    };
    enter("23", "-24", "0.5");
    click(page().Command4);
}

TEST_F(WindowFixture, StaysAsSmallAsItWasMadeUntilTheNextRun) {
    EXPECT_TRUE(window().isMaximized());
    for (int run = 0; run < 2; ++run) {
        int squares = 0;
        events.onWait = [&] {
            EXPECT_EQ(window().isMaximized(), squares == 0);
            window().setWindowState(Qt::WindowNoState);
            ++squares < 3 ? command("newsquare")->trigger() : command("qplaying")->trigger();
        };
        click(page().Command4);
    }
    printer.dialog = [&](PrintOrder&) { return !window().isMaximized(); };
    click(page().Command1);
    EXPECT_EQ(window().foot().currentMessage(), "Cancelled");
}

TEST_F(LookTest, SmallScreensScroll) {
    window().resize(500, 300);
    page().Text2->setFocus();
    const QScrollBar& scrolled = *client()->verticalScrollBar();
    const int place = scrolled.value();
    pressKey(Qt::Key_Up);
    EXPECT_EQ(scrolled.value(), place) << "the key is the size's";
    // clang-format off
    const std::tuple<Qt::KeyboardModifier, int, double> turns[] = {
        {Qt::NoModifier, 120, 1}, {Qt::ControlModifier, 119, 1}, {Qt::ControlModifier, 1, 1.25},
        {Qt::ControlModifier, -119, 1.25}, {Qt::ControlModifier, -1, 1}};
    // clang-format on
    for (const auto& [modifier, angle, factor] : turns) {
        QWheelEvent turn({}, {}, {}, {0, angle}, Qt::NoButton, modifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(client()->viewport(), &turn);
        EXPECT_EQ(PageScale::factorOf(*page().Text2), factor);
        QCoreApplication::processEvents();
        EXPECT_EQ(scrolled.maximum(), 540 * factor - client()->viewport()->height());
    }
    click(page().Command2);
    EXPECT_TRUE(window().informationPage().visibleRegion().contains(QPoint(0, 0))) << "its top";
    pressKey(Qt::Key_Return);
    EXPECT_EQ(window().focusWidget(), page().Command2);
    events.onWait = [this] {
        BoardPage& board = window().boardPage();
        pressKey(Qt::Key_End);
        const QRect cell = board.cellArea(selectedPlace(state()));
        EXPECT_TRUE((QRegion(board.shown(cell).toAlignedRect()) - board.visibleRegion()).isEmpty());
        QTest::mouseClick(&board, Qt::LeftButton, {}, board.shown(cell).center().toPoint());
        EXPECT_TRUE(answerBox().isVisible());
        pressKey(Qt::Key_Q);
    };
    enter("23", "1", "1");
    click(page().Command4);
}

TEST(EventQueue, GoesToTheToolkitOnceAnIntervalAndAfterAWait) {
    QtEventQueue::Clock::time_point time;
    QtEventQueue events([&time] { return time; });
    std::string turns(11, '.');
    for (std::size_t turn = 0; turn < turns.size(); ++turn) {
        QObject receiver;
        QTimer::singleShot(0, &receiver, [&] { turns[turn] = 'x', time += std::chrono::milliseconds(1); });
        turn == 5 ? events.wait() : events.yield();
        time += std::chrono::milliseconds(1);
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
        QTest::qWait(change * 50); // after a pause, too
    }
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    EXPECT_TRUE(QTest::qWaitFor([&] { return dispatcher->registeredTimers(&surface).isEmpty(); }));
}

} // namespace quarvelle::testing

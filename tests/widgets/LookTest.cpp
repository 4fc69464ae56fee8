#include <QPainter>
#include <QScrollBar>
#include <QStyleFactory>
#include <QWheelEvent>

#include "tests/support/WindowFixture.h"
#include "widgets/Contrast.h"
#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"

namespace quarvelle::testing {

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

/// The caption lies whole inside its control, and in the middle of a button; elsewhere it has its color.
static void expectWhole(auto& widget) {
    const double factor = PageScale::factorOf(widget), unit = factor * widget.devicePixelRatio();
    SCOPED_TRACE(widget.text().toStdString() + " at factor " + std::to_string(factor));
    const QRect ink = inkOf(widget);
    const double left = ink.left() / unit, right = widget.width() / factor - (ink.right() + 1) / unit;
    const double below = widget.height() / factor - ink.center().y() / unit;
    EXPECT_TRUE(widget.captionLayout().fits() && left >= 1 && right >= 0.5) << left << ", " << right;
    EXPECT_GT(ink.height(), 7.5 * unit);
    if (qobject_cast<QPushButton*>(&widget))
        EXPECT_TRUE(std::fabs(left - right) < 2 && std::fabs(below - widget.height() / factor / 2) < 2);
    else
        EXPECT_EQ(widget.palette().windowText(), widget.objectName() == "Label19" ? Qt::blue : Qt::black);
    // Where strokes are thick enough to have their color.
    if (factor < 4 || !widget.isEnabled())
        return;
    const QImage seen = widget.grab().toImage();
    double darkest = 21, lightest = 1;
    for (int x = ink.left(); x <= ink.right(); ++x)
        for (int y = ink.top(); y <= ink.bottom(); ++y) {
            const double light = contrast(seen.pixelColor(x, y), Qt::black);
            darkest = std::min(darkest, light);
            lightest = std::max(lightest, light);
        }
    EXPECT_GE(lightest / darkest, 4.5);
}

TEST_F(LookTest, CaptionsAreWholeAtEveryFactorAndBlackOnDarkDesktopsToo) {
    const auto expectAllWhole = [](const auto& widgets) {
        for (auto* widget : widgets | untilFailure)
            if (!widget->text().isEmpty())
                expectWhole(*widget);
    };
    QApplication::setPalette(QColor(35, 35, 38));
    QCoreApplication::processEvents();
    EXPECT_EQ(properties().Check2->palette().base(), Qt::white);
    EXPECT_EQ(answerBox().palette().text(), Qt::black);
    EXPECT_FALSE(CaptionLayout("Print how many squares?", page().Label1->font(), {60, 17}, false).fits());
    const double factors[] = {1, 1.5, 1.9, 2, 3, 4};
    const char* const sizes[] = {"5", "7", "11", "13", "29", "31", "89", "97", "101"};
    for (const double factor : factors | untilFailure) {
        makeRoom(QSizeF(PageScale::wholePage) * factor);
        EXPECT_NEAR(PageScale::factorOf(*page().Label1), factor, 0.01);
        for (const char* const size : sizes | untilFailure) {
            enter(size, "-0.7", size);
            expectAllWhole(window().findChildren<CaptionLabel*>());
            expectAllWhole(window().findChildren<CaptionCheckBox*>());
            expectAllWhole(window().findChildren<CaptionButton*>());
        }
    }
    for (const QRgb ground : {0xFFFFFF, 0x777777, 0x0000FF, 0x000080, 0xFF00FF}) {
        QApplication::setPalette(QColor(ground));
        QCoreApplication::processEvents();
        expectWhole(*page().Label19);
    }
    QApplication::setPalette({});
}

TEST_F(LookTest, PagesAreAlikeAtEveryFactor) {
    const std::unique_ptr<QStyle> ordinary(QStyleFactory::create("Fusion"));
    const auto draw = [&](double factor, QStyle* style) {
        makeRoom(QSizeF(PageScale::wholePage) * factor);
        QWidget* const current = client()->currentWidget();
        for (auto* widget : current->findChildren<QWidget*>())
            widget->setStyle(style);
        // Of so few pixels, each is the mean of a place as large as a letter.
        return current->grab()
            .toImage()
            .scaled({96, 68}, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Grayscale8);
    };
    const bool onWholePixels = std::fmod(window().devicePixelRatio(), 1) == 0;
    for (const int page : {Page::information, Page::properties, Page::main})
        for (const double factor : {1, 2, 3}) {
            client()->setCurrentIndex(page);
            QStyle* const scaled = client()->currentWidget()->style();
            const QImage alike = draw(1, ordinary.get()), seen = draw(factor, scaled);
            const int limit = factor == 1 && onWholePixels ? 0 : 32;
            int different = 0;
            for (qsizetype place = 0; place < seen.sizeInBytes(); ++place)
                different += std::abs(seen.constBits()[place] - alike.constBits()[place]) > limit;
            // Where lines are is a whole number of pixels.
            EXPECT_LE(different, onWholePixels ? 0 : 15)
                << "places of page " << page << " at factor " << factor;
        }
}

TEST_F(LookTest, PagesAreAsLargeAsTheyFitOrAsChosen) {
    const std::tuple<const char*, int, QSize, double> rows[] = {{"zoomfit", 0, {1140, 2000}, 1.5},
                                                                {"zoomfit", 0, {2000, 810}, 1.5},
                                                                {"zoomin", 20, {2000, 1080}, 16},
                                                                {"zoomout", 2, {2000, 1080}, 10.24},
                                                                {"zoomfit", 1, {2000, 1080}, 2}};
    for (const auto& [item, times, room, factor] : rows | untilFailure) {
        for (int time = 0; time < times; ++time)
            command(item)->trigger();
        makeRoom(room);
        EXPECT_NEAR(PageScale::factorOf(*page().Label1), factor, 1e-9) << item;
        EXPECT_EQ(PageScale::factorOf(board()), 1) << "which no page's zoom changes";
        makeRoom({1140, 2000});
    }
}

/// The board on a client area of that size, practised there: as large as it may be, whole above the foot and
/// in the middle, each cell pressed where it is seen.
void LookTest::expectFilled(QSize room) {
    makeRoom(room);
    const int n = state().squareSize;
    const double factor = PageScale::factorOf(board());
    const int height = room.height() - window().foot().sizeHint().height();
    const QSizeF whole = QSizeF(board().cellArea({n, n}).right() + 9, board().cellArea({n, n}).bottom() + 9);
    const double most =
        std::min({room.width() / whole.width(), height / whole.height(), room.height() / 144.0});
    SCOPED_TRACE(::testing::Message() << n << " on " << room.width() << " x " << room.height());
    EXPECT_NEAR(factor, std::max(most, 1.0), 1e-9);
    if (most >= 1) {
        const QRect area(board().mapTo(client(), QPoint(0, 0)), board().size());
        EXPECT_EQ(board().visibleRegion(), QRegion(board().rect()));
        EXPECT_LE(std::abs(area.left() - (room.width() - 1 - area.right())), 1);
        EXPECT_TRUE(std::abs(area.top() - (room.height() - 1 - area.bottom())) <= 1 ||
                    area.bottom() + 1 == height);
        EXPECT_LE(area.bottom() + 1, height);
    }
    // The mark has no gap beside the lines, to the last pixel of the screen.
    const QImage seen = board().grab().toImage();
    const double unit = factor * seen.devicePixelRatio();
    const QPoint middle = (QPointF(board().cellArea(selectedPlace(state())).center()) * unit).toPoint();
    for (const QPoint way : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        QPoint last = middle;
        while (seen.pixelColor(last) != QColor(0, 96, 224))
            last += way;
        while (seen.pixelColor(last) == QColor(0, 96, 224))
            last += way;
        EXPECT_EQ(seen.pixelColor(last), QColor(Qt::black)) << "beside the mark";
    }
    const QRect last = board().grid().onDevice(board().cellArea({n, n}).adjusted(0, 0, -1, -1));
    const QPoint origin = board().mapTo(&window(), QPoint(0, 0));
    for (const QPoint corner : {last.topLeft(), last.topRight(), last.bottomLeft(), last.bottomRight()}) {
        const QPointF pressed = (QPointF(corner) + QPointF(0.1, 0.1)) / board().devicePixelRatio() - origin;
        EXPECT_TRUE(board().placeAt(board().drawingPixel(pressed)) == Place(n, n))
            << "a corner of the last cell";
    }
}

TEST_F(LookTest, BoardFillsTheWindow) {
    const QSize rooms[] = {{300, 200}, {760, 540}, {1024, 560}, {1280, 760}, {1920, 1040}, {3840, 2100}};
    const char* const orders[] = {"5", "7", "11", "13", "29"};
    for (const char* const order : orders | untilFailure) {
        events.onWait = [&] {
            for (const QSize room : rooms | untilFailure)
                expectFilled(room);
            command("qplaying")->trigger();
        };
        enter(order, "1", "1");
        click(page().Command4);
    }
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
    for (const auto& [modifier, angle, factor] : turns | untilFailure) {
        QWheelEvent turn({}, {}, {}, {0, angle}, Qt::NoButton, modifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(client()->viewport(), &turn);
        EXPECT_EQ(PageScale::factorOf(*page().Text2), factor) << "turned by " << angle;
        QCoreApplication::processEvents();
        // And the foot, from under which everything comes out.
        EXPECT_EQ(scrolled.maximum(),
                  540 * factor + window().foot().sizeHint().height() - client()->viewport()->height());
    }
    click(page().Command2);
    const QWidget& information = window().informationPage();
    const std::pair<QPoint, Qt::Key> scrolls[] = {
        {{}, Qt::Key_PageDown}, {information.rect().bottomRight(), Qt::Key_PageUp}, {{}, Qt::Key_PageDown}};
    for (const auto& [corner, key] : scrolls | untilFailure) {
        EXPECT_TRUE(information.visibleRegion().contains(corner)) << corner.x();
        for (const auto modifier : {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier})
            pressKey(key, modifier);
    }
    pressKey(Qt::Key_Return);
    EXPECT_EQ(window().focusWidget(), page().Command2);
    events.onWait = [this] {
        const auto marked = [this] {
            return board().shown(board().cellArea(selectedPlace(state()))).toAlignedRect();
        };
        const auto isSeen = [&] { return (QRegion(marked()) - board().visibleRegion()).isEmpty(); };
        pressKey(Qt::Key_End);
        EXPECT_TRUE(isSeen());
        for (int step = 0; step < 4; ++step)
            command("zoomin")->trigger();
        EXPECT_TRUE(isSeen()) << "enlarged";
        window().resize(300, 200);
        EXPECT_TRUE(isSeen()) << "in a smaller window";
        QTest::mouseClick(&board(), Qt::LeftButton, {}, marked().center());
        EXPECT_TRUE(answerBox().isVisible());
        pressKey(Qt::Key_Q);
    };
    enter("23", "1", "1");
    click(page().Command4);
}

} // namespace quarvelle::testing

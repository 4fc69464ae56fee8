#include <QPainter>
#include <QScrollBar>
#include <QStyleFactory>
#include <QWheelEvent>

#include "tests/support/WindowFixture.h"
#include "widgets/PageScale.h"

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
    QApplication::setPalette({});
}

TEST_F(LookTest, PagesAreAlikeAtEveryFactor) {
    const std::unique_ptr<QStyle> ordinary(QStyleFactory::create("Fusion"));
    const auto draw = [&](double factor, QStyle* style) {
        makeRoom(QSizeF(PageScale::wholePage) * factor);
        for (auto* widget : allPages()->findChildren<QWidget*>())
            widget->setStyle(style);
        // Of so few pixels, each is the mean of a place as large as a letter.
        const QImage seen = allPages()->grab().toImage();
        return seen.scaled({96, 68}, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Grayscale8);
    };
    const auto expectAlike = [&] {
        QStyle* const scaled = allPages()->currentWidget()->style();
        const QImage alike = draw(1, ordinary.get());
        const double factors[] = {1, 2, 3};
        for (const double factor : factors | untilFailure) {
            const QImage seen = draw(factor, scaled);
            const int limit = factor == 1 && std::fmod(window().devicePixelRatio(), 1) == 0 ? 0 : 32;
            int different = 0;
            for (qsizetype place = 0; place < seen.sizeInBytes(); ++place)
                different += std::abs(seen.constBits()[place] - alike.constBits()[place]) > limit;
            EXPECT_EQ(different, 0) << "places of page " << allPages()->currentIndex() << " at factor "
                                    << factor;
        }
    };
    const int pages[] = {Page::information, Page::properties, Page::main};
    for (const int current : pages | untilFailure) {
        allPages()->setCurrentIndex(current);
        expectAlike();
    }
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

TEST_F(LookTest, PagesAreAsLargeAsTheyFitOrAsChosen) {
    const std::tuple<const char*, int, QSize, double> rows[] = {{"zoomfit", 0, {1140, 2000}, 1.5},
                                                                {"zoomfit", 0, {2000, 810}, 1.5},
                                                                {"zoomin", 20, {2000, 1080}, 4},
                                                                {"zoomout", 2, {2000, 1080}, 3.5},
                                                                {"zoomfit", 1, {2000, 1080}, 2}};
    for (const auto& [item, times, room, factor] : rows | untilFailure) {
        for (int time = 0; time < times; ++time)
            command(item)->trigger();
        makeRoom(room);
        EXPECT_EQ(PageScale::factorOf(*page().Label1), factor) << item;
        makeRoom({1140, 2000});
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
        EXPECT_EQ(scrolled.maximum(), 540 * factor - client()->viewport()->height());
    }
    click(page().Command2);
    EXPECT_TRUE(window().informationPage().visibleRegion().contains(QPoint(0, 0))) << "its top";
    pressKey(Qt::Key_Return);
    EXPECT_EQ(window().focusWidget(), page().Command2);
    events.onWait = [this] {
        BoardPage& board = window().boardPage();
        pressKey(Qt::Key_End);
        const QRectF cell = board.shown(board.cellArea(selectedPlace(state())));
        EXPECT_TRUE((QRegion(cell.toAlignedRect()) - board.visibleRegion()).isEmpty());
        QTest::mouseClick(&board, Qt::LeftButton, {}, cell.center().toPoint());
        EXPECT_TRUE(answerBox().isVisible());
        pressKey(Qt::Key_Q);
    };
    enter("23", "1", "1");
    click(page().Command4);
}

} // namespace quarvelle::testing

#include <QAbstractEventDispatcher>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include "tests/support/WindowFixture.h"
#include "widgets/DrawingSurface.h"
#include "widgets/Fonts.h"
#include "widgets/PageScale.h"
#include "widgets/PixelGrid.h"
#include "widgets/QtEventQueue.h"

namespace quarvelle::testing {

TEST(PixelGrid, HasLinesOfOneThicknessAndAreasBesideThem) {
    const double factors[] = {1, 1.5, 1.9, 2, 3, 4};
    for (const double factor : factors | untilFailure) {
        const PixelGrid grid(QTransform::fromScale(factor, factor), factor);
        for (const int line : std::views::iota(0, 50) | untilFailure) {
            SCOPED_TRACE(std::to_string(line) + " at factor " + std::to_string(factor));
            const QRect across = grid.onDevice({0, line, 99, 1}), down = grid.onDevice({line, 0, 1, 99});
            EXPECT_TRUE(across.height() == qRound(factor) && down.width() == qRound(factor));
            const QRect area = grid.onDevice({line + 1, line + 1, 9, 9});
            EXPECT_FALSE(area.intersects(across) || area.intersects(down));
        }
    }
}

TEST(Drawing, CondensesDigitsIntoTheirRoom) {
    const QFontMetricsF digits(boardFont());
    EXPECT_EQ(digits.horizontalAdvance("1111"), 4 * digits.horizontalAdvance("8"));
    DrawingSurface surface;
    surface.setPalette(QColor(35, 35, 38)); // of a dark theme
    surface.fillRectangle(0, 0, 59, 23, Qt::white);
    surface.drawText(10, 3, "123456789", 21);
    QImage paper(60, 24, QImage::Format_RGB32);
    QPainter painter(&paper);
    surface.drawing().replay(painter, PaperGrid(*painter.device()));
    for (const QImage& shown : {surface.grab({0, 0, 60, 24}).toImage(), paper}) {
        const QRect ink = boundsOf(shown.createMaskFromColor(qRgb(255, 255, 255)), Qt::black);
        EXPECT_TRUE(QRect(9, 0, 23, 24).contains(ink) && ink.width() > 15) << ink.x() << ", " << ink.width();
    }
}

TEST(DrawingSurface, PaintsEveryChangeSoonAndThenRests) {
    struct : DrawingSurface {
        int paints = 0;
        void paintEvent(QPaintEvent* event) override {
            DrawingSurface::paintEvent(event);
            ++paints;
        }
    } surface;
    surface.show();
    for (int change = 0; change < 3; ++change) {
        surface.paints = 0;
        surface.drawText(0, 0, "1", 9);
        EXPECT_TRUE(QTest::qWaitFor([&] { return surface.paints > 0; }));
        QTest::qWait(change * 50); // after a pause, too
    }
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    EXPECT_TRUE(QTest::qWaitFor([&] { return dispatcher->registeredTimers(&surface).isEmpty(); }));
}

/// The cells with a green mark that has such an arm.
static Line marksOn(const QImage& picture, QPoint arm) {
    Line cells;
    for (int across = 1; across <= 5; ++across)
        for (int down = 1; down <= 5; ++down) {
            const QColor color = picture.pixelColor(QPoint(24 * across - 8, 18 * down - 6) + arm);
            if (color.green() > 2 * color.red())
                cells.push_back(cellOf({across, down}));
        }
    return cells;
}

TEST_F(WindowFixture, PicturesMarkWholeLinesOfTheirProperty) {
    window().setWindowState(Qt::WindowNoState);
    window().resize(PageScale::wholePage);
    // The modes of its property, none for a diagonal, and how many lines are marked with plus signs.
    const std::tuple<const char*, std::array<int, 4>, int> pictures[] = {
        {"Picture1", {}, 0},           {"Picture2", {}, 0},           {"Picture3", {1, 0, 0, 0}, 1},
        {"Picture6", {0, 0, 1, 0}, 1}, {"Picture5", {0, 1, 0, 0}, 0}, {"Picture4", {0, 0, 0, 1}, 0}};
    for (const auto& [name, modes, plusSigns] : pictures | untilFailure) {
        SCOPED_TRACE(name);
        const bool isDiagonal = modes == std::array<int, 4>{};
        const auto lines = linesInPlay(*stateOf(5, 0, isDiagonal, Difficulty::easy, modes));
        const QImage picture = window().findChild<QWidget*>(name)->grab().toImage();
        EXPECT_EQ(lines.count(marksOn(picture, {3, 3})), 1);
        EXPECT_EQ(lines.count(marksOn(picture, {4, 0})), plusSigns);
    }
}

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

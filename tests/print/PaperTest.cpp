#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "print/Printer.h"
#include "print/SheetPainter.h"
#include "ui/Drawing.h"

namespace quarvelle::testing {
namespace {

constexpr int dotsPerInch = 144;

/// The pixels of a colour's bounding rectangle.
QRect boundsOf(const QImage& paper, QRgb color) {
    QRect bounds;
    for (int y = 0; y < paper.height(); ++y)
        for (int x = 0; x < paper.width(); ++x)
            if (paper.pixel(x, y) == color)
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

struct PaperCase {
    const char* name;
    double width, height; ///< printable, in inches
};

void PrintTo(const PaperCase& paper, std::ostream* stream) {
    *stream << paper.name;
}

class Paper : public ::testing::TestWithParam<PaperCase> {};

TEST_P(Paper, HoldsTheFrameUndistortedCentredAndAsLargeAsItFits) {
    QImage paper(static_cast<int>(GetParam().width * dotsPerInch),
                 static_cast<int>(GetParam().height * dotsPerInch), QImage::Format_RGB32);
    paper.setDotsPerMeterX(static_cast<int>(dotsPerInch / 0.0254));
    paper.setDotsPerMeterY(static_cast<int>(dotsPerInch / 0.0254));
    paper.fill(Qt::white);
    const QRect frame(8, 8, 780, 523);
    Drawing drawing;
    drawing.fillRectangle(frame.left(), frame.top(), frame.right(), frame.bottom(), Qt::blue);
    QPainter painter(&paper);
    paintSheet(painter, Sheet{drawing, frame, frame, "Puzzles, sheet 1"});
    painter.end();

    const QRect drawn = boundsOf(paper, qRgb(0, 0, 255));
    const QRect caption = boundsOf(paper, qRgb(0, 0, 0));
    const double across = drawn.width() / 780.0;
    const double down = drawn.height() / 523.0;
    EXPECT_NEAR(across, down, 0.01);
    EXPECT_NEAR(drawn.left(), paper.width() - 1 - drawn.right(), 2);
    const int room = paper.height() - dotsPerInch / 4;
    EXPECT_TRUE(drawn.width() > paper.width() - 4 || drawn.height() > room - 4);
    EXPECT_LE(drawn.bottom(), room);
    EXPECT_GT(caption.top(), drawn.bottom() + dotsPerInch / 24);
    EXPECT_LT(caption.bottom(), paper.height());
    EXPECT_GT(caption.height(), 0.07 * dotsPerInch);
    EXPECT_LT(caption.height(), 0.13 * dotsPerInch);
}

INSTANTIATE_TEST_SUITE_P(Sizes, Paper,
                         ::testing::Values(PaperCase{"A4 landscape", 10.9, 7.48}, PaperCase{"A4", 7.48, 10.9},
                                           PaperCase{"Letter landscape", 10.2, 7.7},
                                           PaperCase{"Letter", 7.7, 10.2}, PaperCase{"A6", 3.3, 5}));

TEST(Drawing, CondensesAllItsDigitsAlikeSoThatEveryNumberFits) {
    QImage paper(400, 80, QImage::Format_RGB32);
    paper.fill(Qt::white);
    Drawing drawing;
    drawing.drawText(10, 10, "8", 21);
    drawing.drawText(100, 10, "888888", 21);
    QPainter painter(&paper);
    painter.scale(2, 2);
    drawing.replay(painter);
    painter.end();

    const auto inkBetween = [&](int left, int right) {
        QRect ink;
        for (int y = 0; y < paper.height(); ++y)
            for (int x = left; x < right; ++x)
                if (qGray(paper.pixel(x, y)) < 200)
                    ink |= QRect(x, y, 1, 1);
        return ink;
    };
    const QRect one = inkBetween(0, 150);
    const QRect six = inkBetween(150, 400);
    EXPECT_LE(six.right(), 2 * (100 + 21));
    EXPECT_NEAR(six.width() / 6.0, one.width(), 2);
    EXPECT_EQ(one.height(), six.height());
}

} // namespace
} // namespace quarvelle::testing

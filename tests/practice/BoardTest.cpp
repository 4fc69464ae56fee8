#include "practice/Board.h"

#include <QBitmap>
#include <QPainter>
#include <QRegion>

#include "engine/LineKinds.h"
#include "practice/RunSettings.h"
#include "tests/support/WindowFixture.h"

namespace quarvelle::testing {
namespace {

TEST(Board, DrawsGridNumbersSignsAndAnswers) {
    const struct {
        int n;
        double start;
        int showAnswers, highlight, mode, texts, shaded;
        int secondX, lastX; ///< of the second number shown, and the last, which isn't negative
    } rows[] = {
        {29, 1, 0, 1, PuzzleMode::puzzles, 840, 0, 58, 682},
        {5, 1, 1, 1, PuzzleMode::puzzles, 25, 1, 34, 106},
        {5, 1, 1, 0, PuzzleMode::puzzles, 25, 0, 34, 106},
        {5, 1, 1, 1, PuzzleMode::answers, 25, 0, 34, 106},
        {5, 1, 0, 1, PuzzleMode::both, 24, 0, 58, 106},
        {5, -24, 1, 1, PuzzleMode::both, 25, 1, 37, 109},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        ProgramState state;
        state.squareSize = static_cast<std::int16_t>(row.n);
        state.startNumber = row.start;
        state.showAnswers = row.showAnswers;
        state.highlightAnswers = row.highlight;
        state.puzzleMode = row.mode;
        // Numbered along the first index, which goes to the right, with a blank at (2, 1).
        for (int cell = 0; cell < row.n * row.n; ++cell)
            cellAt(state.square, 1 + cell % row.n, 1 + cell / row.n) = row.start + cell;
        state.puzzle = state.square;
        state.puzzle[2][1] = blankMarker(4);
        measureBoard(state);
        Drawing drawing;
        showsquare(state, drawing);

        std::vector<FilledRectangle> expected{{QRect(8, 8, 24 * row.n + 1, 18 * row.n + 1), Qt::white}};
        for (int line = 0; line <= row.n; ++line) {
            expected.push_back({QRect(8 + 24 * line, 8, 1, 18 * row.n + 1), Qt::black});
            expected.push_back({QRect(8, 8 + 18 * line, 24 * row.n + 1, 1), Qt::black});
        }
        if (row.shaded)
            expected.push_back({QRect(QPoint(33, 9), QPoint(55, 25)), QColor(192, 192, 192)});
        EXPECT_EQ(itemsOf<FilledRectangle>(drawing), expected);
        const auto texts = itemsOf<TextAtPoint>(drawing);
        ASSERT_EQ(texts.size(), static_cast<std::size_t>(row.texts));
        EXPECT_EQ(texts[0], (TextAtPoint{QPoint(10, 11), QString::number(row.start), 21}));
        EXPECT_EQ(texts[1].point, QPoint(row.secondX, 11));
        EXPECT_EQ(texts.back().point, QPoint(row.lastX, 18 * row.n - 7));
    }
}

TEST(Board, CondensesAllItsDigitsAlike) {
    const auto inkOf = [](const QString& first) {
        Drawing drawing;
        drawing.drawText(10, 3, first, 21);
        drawing.drawText(60, 3, "1", 40);
        QImage image(120, 24, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        drawing.replay(painter);
        return image.createMaskFromColor(QColor(Qt::white).rgb());
    };
    const QImage wide = inkOf("123456789");
    const QRect inked = QRegion(QBitmap::fromImage(wide.copy(0, 0, 50, 24))).boundingRect();
    EXPECT_TRUE(inked.left() >= 9 && inked.right() <= 31 && inked.width() > 15) << inked.width();
    EXPECT_TRUE(wide.copy(50, 0, 50, 24) != inkOf("1").copy(50, 0, 50, 24)) << "digits of two sizes";
}

} // namespace
} // namespace quarvelle::testing

#include "practice/Board.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include "engine/LineKinds.h"
#include "practice/RunSettings.h"
#include "ui/DrawingSurface.h"

namespace quarvelle {
namespace {

template <class Item>
std::vector<Item> itemsOf(const DrawingSurface& surface) {
    std::vector<Item> items;
    for (const DrawingItem& item : surface.drawing().items())
        if (const Item* wanted = std::get_if<Item>(&item))
            items.push_back(*wanted);
    return items;
}

/// Order n, numbered along the first index, with a blank at (2, 1).
std::unique_ptr<ProgramState> numbered(int n, double s, double d) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(n);
    state->startNumber = s;
    state->distance = d;
    for (int cell = 0; cell < n * n; ++cell)
        cellAt(state->square, 1 + cell % n, 1 + cell / n) = s + d * cell;
    state->puzzle = state->square;
    cellAt(state->puzzle, 2, 1) = blankMarker(4);
    measureBoard(*state);
    return state;
}

TEST(Board, DrawsGridAndNumbers) {
    const auto state = numbered(29, 1, 1);
    DrawingSurface surface;
    showsquare(*state, surface);
    const auto rectangles = itemsOf<FilledRectangle>(surface);
    ASSERT_EQ(rectangles.size(), 1U + 30 + 30);
    EXPECT_EQ(rectangles.front(), (FilledRectangle{QRect(8, 8, 697, 523), Qt::white}));
    EXPECT_EQ(rectangles[1], (FilledRectangle{QRect(8, 8, 1, 523), Qt::black}));
    EXPECT_EQ(rectangles[2], (FilledRectangle{QRect(8, 8, 697, 1), Qt::black}));
    EXPECT_EQ(rectangles[59], (FilledRectangle{QRect(704, 8, 1, 523), Qt::black}));
    EXPECT_EQ(rectangles[60], (FilledRectangle{QRect(8, 530, 697, 1), Qt::black}));
    const auto texts = itemsOf<TextAtPoint>(surface);
    ASSERT_EQ(texts.size(), 840U);
    EXPECT_EQ(texts[0], (TextAtPoint{QPoint(10, 11), "1", 21}));
    EXPECT_EQ(texts[1], (TextAtPoint{QPoint(58, 11), "3", 21})) << "the blank is left out";
    EXPECT_EQ(texts[28], (TextAtPoint{QPoint(10, 29), "30", 21})) << "the second index goes down";
}

TEST(Board, ShowsAnswersAndSigns) {
    const struct {
        double s;
        int showAnswers, highlight, mode;
        int shaded;
        QPoint first, last;
    } rows[] = {
        {1, 1, 1, PuzzleMode::puzzles, 1, {10, 11}, {106, 83}},
        {1, 1, 0, PuzzleMode::puzzles, 0, {10, 11}, {106, 83}},
        {1, 1, 1, PuzzleMode::answers, 0, {10, 11}, {106, 83}},
        {1, 0, 1, PuzzleMode::puzzles, 0, {10, 11}, {106, 83}},
        {-3, 1, 1, PuzzleMode::both, 1, {10, 11}, {109, 83}},
        {-24, 1, 1, PuzzleMode::both, 1, {10, 11}, {109, 83}},
    };
    for (const auto& row : rows) {
        const auto state = numbered(5, row.s, 1);
        state->showAnswers = row.showAnswers;
        state->highlightAnswers = row.highlight;
        state->puzzleMode = row.mode;
        DrawingSurface surface;
        showsquare(*state, surface);
        const auto rectangles = itemsOf<FilledRectangle>(surface);
        ASSERT_EQ(rectangles.size(), 13U + static_cast<unsigned>(row.shaded));
        if (row.shaded == 1) {
            EXPECT_EQ(rectangles.back(),
                      (FilledRectangle{QRect(QPoint(33, 9), QPoint(55, 25)), QColor(192, 192, 192)}));
        }
        const auto texts = itemsOf<TextAtPoint>(surface);
        EXPECT_EQ(texts.size(), row.showAnswers == 1 ? 25U : 24U);
        EXPECT_EQ(texts.front().point, row.first);
        EXPECT_EQ(texts.back().point, row.last);
    }
}

TEST(Board, ShowsAsManyCellsAsFit) {
    const struct {
        int n;
        double s, d;
        double cellWidth;
        int columns, rows;
    } rows[] = {{29, 1, 1, 24, 29, 29},          {29, 1, 1000, 48, 15, 29}, {31, 1, 1, 24, 31, 29},
                {23, 1, 100, 40, 18, 23},        {5, 1.5, 1e-9, 88, 5, 5},  {7, 1e20, 1e307, 104, 7, 7},
                {101, -0.123, 1e-12, 104, 7, 29}};
    for (const auto& row : rows) {
        ProgramState state;
        state.squareSize = static_cast<std::int16_t>(row.n);
        state.startNumber = row.s;
        state.distance = row.d;
        measureBoard(state);
        EXPECT_EQ(state.cellWidth, row.cellWidth) << row.n << ' ' << row.d;
        EXPECT_EQ(state.visibleColumns, row.columns) << row.n << ' ' << row.d;
        EXPECT_EQ(state.visibleRows, row.rows);
    }
}

TEST(Board, CondensesWideNumbers) {
    // Replayed, a number never leaves its room, however wide it is.
    DrawingSurface surface;
    surface.drawText(10, 3, "123456789", 21);
    QImage image(120, 24, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    surface.drawing().replay(painter);
    painter.end();
    int inked = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixelColor(x, y) != QColor(Qt::white)) {
                ++inked;
                ASSERT_TRUE(x >= 9 && x <= 31) << x;
            }
    EXPECT_GT(inked, 40);
}

} // namespace
} // namespace quarvelle

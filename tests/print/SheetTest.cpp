#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "print/SheetLayout.h"
#include "tests/print/BatchWindow.h"
#include "tests/print/PrintedBoards.h"
#include "ui/Fonts.h"

namespace quarvelle::testing {
namespace {

TEST(SheetLayout, KeepsSquaresInsideTheSurfaceAndClearOfEachOther) {
    for (const int order : {5, 7, 11, 13, 17, 19, 23, 29})
        for (int cellWidth = 24; order * cellWidth + 8 <= 753; cellWidth += 8) {
            ProgramState state;
            state.squareSize = static_cast<std::int16_t>(order);
            state.cellWidth = cellWidth;
            state.visibleColumns = state.visibleRows = order;
            const SheetLayout layout(state);
            const QSize board(order * cellWidth + 1, order * 18 + 1);
            EXPECT_EQ(layout.place(0), QPoint(8, 8));
            QRect covered;
            for (int i = 0; i < layout.squares(); ++i) {
                const QRect area(layout.place(i), board);
                EXPECT_LE(area.right(), 753);
                EXPECT_LE(area.bottom(), 530);
                covered |= area;
                for (int j = 0; j < i; ++j)
                    EXPECT_FALSE(area.adjusted(-12, -12, 12, 12).intersects(QRect(layout.place(j), board)))
                        << order << ' ' << cellWidth;
            }
            EXPECT_EQ(layout.content(), covered);
            // One more beside or below would leave the surface.
            EXPECT_GT(covered.right() + 12 + board.width(), 753);
            EXPECT_GT(covered.bottom() + 12 + board.height(), 530);
        }
}

struct ExpectedPiece {
    const char* label;
    int labelLeft;
    int firstColumn, firstRow, columns, rows;
};

struct PieceCase {
    const char* name;
    int order;
    const char* distance;
    std::vector<ExpectedPiece> pieces;
};

void PrintTo(const PieceCase& pieces, std::ostream* stream) {
    *stream << pieces.name;
}

class Pieces : public ::testing::TestWithParam<PieceCase> {};

TEST_P(Pieces, LieAtTheCornerWithTheirLabelAndMakeTheSquare) {
    const PieceCase& expected = GetParam();
    BatchWindow batch;
    batch.enter(expected.order, "1", expected.distance, "1");
    batch.state().puzzleMode = PuzzleMode::answers;
    batch.press();

    ASSERT_EQ(batch.printer.sheets.size(), expected.pieces.size());
    std::map<std::pair<int, int>, std::string> square;
    for (std::size_t i = 0; i < expected.pieces.size(); ++i) {
        const ExpectedPiece& piece = expected.pieces[i];
        const FakePrinter::Printed& sheet = batch.printer.sheets[i];
        const PrintedBoards found(sheet.drawing, batch.cellWidth());
        ASSERT_EQ(found.boards.size(), 1U);
        EXPECT_EQ(found.boards[0].area, QRect(8, 8, piece.columns * batch.cellWidth(), piece.rows * 18));
        ASSERT_EQ(found.labels.size(), piece.label == nullptr ? 0U : 1U);
        if (piece.label != nullptr) {
            EXPECT_EQ(found.labels[0].text, piece.label);
            EXPECT_EQ(found.labels[0].point, QPoint(piece.labelLeft, 8));
            EXPECT_GE(sheet.frame.right(),
                      piece.labelLeft + QFontMetricsF(boardFont()).horizontalAdvance(piece.label));
        }
        for (const auto& [place, text] : found.boards[0].cells)
            square[{place.first + piece.firstColumn - 1, place.second + piece.firstRow - 1}] = text;
    }
    EXPECT_EQ(completenessFault(square, expected.order, 1, std::stod(expected.distance)), "");
}

INSTANTIATE_TEST_SUITE_P(
    LargeSquares, Pieces,
    ::testing::Values(PieceCase{"29", 29, "1", {{nullptr, 0, 1, 1, 29, 29}}},
                      PieceCase{"31", 31, "1", {{"1,1", 758, 1, 1, 31, 29}, {"1,2", 758, 1, 30, 31, 2}}},
                      PieceCase{"23 with five characters",
                                23,
                                "20",
                                {{"1,1", 734, 1, 1, 18, 23}, {"2,1", 734, 19, 1, 5, 23}}},
                      PieceCase{"37 with six characters",
                                37,
                                "100",
                                {{"1,1", 734, 1, 1, 15, 29},
                                 {"2,1", 734, 16, 1, 15, 29},
                                 {"3,1", 734, 31, 1, 7, 29},
                                 {"1,2", 734, 1, 30, 15, 8},
                                 {"2,2", 734, 16, 30, 15, 8},
                                 {"3,2", 734, 31, 30, 7, 8}}}));

TEST(Pieces, OfAnOrder101SquareWithEverythingTickedAreFollowedByTheirAnswers) {
    BatchWindow batch;
    batch.enter(101, "1", "1", "1");
    batch.controls().Text3->setText("300");
    batch.controls().Check1->setChecked(true);
    for (QCheckBox* box : batch.window.findChildren<QCheckBox*>())
        box->setChecked(true);
    batch.press();

    // 18 columns and 29 rows a piece: six across, four down.
    ASSERT_EQ(batch.printer.sheets.size(), 48U);
    std::size_t numbers[2] = {};
    for (std::size_t i = 0; i < 48; ++i) {
        const PrintedBoards found(batch.printer.sheets[i].drawing, batch.cellWidth());
        numbers[i % 2] += found.boards.at(0).cells.size();
        EXPECT_EQ(found.labels.at(0).text, QString("%1,%2").arg(i / 2 % 6 + 1).arg(i / 12 + 1));
    }
    EXPECT_EQ(numbers[0], 101U * 101U - 300U);
    EXPECT_EQ(numbers[1], 101U * 101U);
}

} // namespace
} // namespace quarvelle::testing

#include <QFontMetricsF>

#include "engine/MagicArithmetic.h"
#include "tests/print/BatchFixture.h"
#include "widgets/Fonts.h"

namespace quarvelle::testing {

/// A batch with every property, and what comes of it.
struct PrintedBatch {
    int mode = PuzzleMode::both;
    int order = 5;
    const char* start = "1";
    const char* distance = "1";
    const char* random = ""; ///< how many random starts are asked for, if any
    double steps = 0;        ///< from the typed start to the highest with as many digits in its numbers
    bool shades = true;      ///< the answers
    int count = 1;
    std::size_t sheets = 0;
    double cell = 0; ///< its width on paper, in millimetres

    std::string size() const { return numberText(order) + " by " + numberText(order); }
    std::size_t views() const { return mode == PuzzleMode::both ? 2 : 1; }
    std::string kind() const {
        const std::array<const char*, 3> kinds{"squares", "puzzles", "puzzles and answers"};
        return kinds[static_cast<std::size_t>(mode)];
    }
    std::string caption(std::size_t view, std::size_t sheet, const QString& note, double first) const {
        const char* const name = mode == PuzzleMode::answers ? "Squares" : view == 0 ? "Puzzles" : "Answers";
        return name + std::string(", sheet ") + std::to_string(sheet) + note.toStdString() + " · " + size() +
               (*random ? " · first numbers from " : " · first number ") + numberText(first) +
               " · distance " + distance + (mode == PuzzleMode::answers ? "" : " · challenging") +
               " · 2026-11-23";
    }
};

class SquaresTest : public BatchTest {
protected:
    void printBatch(const PrintedBatch& batch) {
        for (QCheckBox* box : window().findChildren<QCheckBox*>())
            box->setChecked(true);
        QAction* const modes[] = {command("panswers"), command("ppuzzles"), command("pboth")};
        modes[batch.mode]->trigger();
        command(batch.shades ? "highlighted" : "nhighlighted")->trigger();
        page().Check1->setChecked(*batch.random != '\0');
        type(page().Text7, batch.random);
        type(page().Text3, "300");
        type(page().text4, batch.start);
        type(page().Text5, batch.distance);
        print(numberText(batch.order).c_str(), batch.count);
    }

    /// The squares of a view, in order, their pieces put together and with the notes of their captions.
    std::vector<ShownBoard> squaresOf(const PrintedBatch& batch, std::size_t view) {
        const int columns = state().visibleColumns, rows = state().visibleRows;
        const int across = (batch.order + columns - 1) / columns;
        const int pieces = across * ((batch.order + rows - 1) / rows);
        std::vector<ShownBoard> squares;
        int piece = 0;
        for (std::size_t i = view; i < printer.sheets.size() && !HasFailure(); i += batch.views()) {
            const FakePrinter::Printed& sheet = printer.sheets[i];
            const QString note = QString::fromStdString(sheet.caption).section(" · ", 1, 1);
            EXPECT_EQ(sheet.caption, batch.caption(view, i / batch.views() + 1,
                                                   pieces > 1 ? " · " + note : "", state().startNumber));
            for (const ShownBoard& board : boardsOf(sheet.drawing, state())) {
                const Place at{piece % across, piece / across};
                expectInPlace(sheet, board, pieces > 1 ? at : Place{-1, -1});
                if (piece == 0)
                    squares.push_back({board.area, board.label});
                ShownBoard& square = squares.back();
                if (pieces > 1)
                    square.label.text = note;
                const auto inSquare = [&](Place place) {
                    return Place{at.across * columns + place.across, at.down * rows + place.down};
                };
                for (const auto& [place, number] : board.numbers)
                    square.numbers[inSquare(place)] = number;
                for (const Place& place : board.shaded)
                    square.shaded.insert(inSquare(place));
                piece = (piece + 1) % pieces;
            }
        }
        return squares;
    }

    /// The board lies on the sheet, and its label below it, or right of it for a piece.
    void expectInPlace(const FakePrinter::Printed& sheet, const ShownBoard& board, Place piece) {
        EXPECT_LT(sheet.content.width() * sheet.scale, 277.01);
        EXPECT_LT(sheet.content.height() * sheet.scale, 183.66);
        EXPECT_TRUE(sheet.content.contains(board.area));
        const TextAtPoint& label = board.label;
        if (piece.across < 0) {
            const QPoint below = board.area.bottomLeft() + QPoint(0, 2);
            EXPECT_TRUE(label == TextAtPoint(below, label.text, board.area.width(), TextStyle::note));
            return;
        }
        const int left = 14 + static_cast<int>(state().cellWidth) * state().visibleColumns;
        EXPECT_EQ(label.text, QString("%1,%2").arg(piece.across + 1).arg(piece.down + 1));
        EXPECT_EQ(label.point, QPoint(left, 8));
        EXPECT_GE(sheet.content.right() - left, QFontMetricsF(boardFont()).horizontalAdvance(label.text));
    }

    /// The squares printed are complete, the numbers of the puzzles are theirs, and the highest start was
    /// drawn.
    void expectSquares(const PrintedBatch& batch) {
        const auto shown = squaresOf(batch, 0), answered = squaresOf(batch, batch.views() - 1);
        ASSERT_EQ(std::ssize(shown), batch.count);
        ASSERT_EQ(std::ssize(answered), batch.count);
        double highest = state().startNumber;
        for (std::size_t i = 0; i < shown.size() && !HasFailure(); ++i) {
            const auto& [area, note, numbers, shaded] = answered[i];
            const auto blanks = static_cast<std::size_t>(batch.order * batch.order) - shown[i].numbers.size();
            EXPECT_EQ(blanks > 0, batch.mode != PuzzleMode::answers);
            EXPECT_EQ(shaded.size(), batch.mode == PuzzleMode::both && batch.shades ? blanks : 0);
            double start = state().startNumber;
            if (batch.mode != PuzzleMode::puzzles)
                start = std::ranges::min(numbers | std::views::values);
            const double total = magicTotal(batch.order, start, leadingNumber(batch.distance));
            EXPECT_EQ(note.text.toStdString(), std::to_string(i + 1) + ". Magic Total " + numberText(total));
            EXPECT_EQ(shown[i].label, note);
            if (batch.mode != PuzzleMode::puzzles) {
                EXPECT_TRUE(std::ranges::includes(numbers, shown[i].numbers)) << "other numbers in " << i;
                Grid square{};
                for (const auto& [place, number] : numbers)
                    cellAt(square, cellOf(place)) = number;
                expectComplete(square, batch.order, total);
            }
            highest = std::max(highest, start);
        }
        EXPECT_EQ(highest, state().startNumber + batch.steps);
    }
};

TEST_F(SquaresTest, AreWhatTheTitleCountsDown) {
    constexpr int answers = PuzzleMode::answers, puzzles = PuzzleMode::puzzles;
    const PrintedBatch batches[] = {
        {.mode = answers, .distance = "5000", .count = 11, .sheets = 2, .cell = 18},
        {.mode = answers, .start = "007", .distance = "2", .count = 26, .sheets = 2, .cell = 10.37},
        {.mode = puzzles, .order = 7, .count = 25, .sheets = 3, .cell = 10.35},
        {.start = "-3.5", .distance = "0.25", .count = 21, .sheets = 4, .cell = 13.83},
        {.order = 11, .start = "-400", .distance = "3", .count = 13, .sheets = 8, .cell = 12.28},
        {.order = 29, .shades = false, .sheets = 2, .cell = 8.22},
        {.mode = answers, .start = "4", .random = "0", .steps = 1, .count = 50, .sheets = 2, .cell = 8.28},
        {.mode = answers, .start = "4", .random = "1", .sheets = 1, .cell = 18},
        {.start = "4", .random = "71", .steps = 69, .count = 40, .sheets = 4, .cell = 9.94},
        {.order = 31, .sheets = 4, .cell = 8.43},
        {.order = 23, .distance = "20", .count = 2, .sheets = 8, .cell = 14.05},
        {.order = 101, .sheets = 48, .cell = 14.05}};
    for (const PrintedBatch& batch : batches | untilFailure) {
        SCOPED_TRACE(batch.kind() + " from " + batch.start + ", " + batch.size());
        random = ScriptedRandom({0.999, 0.999}); // the highest start
        events.onYield = [&](int) {
            EXPECT_EQ(title(), "Creating (" + batch.size() + ") Complete Magic Square(s): " +
                                   numberText(batch.count - state().squaresSolved) + " out of " +
                                   numberText(batch.count) + ' ' + batch.kind() + " left to print.");
        };
        printBatch(batch);
        EXPECT_EQ(state().squaresSolved, batch.count);
        EXPECT_EQ(printer.document.toStdString(), "Quarvelle " + batch.size());
        ASSERT_EQ(printer.sheets.size(), batch.sheets);
        EXPECT_NEAR(printer.sheets[0].scale * state().cellWidth, batch.cell, 0.01);
        expectSquares(batch);
    }
}

} // namespace quarvelle::testing

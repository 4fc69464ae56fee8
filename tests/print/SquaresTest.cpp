#include <QFontMetricsF>

#include "board/Pieces.h"
#include "engine/MagicArithmetic.h"
#include "tests/support/WindowFixture.h"
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
    std::string caption(std::size_t i, const QString& note, double first) const {
        const char* const names[] = {"Squares", "Puzzles", i % 2 == 0 ? "Puzzles" : "Answers"};
        return names[mode] + std::string(", sheet ") + std::to_string(i / views() + 1) + note.toStdString() +
               " · " + size() + (*random ? " · first numbers from " : " · first number ") +
               numberText(first) + " · distance " + distance +
               (mode == PuzzleMode::answers ? "" : " · challenging") + " · 2026-11-23";
    }
};

class SquaresTest : public WindowFixture {
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
        print(QString::number(batch.order), batch.count);
    }

    /// The squares of a view, in order, their pieces put together and with the notes of their captions.
    std::vector<ShownBoard> squaresOf(const PrintedBatch& batch, std::size_t view) {
        const Pieces pieces(state());
        std::vector<ShownBoard> squares;
        int boards = 0;
        for (std::size_t i = view; i < printer.sheets.size() && !HasFailure(); i += batch.views()) {
            const FakePrinter::Printed& sheet = printer.sheets[i];
            const QString note = sheet.caption.section(" · ", 1, 1);
            const QString ofPiece = pieces.count() > 1 ? " · " + note : "";
            EXPECT_EQ(sheet.caption.toStdString(), batch.caption(i, ofPiece, state().startNumber));
            const QSizeF size = QSizeF(sheet.content.size()) * sheet.scale;
            EXPECT_TRUE(size.width() < 277.01 && size.height() < 183.66);
            for (const ShownBoard& board : boardsOf(sheet.drawing, state())) {
                const int piece = boards++ % pieces.count();
                const Place at{piece % pieces.across(), piece / pieces.across()};
                EXPECT_TRUE(sheet.content.contains(board.area));
                expectLabel(sheet, board, pieces.count() > 1, at);
                if (piece == 0)
                    squares.push_back({board.area, board.label});
                if (pieces.count() > 1)
                    squares.back().label.text = note;
                const auto inSquare = [&](Place place) {
                    return Place{at.across * pieces.cellsAcross() + place.across,
                                 at.down * pieces.cellsDown() + place.down};
                };
                for (const auto& [place, number] : board.numbers)
                    squares.back().numbers[inSquare(place)] = number;
                for (const Place& place : board.shaded)
                    squares.back().shaded.insert(inSquare(place));
            }
        }
        return squares;
    }

    /// A square's note stands below it, a piece's label right of where the widest ends.
    void expectLabel(const FakePrinter::Printed& sheet, const ShownBoard& board, bool isPiece, Place at) {
        const TextAtPoint& label = board.label;
        const QPoint below = board.area.bottomLeft() + QPoint(0, 2);
        const QPoint right(14 + static_cast<int>(state().cellWidth) * state().visibleColumns, 8);
        const QString name = QString("%1,%2").arg(at.across + 1).arg(at.down + 1);
        EXPECT_EQ(label, isPiece ? TextAtPoint(right, name, {})
                                 : TextAtPoint(below, label.text, board.area.width(), TextStyle::note));
        const double width = isPiece ? QFontMetricsF(boardFont()).horizontalAdvance(name) : 0;
        EXPECT_GE(sheet.content.right() - label.point.x(), width);
    }

    /// The squares printed are complete, the numbers of the puzzles are theirs, and the highest start was
    /// drawn.
    void expectSquares(const PrintedBatch& batch) {
        const auto shown = squaresOf(batch, 0), answered = squaresOf(batch, batch.views() - 1);
        ASSERT_TRUE(std::ssize(shown) == batch.count && std::ssize(answered) == batch.count);
        const auto cells = static_cast<std::size_t>(batch.order * batch.order);
        double highest = state().startNumber;
        for (std::size_t i = 0; i < shown.size() && !HasFailure(); ++i) {
            const auto& [area, note, numbers, shaded] = answered[i];
            const std::size_t blanks = cells - shown[i].numbers.size();
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
    const std::string kinds[] = {"squares", "puzzles", "puzzles and answers"};
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
        const std::string& kind = kinds[batch.mode];
        SCOPED_TRACE(kind + " from " + batch.start + ", " + batch.size());
        random = ScriptedRandom({0.999, 0.999}); // the highest start
        events.onYield = [&] {
            EXPECT_EQ(title(), "Creating (" + batch.size() + ") Complete Magic Square(s): " +
                                   numberText(batch.count - state().squaresSolved) + " out of " +
                                   numberText(batch.count) + ' ' + kind + " left to print.");
        };
        printBatch(batch);
        EXPECT_EQ(printer.document.toStdString(), "Quarvelle " + batch.size());
        ASSERT_EQ(printer.sheets.size(), batch.sheets);
        EXPECT_NEAR(printer.sheets[0].scale * state().cellWidth, batch.cell, 0.01);
        expectSquares(batch);
    }
}

} // namespace quarvelle::testing

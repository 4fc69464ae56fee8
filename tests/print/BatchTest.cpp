#include <gtest/gtest.h>
#include <set>

#include "tests/print/BatchWindow.h"
#include "tests/print/PrintedBoards.h"

namespace quarvelle::testing {
namespace {

using Captions = std::vector<std::string>;

struct BatchCase {
    const char* name;
    int mode;
    int order;
    const char* start;
    const char* distance;
    int count;
    Captions captions;
};

void PrintTo(const BatchCase& batch, std::ostream* stream) {
    *stream << batch.name;
}

class EveryBatch : public ::testing::TestWithParam<BatchCase> {};

/// All boards of the sheets whose caption begins with `kind`, in printing order.
std::vector<PrintedBoard> boardsOf(BatchWindow& batch, const char* kind) {
    std::vector<PrintedBoard> boards;
    for (const FakePrinter::Printed& sheet : batch.printer.sheets)
        if (sheet.caption.startsWith(kind)) {
            const PrintedBoards found(sheet.drawing, batch.cellWidth());
            boards.insert(boards.end(), found.boards.begin(), found.boards.end());
        }
    return boards;
}

TEST_P(EveryBatch, PrintsCompleteSquaresAndPuzzlesThatAgreeWithTheirAnswers) {
    const BatchCase& expected = GetParam();
    BatchWindow batch;
    batch.state().puzzleMode = expected.mode;
    batch.enter(expected.order, expected.start, expected.distance, QString::number(expected.count));
    batch.press();

    EXPECT_EQ(batch.printer.captions(), expected.captions);
    EXPECT_EQ(batch.printer.finished, 1);
    const auto answers = boardsOf(batch, expected.mode == PuzzleMode::both ? "Answers" : "Squares");
    const auto puzzles = boardsOf(batch, "Puzzles");
    const auto count = static_cast<std::size_t>(expected.count);
    EXPECT_EQ(answers.size(), expected.mode == PuzzleMode::puzzles ? 0 : count);
    EXPECT_EQ(puzzles.size(), expected.mode == PuzzleMode::answers ? 0 : count);
    for (const PrintedBoard& board : answers)
        EXPECT_EQ(completenessFault(board.cells, expected.order, std::stod(expected.start),
                                    std::stod(expected.distance)),
                  "");
    const auto order = static_cast<std::size_t>(expected.order);
    const std::size_t cells = order * order;
    for (std::size_t i = 0; i < puzzles.size(); ++i) {
        EXPECT_LT(puzzles[i].cells.size(), cells);
        EXPECT_EQ(puzzles[i].shaded, 0);
        if (i >= answers.size())
            continue;
        EXPECT_EQ(puzzles[i].area, answers[i].area);
        EXPECT_EQ(static_cast<std::size_t>(answers[i].shaded), cells - puzzles[i].cells.size());
        for (const auto& [place, number] : puzzles[i].cells)
            EXPECT_EQ(number, answers[i].cells.at(place));
    }
    for (const PrintedBoard& board : answers)
        EXPECT_EQ(board.shaded > 0, expected.mode == PuzzleMode::both);
}

INSTANTIATE_TEST_SUITE_P(
    Batches, EveryBatch,
    ::testing::Values(
        BatchCase{"squares", PuzzleMode::answers, 5, "1", "1", 26, {"Squares, sheet 1", "Squares, sheet 2"}},
        BatchCase{"puzzles", PuzzleMode::puzzles, 7, "1", "1", 12, {"Puzzles, sheet 1"}},
        BatchCase{"both",
                  PuzzleMode::both,
                  5,
                  "1",
                  "1",
                  51,
                  {"Puzzles, sheet 1", "Answers, sheet 1", "Puzzles, sheet 2", "Answers, sheet 2",
                   "Puzzles, sheet 3", "Answers, sheet 3"}},
        BatchCase{
            "fractions", PuzzleMode::both, 5, "-3.5", "0.25", 2, {"Puzzles, sheet 1", "Answers, sheet 1"}},
        BatchCase{"negative", PuzzleMode::both, 11, "-400", "3", 3, {"Puzzles, sheet 1", "Answers, sheet 1"}},
        BatchCase{"29", PuzzleMode::both, 29, "1", "1", 1, {"Puzzles, sheet 1", "Answers, sheet 1"}}),
    ::testing::PrintToStringParamName());

TEST(Batch, CountsDownInTheTitleAndLeavesTheMainPageAsItWas) {
    BatchWindow batch;
    batch.enter(5, "007", "2", "3");
    batch.controls().Text3->setText("10");
    std::set<QString> titles;
    batch.events.onYield = [&](int) { titles.insert(batch.window.windowTitle()); };
    batch.press();

    const QString rest = " out of 3 puzzles and answers left to print.";
    for (const char* left : {"3", "2", "1"})
        EXPECT_EQ(titles.count("Creating (5 by 5) Complete Magic Square(s): " + (left + rest)), 1U) << left;
    EXPECT_EQ(batch.window.windowTitle(), "Quarvelle");
    EXPECT_EQ(batch.state().currentPage, Page::main);
    EXPECT_EQ(batch.state().stopRequested, Request::none);
    EXPECT_EQ(batch.state().startNumber, 7);
    EXPECT_EQ(batch.controls().text4->text(), "7");
    EXPECT_TRUE(batch.controls().Command1->isVisible() && batch.controls().Command1->isEnabled());
    EXPECT_EQ(batch.printer.documentName, "Quarvelle 5 by 5");
}

TEST(Batch, OffersOnlyToAbort) {
    BatchWindow batch;
    const Ui::MagicSquare2& menus = batch.window.menus();
    bool onlyAbort = true;
    batch.events.onYield = [&](int) {
        onlyAbort = onlyAbort && menus.options1->menuAction()->isVisible() && menus.aprinting->isVisible() &&
                    !menus.newsquare->isVisible() && !menus.startover->isVisible() &&
                    !menus.qplaying->isVisible() && !menus.options2->menuAction()->isVisible() &&
                    !menus.printoptions->menuAction()->isVisible();
    };
    batch.press();
    EXPECT_GT(batch.events.yields(), 0);
    EXPECT_TRUE(onlyAbort);
    EXPECT_FALSE(menus.options1->menuAction()->isVisible());
}

struct RandomStartCase {
    const char* asked;
    double highest;
};

class RandomStarts : public ::testing::TestWithParam<RandomStartCase> {};

TEST_P(RandomStarts, AreDrawnForEachSquareFromTheTypedOneOn) {
    BatchWindow batch;
    batch.enter(5, "4", "1", "40");
    batch.state().puzzleMode = PuzzleMode::answers;
    batch.controls().Check1->setChecked(true);
    batch.controls().Text7->setText(GetParam().asked);
    batch.press();

    std::set<double> starts;
    for (const PrintedBoard& board : boardsOf(batch, "Squares")) {
        double start = 1e9;
        for (const auto& [place, text] : board.cells)
            start = std::min(start, std::stod(text));
        starts.insert(start);
        EXPECT_EQ(completenessFault(board.cells, 5, start, 1), "");
    }
    EXPECT_GT(starts.size(), 1U);
    EXPECT_GE(*starts.begin(), 4);
    EXPECT_LE(*starts.rbegin(), GetParam().highest);
    EXPECT_EQ(batch.state().startNumber, 4);
}

// Without a bound of its own, the number of digits is one: no number of the square goes above 99.
INSTANTIATE_TEST_SUITE_P(Batches, RandomStarts,
                         ::testing::Values(RandomStartCase{"3", 6}, RandomStartCase{"0", 5},
                                           RandomStartCase{"1000", 75}));

TEST(Batch, OfNothingAsksNothing) {
    for (const char* count : {"0", "-3", "many"}) {
        BatchWindow batch;
        batch.enter(5, "1", "1", count);
        batch.press();
        EXPECT_EQ(batch.printer.asked, 0) << count;
        EXPECT_EQ(batch.state().currentPage, Page::main) << count;
    }
}

TEST(Batch, IsRefusedAboveOrder101) {
    BatchWindow batch;
    batch.enter(103, "1", "1", "1");
    batch.press();
    batch.batch().Command1_Click();
    EXPECT_EQ(batch.printer.asked, 0);
}

} // namespace
} // namespace quarvelle::testing

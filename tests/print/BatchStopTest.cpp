#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>

#include "tests/print/BatchWindow.h"

namespace quarvelle::testing {
namespace {

/// 25 squares of order 5 share a sheet.
constexpr int perSheet = 25;

struct StopCase {
    int afterSquares;
    std::size_t sheets;
};

class Stop : public ::testing::TestWithParam<StopCase> {};

TEST_P(Stop, PrintsTheFullSheetsAndNoMore) {
    for (const bool byKey : {false, true}) {
        BatchWindow batch;
        batch.enter(5, "1", "1", "75");
        batch.events.onYield = [&](int) {
            if (batch.state().squaresSolved != GetParam().afterSquares)
                return;
            if (byKey)
                QTest::keyClick(&batch.window, Qt::Key_Q);
            else
                batch.window.menus().aprinting->trigger();
        };
        batch.press();
        EXPECT_EQ(batch.printer.sheets.size(), GetParam().sheets);
        EXPECT_EQ(batch.printer.finished, 1);
        EXPECT_TRUE(batch.printer.told.empty());
        EXPECT_EQ(batch.state().currentPage, Page::main);
        EXPECT_EQ(batch.state().stopRequested, Request::none);
        EXPECT_EQ(batch.window.windowTitle(), "Quarvelle");
    }
}

INSTANTIATE_TEST_SUITE_P(InTheFirstAMiddleAndTheLast, Stop,
                         ::testing::Values(StopCase{0, 0}, StopCase{perSheet, 2},
                                           StopCase{2 * perSheet - 1, 2}, StopCase{3 * perSheet - 1, 4}));

TEST(Batch, StopsBetweenThePiecesOfASquare) {
    BatchWindow batch;
    batch.enter(31, "1", "1", "1");
    batch.events.onYield = [&](int) {
        if (batch.printer.sheets.size() == 2)
            batch.state().stopRequested = Request::stop;
    };
    batch.press();
    EXPECT_EQ(batch.printer.captions(), (std::vector<std::string>{"Puzzles, sheet 1", "Answers, sheet 1"}));
    EXPECT_EQ(batch.printer.finished, 1);
}

TEST(Batch, EndsWithItsWindow) {
    BatchWindow batch;
    batch.enter(5, "1", "1", "1000");
    batch.printer.finishFails = true;
    batch.events.onYield = [&](int) {
        if (batch.state().squaresSolved == 30)
            batch.window.close();
    };
    batch.press();
    EXPECT_EQ(batch.printer.sheets.size(), 2U);
    EXPECT_EQ(batch.printer.finished, 1);
    EXPECT_TRUE(batch.printer.told.empty());
}

TEST(Batch, IsNotStoppedByKeysPressedBeforeItOrInItsDialog) {
    BatchWindow batch;
    batch.enter(5, "1", "1", "2");
    QTest::keyClick(&batch.window, Qt::Key_Q);
    batch.printer.whileChoosing = [] {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Q);
    };
    batch.press();
    EXPECT_EQ(batch.printer.sheets.size(), 2U);
}

TEST(Batch, ThatIsCancelledChangesNothing) {
    BatchWindow batch;
    batch.enter(7, "3", "2", "4");
    batch.printer.cancels = true;
    batch.press();
    EXPECT_EQ(batch.printer.asked, 1);
    EXPECT_EQ(batch.printer.finished, 0);
    EXPECT_TRUE(batch.printer.told.empty());
    EXPECT_EQ(batch.state().currentPage, Page::main);
    EXPECT_EQ(batch.window.windowTitle(), "Quarvelle");
    EXPECT_EQ(batch.state().squareSize, 7);
    EXPECT_EQ(batch.controls().Text1->text(), "4");
    batch.printer.cancels = false;
    batch.press();
    EXPECT_EQ(batch.printer.sheets.size(), 2U);
}

struct FailureCase {
    bool begin;
    std::size_t sheet;
    bool finish;
    const char* reason;
    std::size_t sheets;
};

class Failure : public ::testing::TestWithParam<FailureCase> {};

TEST_P(Failure, EndsTheBatchAndTellsThePersonWhy) {
    BatchWindow batch;
    batch.enter(5, "1", "1", "60");
    batch.printer.beginFails = GetParam().begin;
    batch.printer.failingSheet = GetParam().sheet;
    batch.printer.finishFails = GetParam().finish;
    batch.press();
    EXPECT_EQ(batch.printer.told, std::vector<QString>{GetParam().reason});
    EXPECT_EQ(batch.printer.sheets.size(), GetParam().sheets);
    EXPECT_EQ(batch.state().currentPage, Page::main);
    EXPECT_TRUE(batch.controls().Command1->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(AtEveryStep, Failure,
                         ::testing::Values(FailureCase{true, 0, false, "no beginning", 0},
                                           FailureCase{false, 1, false, "paper jam", 0},
                                           FailureCase{false, 4, false, "paper jam", 3},
                                           FailureCase{false, 6, false, "paper jam", 5},
                                           FailureCase{false, 0, true, "no end", 6}));

} // namespace
} // namespace quarvelle::testing

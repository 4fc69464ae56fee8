#include <cmath>
#include <gtest/gtest.h>

#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/PrimeOrder.h"
#include "engine/ProgramState.h"
#include "engine/SquareCount.h"
#include "practice/RunSettings.h"

namespace quarvelle {
namespace {

TEST(MagicArithmetic, CaptionsAndTotals) {
    const struct {
        int n;
        double s, d;
        const char* total;
        const char* last;
    } rows[] = {
        {5, 1, 1, "Magic Total = 65", "Last number equals: 25"},
        {5, 1, 0.1, "Magic Total = 11", "Last number equals: 3.4"},
        {5, -1000000, 1, "Magic Total = -4999940", "Last number equals: -999976"},
        {5, 9999976, 1, "Magic Total = 49999940", "Last number is {very large!}"},
        {5, 1999999988, 1, "Magic Total = 10000000000", "Last number is {very large!}"},
        {5, 19999999988, 1, "Magic Total is {very large!}", "Last number is {very large!}"},
        {5, 1e308, 1e308, "Magic Total is {very large!}", "Last number is {very large!}"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(magicTotalCaption(numberText(magicTotal(row.n, row.s, row.d))), row.total);
        EXPECT_EQ(lastNumberCaption(row.n, row.s, row.d), row.last);
    }
}

TEST(MagicArithmetic, CellWidthsAndFit) {
    const struct {
        std::int16_t n;
        double s, d;
        int maxDigits, digitWidth;
        double cellWidth;
        int columns, rows;
        bool playable;
    } rows[] = {
        {29, 1, 1000, 6, 6, 48, 15, 29, true},
        {31, 1, 1, 3, 3, 24, 31, 29, true},
        {5, -5, 1, 2, 3, 24, 5, 5, true},  // 19 is as long as -5
        {5, -15, 1, 3, 3, 24, 5, 5, true}, // 9 is shorter than -15
        {5, -100, -1, 4, 4, 32, 5, 5, true},
        {7, 1, 1e14, 7, 7, 56, 7, 7, true},        // "4.8E+15"
        {5, 1e200, -5e198, 7, 7, 56, 5, 5, false}, // to -2E+199
        {5, 1e308, 1e308, 13, 13, 104, 5, 5, false},
        {32749, 1, 1, 10, 10, 80, 9, 29, true},
    };
    for (const auto& row : rows) {
        ProgramState state;
        state.squareSize = row.n;
        state.startNumber = row.s;
        state.distance = row.d;
        measureBoard(state);
        EXPECT_EQ(state.maxDigits, row.maxDigits) << row.n << ' ' << row.s << ' ' << row.d;
        EXPECT_EQ(state.digitWidth, row.digitWidth) << row.n << ' ' << row.s << ' ' << row.d;
        EXPECT_EQ(state.cellWidth, row.cellWidth);
        EXPECT_EQ(state.visibleColumns, row.columns);
        EXPECT_EQ(state.visibleRows, row.rows);
        EXPECT_EQ(boardIsTooLarge(state), row.columns < row.n || row.rows < row.n);
        EXPECT_EQ(hasPlayableNumbers(state), row.playable);
    }
}

TEST(PrimeOrder, AcceptsThePrimesThatASieveFinds) {
    std::vector<bool> composite(32770);
    for (std::size_t i = 2; i < composite.size(); ++i)
        for (std::size_t multiple = 2 * i; !composite[i] && multiple < composite.size(); multiple += i)
            composite[multiple] = true;
    ProgramState state;
    for (int x = -3; x < 32768; ++x)
        ASSERT_EQ(primetest(state, x), x >= 5 && !composite[static_cast<std::size_t>(x)]) << x;
    for (const double x : {5.5, 32771.0, 1e18, 1e308, -7.0, std::nan("")})
        EXPECT_FALSE(primetest(state, x)) << x;
}

TEST(SquareCount, StatesTheNumbersOfEachSize) {
    const struct {
        int n;
        const char *fundamental, *shifted, *total;
    } rows[] = {
        {5, "576", "14400", "28800"},
        {7, "1555200", "76204800", "304819200"},
        {13, "6.8832759840768E+17", "1.16327364130898E+20", "4.65309456523592E+20"},
        {97, "", "", "1.11036564183981E+305"},
    };
    ProgramState state;
    for (const auto& row : rows) {
        const SquareCount count = squareCount(state, row.n);
        const std::string shifted(row.shifted), total(row.total);
        EXPECT_NE(count.fundamental.find(row.fundamental), std::string::npos);
        EXPECT_NE(count.shifts.find(" = " + shifted), std::string::npos) << count.shifts;
        EXPECT_NE(count.rotations.find(" = " + total), std::string::npos) << count.rotations;
        EXPECT_NE(count.total.find("exactly " + total + " \"Complete\""), std::string::npos);
    }
    EXPECT_EQ(squareCount(state, 7).rotations, "Each Square can also be rotated three times to produce three "
                                               "more squares: (76204800 * 4 = 304819200).");
    const SquareCount large = squareCount(state, 101);
    EXPECT_EQ(large.fundamental, "The number of Squares is too large!");
    EXPECT_EQ(large.shifts + large.rotations + large.total, "");
}

} // namespace
} // namespace quarvelle

#include <cmath>
#include <gtest/gtest.h>

#include "engine/MagicArithmetic.h"
#include "engine/PrimeOrder.h"
#include "engine/ProgramState.h"
#include "engine/SquareCount.h"
#include "practice/RunSettings.h"

namespace quarvelle {
namespace {

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
        SCOPED_TRACE(row.s);
        EXPECT_EQ(state.maxDigits, row.maxDigits);
        EXPECT_EQ(state.digitWidth, row.digitWidth);
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
    for (const double x : {5.5, 32771.0, 1e308, -7.0, std::nan("")})
        EXPECT_FALSE(primetest(state, x)) << x;
}

TEST(SquareCount, StatesTheNumbersOfEachSize) {
    const struct {
        int n;
        const char *fundamental, *shifts, *rotations, *total; ///< what the sentences hold
    } rows[] = {
        {5, "576 f", "(576 * 25 = 14400)", "once to produce a second square: (14400 * 2 = 28800)", "28800"},
        {7, "1555200 f", "(1555200 * 49 = 76204800)", "three more squares: (76204800 * 4 = 304819200)",
         "304819200"},
        {13, "6.8832759840768E+17 f", " * 169 = 1.16327364130898E+20)", " * 4 = 4.65309456523592E+20)",
         "4.65309456523592E+20"},
        {97, "There are ", " * 9409 = ", "", "1.11036564183981E+305"},
        {101, "The number of Squares is too large!", "", "", ""},
    };
    ProgramState state;
    for (const auto& row : rows) {
        const SquareCount count = squareCount(state, row.n);
        EXPECT_NE(count.fundamental.find(row.fundamental), std::string::npos) << count.fundamental;
        EXPECT_NE(count.shifts.find(row.shifts), std::string::npos) << count.shifts;
        EXPECT_NE(count.rotations.find(row.rotations), std::string::npos) << count.rotations;
        EXPECT_NE(count.total.find(row.total), std::string::npos) << count.total;
        EXPECT_EQ((count.shifts + count.rotations + count.total).empty(), row.n > 97);
    }
}

} // namespace
} // namespace quarvelle

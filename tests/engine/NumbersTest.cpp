#include "engine/Numbers.h"

#include <cmath>
#include <gtest/gtest.h>

#include "engine/MagicArithmetic.h"
#include "engine/PrimeOrder.h"
#include "engine/ProgramState.h"
#include "engine/Random.h"
#include "engine/SquareCount.h"
#include "practice/RunSettings.h"

namespace quarvelle {
namespace {

TEST(Numbers, AreWrittenByTheRules) {
    const std::pair<double, const char*> rows[] = {
        {-0.0, "0"},
        {-0.25, "-0.25"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {0.000123456789012345, "1.23456789012345E-04"},
        {-999999999999999, "-999999999999999"},
        {999999999999999.9, "1E+15"},
        {1.11036564183981E+305, "1.11036564183981E+305"},
        {HUGE_VAL, "{very large!}"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(numberText(value), text);
}

TEST(Numbers, AreReadFromWhatATextBeginsWith) {
    const std::pair<const char*, double> rows[] = {
        {"", 0},       {"abc", 0},     {"-", 0},    {".", 0},       {"007", 7},      {"  \t12ab", 12},
        {"+3", 3},     {"-3", -3},     {"+-3", 0},  {"--3", 0},     {".5", 0.5},     {"-5.", -5},
        {"1e3", 1000}, {"1E+3", 1000}, {"1e+", 1},  {"1.2.3", 1.2}, {"1,5", 1},      {"2.5e-1", .25},
        {"0x10", 0},   {"inf", 0},     {"-nan", 0}, {"1E+999", 0},  {"\xD9\xA3", 0},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(leadingNumber(text), value) << '"' << text << '"';
}

TEST(Numbers, SurviveWritingAndReading) {
    SeededRandom random(7);
    for (int round = 0; round < 20000; ++round) {
        const double value = (random.draw() - 0.5) * std::pow(10, random.below(600) - 300);
        const double read = leadingNumber(numberText(value));
        EXPECT_NEAR(read, value, std::fabs(value) * 1e-14);
        EXPECT_EQ(numberText(read), numberText(value));
    }
}

TEST(Numbers, DecideWhatFitsOnTheBoard) {
    const struct {
        std::int16_t n;
        double s, d;
        int maxDigits;
        double cellWidth;
        int columns;
        bool playable = true;
    } rows[] = {
        {29, 1, 1000, 6, 48, 15},
        {31, 1, 1, 3, 24, 31},
        {5, -500, 58, 4, 32, 5},  // to 892: shorter than -500
        {5, -500, 100, 4, 40, 5}, // to 1900: as long
        {5, -1000, -1, 5, 40, 5},
        {7, 1, 1e14, 7, 56, 7},              // to 4.8E+15
        {5, 1e200, -5e198, 7, 56, 5, false}, // to -2E+199
        {5, 1e308, 1e308, 13, 104, 5, false},
        {32749, 1, 1, 10, 80, 9},
    };
    for (const auto& [n, s, d, maxDigits, cellWidth, columns, playable] : rows) {
        ProgramState state;
        state.squareSize = n;
        state.startNumber = s;
        state.distance = d;
        measureBoard(state);
        SCOPED_TRACE(s);
        EXPECT_EQ(state.maxDigits, maxDigits);
        EXPECT_EQ(state.cellWidth, cellWidth);
        EXPECT_EQ(state.visibleColumns, columns);
        EXPECT_EQ(state.visibleRows, std::min<int>(n, 29));
        EXPECT_EQ(boardIsTooLarge(state), columns < n || n > 29);
        EXPECT_EQ(hasPlayableNumbers(state), playable);
    }
}

TEST(PrimeOrder, AcceptsThePrimesFromFive) {
    ProgramState state;
    int orders = 0;
    for (int x = -3; x < 32768; ++x)
        orders += primetest(state, x);
    EXPECT_EQ(orders, 3512 - 2) << "the primes below 2^15 without 2 and 3";
    for (const double x : {2.0, 3.0, 5.5, 25.0, 32771.0, 1e308, std::nan("")})
        EXPECT_FALSE(primetest(state, x)) << x;
}

TEST(SquareCount, StatesTheNumbersOfEachSize) {
    const std::pair<int, const char*> rows[] = {
        {5, "576 f"},
        {5, "by row and column shift: (576 * 25 = 14400)"},
        {5, "once to produce a second square: (14400 * 2 = 28800)"},
        {7, "1555200 f"},
        {7, "three more squares: (76204800 * 4 = 304819200)"},
        {13, "6.8832759840768E+17 * 169 = 1.16327364130898E+20)"},
        {13, "exactly 4.65309456523592E+20"},
        {97, "exactly 1.11036564183981E+305"},
        {101, "too large!"},
    };
    ProgramState state;
    for (const auto& [n, text] : rows) {
        const SquareCount count = squareCount(state, n);
        const std::string all = count.fundamental + count.shifts + count.rotations + count.total;
        EXPECT_NE(all.find(text), std::string::npos) << all;
    }
}

} // namespace
} // namespace quarvelle

#include "engine/Numbers.h"

#include <cmath>
#include <set>

#include "engine/Construction.h"
#include "engine/MagicArithmetic.h"
#include "engine/PrimeOrder.h"
#include "engine/SquareCount.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {

TEST(Numbers, AreReadFromWhatATextBeginsWithAndWrittenByTheRules) {
    // clang-format off
    const std::pair<const char*, const char*> rows[] = {
        {"-0", "0"}, {"+3", "3"}, {"5.", "5"}, {"abc", "0"}, {"+-3", "0"}, {"1e+", "1"}, {"1,5", "1"},
        {"0x10", "0"}, {"-inf", "0"}, {"1E+999", "0"}, {"1.2.3", "1.2"}, {"-.25", "-0.25"}, {"\xD9\xA3", "0"},
        {"", "0"}, {"\n \xC2\xA0-7", "-7"}, {"\xE2\x80\xA8" "12", "12"}, {"  \t12ab", "12"}, {"2.5E-1", "0.25"}, {"1e-16", "1E-16"}, {"999999999999999.9", "1E+15"},
        {"1E305", "1E+305"}, {"1e-15", "0.000000000000001"}, {"-999999999999999", "-999999999999999"},
        {".33333333333333333", "0.333333333333333"}, {"0.000123456789012345", "1.23456789012345E-04"},
    };
    // clang-format on
    for (const auto& [typed, shown] : rows | untilFailure)
        EXPECT_EQ(numberText(leadingNumber(typed)), shown) << typed;
    EXPECT_GT(textLength(HUGE_VAL), 11) << "must be too long for every readout";
}

TEST(Numbers, AreWhatDecimalArithmeticSays) {
    ScriptedRandom random;
    ScriptedEvents events;
    for (const int n : {5, 7, 11})
        for (double start = -990; start <= 990; start += 10)
            // A distance of 1 has the random starting numbers as well.
            for (const double step : {10, 20, 30, 40, 50, 60, 70, 80, 90, 1, 25, 1250, 100}) {
                // The quotient of whole numbers is the double nearest to it, as the decimal reads.
                const double s = start / 100.0, d = step / 100.0;
                std::vector<double> decimals, numbers;
                for (int k = 0; k < n * n; ++k)
                    decimals.push_back((start + k * step) / 100.0);
                const auto state = stateOf(n, 1, 1);
                state->startNumber = s;
                state->distance = d;
                buildCompleteSquare(*state, random, events);
                for (int row = 1; row <= n; ++row)
                    numbers.insert(numbers.end(), &state->square[row][1], &state->square[row][n + 1]);
                std::ranges::sort(numbers);
                ASSERT_TRUE(numbers == decimals) << s << ' ' << d;
                ASSERT_EQ(lastNumber(n, s, d), decimals.back()) << s << ' ' << d;
                ASSERT_EQ(magicTotal(n, s, d), (n * start + step * n * (n * n - 1) / 2) / 100.0);
            }
    EXPECT_EQ(magicTotal(5, -13, 1.1), 1);
    // Where a double can't hold the decimals.
    EXPECT_EQ(lastNumber(5, 1e16, 0.7), 1e16 + 0.7 * 24);
    EXPECT_EQ(lastNumber(5, 0.1, 1e-16), 0.1 + 1e-16 * 24);
}

TEST(Numbers, AreRefusedWhereTwoHaveTheSameText) {
    const auto state = stateOf(5, 1, 1);
    for (const double start : {0.0, 1.0, -0.1, 0.3, 9.5, 999999999999990.0, 1e16, -1e199, 1e-310})
        for (int exponent = -323; exponent < 20; ++exponent)
            for (const double factor : {1.0, 4.5, 9.99}) {
                state->startNumber = start;
                state->distance = factor * std::pow(10, exponent);
                std::set<std::string> texts;
                for (int k = 1; k <= 25; ++k)
                    texts.insert(numberText(SquareNumbers(start, state->distance).realValue(k)));
                ASSERT_EQ(numberFault(*state), texts.size() < 25 ? NumberFault::alike : NumberFault::none)
                    << start << " in steps of " << state->distance;
            }
}

TEST(Numbers, AreStatedForEveryOrder) {
    const std::pair<int, const char*> rows[] = {
        {5, "once to produce a second square: (14400 * 2 = 28800).Therefore, there are exactly 28800 "},
        {7, "three more squares: (76204800 * 4 = 304819200)"},
        {13, "6.8832759840768E+17 * 169 = 1.16327364130898E+20)"},
        {97, "exactly 1.11036564183981E+305"},
        {101, "too large!"}};
    ProgramState state;
    int orders = 0;
    for (int x = -3; x < 32768; ++x)
        orders += primetest(x);
    EXPECT_EQ(orders, 3512 - 2) << "the primes below 2^15 without 2 and 3";
    for (const auto& [n, text] : rows | untilFailure) {
        const SquareCount count = squareCount(state, n);
        const std::string all = count.fundamental + count.shifts + count.rotations + count.total;
        EXPECT_NE(all.find(text), std::string::npos) << all;
    }
}

} // namespace quarvelle::testing

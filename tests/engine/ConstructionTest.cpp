#include "engine/Construction.h"

#include <gtest/gtest.h>
#include <map>

#include "engine/MagicArithmetic.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
namespace {

TEST(Construction, IsCompleteForEveryOrder) {
    ScriptedRandom random;
    ScriptedEvents events;
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31, 101, 103})
        for (const auto& [start, distance] : {std::pair{1.0, 1.0}, {-24, 0.5}, {1e6, 1000}}) {
            const auto state = stateOf(n, {1, 1}, 0);
            state->startNumber = start;
            state->distance = distance;
            buildCompleteSquare(*state, random, events);
            const double total = magicTotal(n, start, distance);
            std::set<double> numbers, expected;
            for (const Line& line : linesInPlay(*state)) {
                double sum = 0;
                for (const Cell& cell : line) {
                    sum += at(state->square, cell);
                    numbers.insert(at(state->square, cell));
                }
                ASSERT_NEAR(sum, total, std::fabs(total) * 1e-12 + 1e-9) << "order " << n;
            }
            for (int k = 0; k < n * n; ++k)
                expected.insert(start + distance * k);
            ASSERT_TRUE(numbers == expected && state->square == state->puzzle) << "order " << n;
        }
}

/// That counts which should all be equal are: Pearson's statistic, in standard deviations from its mean.
void expectUniform(const std::map<std::vector<int>, int>& counts, int kinds, int draws) {
    ASSERT_EQ(static_cast<int>(counts.size()), kinds);
    const double expected = static_cast<double>(draws) / kinds;
    double chiSquare = 0;
    for (const auto& [kind, count] : counts)
        chiSquare += (count - expected) * (count - expected) / expected;
    EXPECT_LT(std::fabs(chiSquare - (kinds - 1)) / std::sqrt(2 * (kinds - 1)), 4);
}

TEST(Construction, IsUniform) {
    const auto state = stateOf(5, {}, 0);
    ScriptedEvents events;
    SeededRandom random(43200.25F);
    // The rows of a square of order 5 follow from the first two.
    std::map<std::vector<int>, int> squares;
    for (int draw = 0; draw < 30 * 28800; ++draw) {
        buildCompleteSquare(*state, random, events);
        std::vector<int> firstRows;
        for (int cell = 0; cell < 10; ++cell)
            firstRows.push_back(static_cast<int>(at(state->square, {1 + cell / 5, 1 + cell % 5})));
        ++squares[firstRows];
    }
    expectUniform(squares, 28800, 30 * 28800);
    for (const int n : {7, 13}) {
        state->squareSize = static_cast<std::int16_t>(n);
        std::map<std::vector<int>, int> origins, directions;
        for (int draw = 0; draw < 12000; ++draw) {
            buildCompleteSquare(*state, random, events);
            ++origins[{state->placedRow[1], state->placedColumn[1]}];
            ++directions[{state->firstDirection, state->stepDirection}];
        }
        expectUniform(origins, n * n, 12000);
        expectUniform(directions, 12, 12000); // ordered pairs of different ones
    }
}

} // namespace
} // namespace quarvelle::testing

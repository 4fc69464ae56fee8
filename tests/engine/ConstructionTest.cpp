#include "engine/Construction.h"

#include <gtest/gtest.h>
#include <numeric>
#include <set>

#include "engine/MagicArithmetic.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle {
namespace {

using testing::at;
using testing::ScriptedEvents;
using testing::ScriptedRandom;

std::vector<double> numbersOf(const ProgramState& state) {
    std::vector<double> numbers;
    for (int row = 1; row <= state.squareSize; ++row)
        for (int column = 1; column <= state.squareSize; ++column)
            numbers.push_back(at(state.square, {row, column}));
    return numbers;
}

void expectComplete(const ProgramState& state) {
    const double total = magicTotal(state.squareSize, state.startNumber, state.distance);
    for (const testing::Line& line : testing::completeLines(state.squareSize)) {
        const double sum =
            std::accumulate(line.begin(), line.end(), 0.0, [&](double partial, testing::Cell cell) {
                return partial + at(state.square, cell);
            });
        ASSERT_NEAR(sum, total, std::fabs(total) * 1e-12 + 1e-9) << "order " << state.squareSize;
    }
    std::vector<double> numbers = numbersOf(state);
    std::sort(numbers.begin(), numbers.end());
    for (std::size_t k = 0; k < numbers.size(); ++k)
        ASSERT_EQ(numbers[k], realValue(static_cast<double>(k + 1), state.startNumber, state.distance));
    EXPECT_EQ(state.square, state.puzzle);
}

TEST(Construction, IsCompleteForEveryOrder) {
    const std::pair<double, double> numberings[] = {{1, 1}, {-24, 0.5}, {1e6, 1000}};
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31, 101, 103})
        for (const auto& [s, d] : numberings) {
            const auto state = std::make_unique<ProgramState>();
            state->squareSize = static_cast<std::int16_t>(n);
            state->startNumber = s;
            state->distance = d;
            ScriptedRandom random({}, static_cast<float>(n));
            ScriptedEvents events;
            buildCompleteSquare(*state, random, events);
            expectComplete(*state);
            // The record that the origin and its two axes leave.
            EXPECT_EQ(at(state->square, {state->placedRow[1], state->placedColumn[1]}), s);
            for (int k = 1; k <= 2 * n; ++k) {
                const auto i = static_cast<std::size_t>(k);
                EXPECT_EQ(at(state->square, {state->placedRow[i], state->placedColumn[i]}),
                          realValue(state->placedValue[i], s, d));
            }
        }
}

/// A draw in the middle of the part of [0, 1) that gives `value` of `limit`.
double drawFor(int value, int limit) {
    return (value + 0.5) / limit;
}

TEST(Construction, ReachesThe28800SquaresOfOrderFive) {
    std::set<std::vector<double>> outcomes;
    const auto state = std::make_unique<ProgramState>();
    ScriptedEvents events;
    for (int origin = 0; origin < 25; ++origin)
        for (int direction = 0; direction < 2; ++direction) {
            std::vector<int> first{0, 1, 2, 3};
            do {
                std::vector<int> second{0, 1, 2, 3};
                do {
                    std::vector<double> script{drawFor(origin / 5, 5), drawFor(origin % 5, 5),
                                               drawFor(direction, 2)};
                    for (const int value : first)
                        script.push_back(drawFor(value, 4));
                    script.push_back(drawFor(1 - direction, 2));
                    for (const int value : second)
                        script.push_back(drawFor(value, 4));
                    ScriptedRandom random(script);
                    buildCompleteSquare(*state, random, events);
                    ASSERT_EQ(random.draws(), static_cast<int>(script.size()));
                    outcomes.insert(numbersOf(*state));
                } while (std::next_permutation(second.begin(), second.end()));
            } while (std::next_permutation(first.begin(), first.end()));
        }
    EXPECT_EQ(outcomes.size(), 28800U);
}

/// Pearson's statistic of counts that should all be equal, in standard deviations from its mean.
double chiSquareDeviation(const std::vector<int>& counts) {
    const double expected =
        std::accumulate(counts.begin(), counts.end(), 0.0) / static_cast<double>(counts.size());
    double chiSquare = 0;
    for (const int count : counts)
        chiSquare += (count - expected) * (count - expected) / expected;
    const double freedom = static_cast<double>(counts.size()) - 1;
    return (chiSquare - freedom) / std::sqrt(2 * freedom);
}

TEST(Construction, IsUniform) {
    const auto state = std::make_unique<ProgramState>();
    ScriptedEvents events;
    SeededRandom random(43200.25F);
    // The cell of 1 and the places of 2 to 6, 11, 16 and 21 tell the squares of order 5 apart.
    std::map<std::array<int, 9>, int> squares;
    for (int draw = 0; draw < 30 * 28800; ++draw) {
        buildCompleteSquare(*state, random, events);
        std::array<int, 9> places{};
        for (int cell = 0; cell < 25; ++cell) {
            const auto value = static_cast<int>(at(state->square, {1 + cell / 5, 1 + cell % 5}));
            if (value <= 6 || value % 5 == 1)
                places[static_cast<std::size_t>(value <= 6 ? value - 1 : 4 + value / 5)] = cell;
        }
        ++squares[places];
    }
    std::vector<int> counts;
    for (const auto& [places, count] : squares)
        counts.push_back(count);
    EXPECT_EQ(counts.size(), 28800U);
    EXPECT_LT(std::fabs(chiSquareDeviation(counts)), 4);

    for (const int n : {7, 13}) {
        state->squareSize = static_cast<std::int16_t>(n);
        std::vector<int> origins(static_cast<std::size_t>(n * n));
        std::vector<int> directions(12); // ordered pairs of different ones
        for (int draw = 0; draw < 12000; ++draw) {
            buildCompleteSquare(*state, random, events);
            ++origins[static_cast<std::size_t>((state->placedRow[1] - 1) * n + state->placedColumn[1] - 1)];
            const int second = state->stepDirection - (state->stepDirection > state->firstDirection ? 2 : 1);
            ++directions[static_cast<std::size_t>((state->firstDirection - 1) * 3 + second)];
        }
        EXPECT_LT(std::fabs(chiSquareDeviation(origins)), 4);
        EXPECT_LT(std::fabs(chiSquareDeviation(directions)), 4);
    }
}

TEST(Construction, RejectedDrawsMoveNothing) {
    // Used values and the first direction again are drawn over; the square is the one without them.
    const std::vector<double> plain{0.1, 0.3, 0.7, 0.1, 0.4, 0.6, 0.9, 0.2, 0.9, 0.6, 0.4, 0.1};
    const std::vector<double> repeated{0.1, 0.3, 0.7, 0.1, 0.1,  0.4, 0.1, 0.6, 0.9,
                                       0.8, 0.6, 0.2, 0.9, 0.99, 0.6, 0.4, 0.6, 0.1};
    ProgramState first;
    ProgramState second;
    ScriptedEvents events;
    ScriptedRandom plainDraws(plain);
    ScriptedRandom repeatedDraws(repeated);
    buildCompleteSquare(first, plainDraws, events);
    buildCompleteSquare(second, repeatedDraws, events);
    EXPECT_EQ(first.square, second.square);
    EXPECT_EQ(plainDraws.draws(), static_cast<int>(plain.size()));
    EXPECT_EQ(repeatedDraws.draws(), static_cast<int>(repeated.size()));
}

TEST(Construction, StopsAtEveryYield) {
    ScriptedEvents whole;
    const auto state = std::make_unique<ProgramState>();
    ScriptedRandom random;
    buildCompleteSquare(*state, random, whole);
    ASSERT_GT(whole.yields(), 25);
    for (int stop = 1; stop <= whole.yields(); ++stop) {
        *state = ProgramState{};
        ScriptedRandom again;
        ScriptedEvents events;
        events.onYield = [&](int turn) {
            state->stopRequested = turn == stop ? Request::stop : Request::none;
        };
        buildCompleteSquare(*state, again, events);
        EXPECT_EQ(events.yields(), stop);
        EXPECT_NE(state->square, state->puzzle) << "an unfinished square has no real values";
    }
}

} // namespace
} // namespace quarvelle

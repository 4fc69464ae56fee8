#include "engine/Construction.h"

#include <gtest/gtest.h>
#include <map>

#include "engine/MagicArithmetic.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle {
namespace {

using testing::at;
using testing::ScriptedEvents;
using testing::ScriptedRandom;

void expectComplete(ProgramState& state) {
    const double total = magicTotal(state.squareSize, state.startNumber, state.distance);
    std::vector<double> numbers;
    state.allDiagonals = 1;
    for (const testing::Line& line : testing::linesInPlay(state)) {
        double sum = 0;
        for (const testing::Cell& cell : line)
            sum += at(state.square, cell);
        ASSERT_NEAR(sum, total, std::fabs(total) * 1e-12 + 1e-9) << "order " << state.squareSize;
        if (line[0].first == line[1].first) // a row
            for (const testing::Cell& cell : line)
                numbers.push_back(at(state.square, cell));
    }
    std::sort(numbers.begin(), numbers.end());
    ASSERT_EQ(numbers.size(), static_cast<std::size_t>(state.squareSize * state.squareSize));
    for (std::size_t k = 0; k < numbers.size(); ++k)
        ASSERT_EQ(numbers[k], state.startNumber + state.distance * static_cast<double>(k));
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
        }
}

/// That counts which should all be equal are: Pearson's statistic, in standard deviations from its mean.
void expectUniform(const std::map<std::vector<int>, int>& counts, int kinds, int draws) {
    ASSERT_EQ(static_cast<int>(counts.size()), kinds);
    const double expected = static_cast<double>(draws) / kinds;
    double chiSquare = 0;
    for (const auto& [kind, count] : counts)
        chiSquare += (count - expected) * (count - expected) / expected;
    const double freedom = kinds - 1;
    EXPECT_LT(std::fabs(chiSquare - freedom) / std::sqrt(2 * freedom), 4);
}

TEST(Construction, IsUniform) {
    const auto state = std::make_unique<ProgramState>();
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
        std::map<std::vector<int>, int> origins;
        std::map<std::vector<int>, int> directions;
        for (int draw = 0; draw < 12000; ++draw) {
            buildCompleteSquare(*state, random, events);
            ++origins[{state->placedRow[1], state->placedColumn[1]}];
            ++directions[{state->firstDirection, state->stepDirection}];
        }
        expectUniform(origins, n * n, 12000);
        expectUniform(directions, 12, 12000); // ordered pairs of different ones
    }
}

TEST(Construction, RejectedDrawsMoveNothing) {
    // Used values and the first direction again are drawn over; the square is the one without them.
    const std::vector<double> plain{0.1, 0.3, 0.7, 0.1, 0.4, 0.6, 0.9, 0.2, 0.9, 0.6, 0.4, 0.1};
    const std::vector<double> repeated{0.1, 0.3, 0.7, 0.1, 0.1,  0.4, 0.1, 0.6, 0.9,
                                       0.8, 0.6, 0.2, 0.9, 0.99, 0.6, 0.4, 0.6, 0.1};
    ProgramState states[2];
    ScriptedEvents events;
    for (const auto& [state, draws] : {std::pair{&states[0], plain}, std::pair{&states[1], repeated}}) {
        ScriptedRandom random(draws);
        buildCompleteSquare(*state, random, events);
        EXPECT_EQ(random.draws(), static_cast<int>(draws.size()));
    }
    EXPECT_EQ(states[0].square, states[1].square);
}

} // namespace
} // namespace quarvelle

#include <cmath>
#include <gtest/gtest.h>

#include "engine/Construction.h"
#include "engine/MagicArithmetic.h"
#include "engine/Stepping.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
namespace {

TEST(Construction, IsCompleteForEveryOrder) {
    ScriptedRandom random;
    ScriptedEvents events;
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31, 101, 103}) {
        const auto state = stateOf(n, {1, 1}, 0);
        state->startNumber = -24;
        state->distance = 0.5;
        buildCompleteSquare(*state, random, events);
        std::set<double> numbers;
        for (const Line& line : linesInPlay(*state)) {
            double sum = 0;
            for (const Cell& cell : line)
                sum += *numbers.insert(at(state->square, cell)).first;
            ASSERT_EQ(sum, magicTotal(n, -24, 0.5)) << n;
        }
        EXPECT_EQ(std::ssize(numbers), n * n);
        EXPECT_EQ(*numbers.begin(), -24);
        EXPECT_EQ(*numbers.rbegin(), lastNumber(n, -24, 0.5));
    }
}

/// That counts which should all be equal are: Pearson's statistic, in standard deviations from its mean.
void expectUniform(const std::map<std::vector<int>, int>& counts, int kinds, double draws) {
    ASSERT_EQ(std::ssize(counts), kinds);
    double chiSquare = 0;
    for (const auto& [kind, count] : counts)
        chiSquare += std::pow(count - draws / kinds, 2) * kinds / draws;
    EXPECT_LT(std::fabs(chiSquare - (kinds - 1)) / std::sqrt(2 * (kinds - 1)), 4);
}

TEST(Construction, IsUniform) {
    ScriptedEvents events;
    ScriptedRandom random;
    for (const auto& [n, draws] : {std::pair{5, 30 * 28800}, {7, 12000}, {13, 12000}}) {
        const auto state = stateOf(n, {}, 0);
        std::map<std::vector<int>, int> squares, origins, directions;
        for (int draw = 0; draw < draws; ++draw) {
            buildCompleteSquare(*state, random, events);
            // The rows of a square of order 5 follow from the first two.
            std::vector<int> rows(state->square[1].begin() + 1, state->square[1].begin() + 6);
            rows.insert(rows.end(), state->square[2].begin() + 1, state->square[2].begin() + 6);
            ++squares[rows];
            ++origins[{state->placedRow[1], state->placedColumn[1]}];
            ++directions[{state->firstDirection, state->stepDirection}];
        }
        if (n == 5)
            expectUniform(squares, 28800, draws);
        expectUniform(origins, n * n, draws);
        expectUniform(directions, n == 5 ? 2 : 12, draws); // ordered pairs of different ones
    }
}

TEST(LineKinds, StepAsListed) {
    const struct {
        int kind, step;
        Cell mainAfter, probeAfter; ///< both from (3, 3), the anchor
    } rows[] = {
        {1, 0, {4, 3}, {3, 3}},    {2, 0, {3, 4}, {3, 3}},   {3, 0, {4, 2}, {3, 3}},
        {4, 0, {4, 4}, {3, 3}},    {6, 0, {5, 3}, {5, 3}},   {7, 0, {1, 3}, {3, 5}},
        {8, 0, {3, 1}, {5, 3}},    {9, 2, {1, 3}, {3, 1}},   {11, 0, {7, 3}, {7, 3}},
        {12, 0, {-1, 3}, {3, 7}},  {13, 2, {7, 3}, {3, -1}}, {14, 1, {-1, -1}, {-1, -1}},
        {14, 0, {3, -1}, {-1, 3}}, {15, 0, {2, 3}, {2, 3}},  {20, 4, {3, 3}, {3, 3}},
        {24, 7, {3, 3}, {3, 3}},
    };
    for (const auto& [kind, step, mainAfter, probeAfter] : rows) {
        ProgramState s;
        s.lineKind = s.probeKind = kind;
        s.stepIndex = step;
        s.curRow = s.curCol = s.anchorRow = s.anchorCol = 3;
        s.probeRow = s.probeCol = s.probeAnchorRow = s.probeAnchorCol = 3;
        findline2(s);
        findline1(s);
        EXPECT_EQ(Cell(s.curRow, s.curCol), mainAfter) << kind;
        EXPECT_EQ(Cell(s.probeRow, s.probeCol), probeAfter) << kind;
    }
}

} // namespace
} // namespace quarvelle::testing

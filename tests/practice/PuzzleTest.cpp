#include <cmath>
#include <gtest/gtest.h>
#include <map>

#include "engine/Construction.h"
#include "engine/MagicArithmetic.h"
#include "engine/Numbers.h"
#include "engine/Stepping.h"
#include "practice/BlankSelection.h"
#include "tests/support/Literal.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
class Puzzles : public ::testing::Test {
protected:
    ScriptedRandom random;
    ScriptedEvents events;

    /// Selects the blanks and returns all that a handler can see when it gets its turn, and in the end.
    std::vector<int> watch(ProgramState& s, int seed, bool isLiteral) {
        ScriptedRandom draws({}, static_cast<float>(seed));
        ScriptedEvents turns;
        std::vector<int> seen;
        turns.onYield = [&](int) {
            seen.insert(seen.end(),
                        {draws.draws(), s.placeIndex, s.attemptCount, s.bestBlankCount, s.stopRequested,
                         s.anchorRow, s.anchorCol, s.probeAnchorRow, s.probeAnchorCol, s.probeKind});
            for (const auto& flags : {s.lineUsable, s.lineBlankCount, s.lineRejected})
                seen.insert(seen.end(), flags.begin(), flags.end());
        };
        isLiteral ? Literal{s, draws, turns}.selectBlanks() : selectBlanks(s, draws, turns);
        turns.yield();
        return seen;
    }

    /// Makes puzzles one after the other in one record, as a run does: some results outlive a selection.
    /// Every eighth has as many blanks as there may be.
    void play(const std::unique_ptr<ProgramState>& state, int puzzles) {
        const int n = state->squareSize;
        const auto literal = std::make_unique<ProgramState>(*state);
        const auto lines = linesInPlay(*state);
        state->startNumber = -24;
        state->distance = 0.5;
        const double total = magicTotal(n, -24, 0.5);
        for (int puzzle = 0; puzzle < puzzles && !HasFailure(); ++puzzle) {
            buildCompleteSquare(*state, random, events);
            state->blankCount = puzzle % 8 == 1 ? 1e308 : (8 - puzzle % 8) * n / 5.0;
            if (n > 5 || puzzle % 27 == 0) {
                expectComplete(state->square, n, total);
                *literal = *state;
                ASSERT_TRUE(watch(*state, puzzle, false) == watch(*literal, puzzle, true) &&
                            state->puzzle == literal->puzzle);
            } else {
                selectBlanks(*state, random, events);
            }
            solve(state->puzzle, lines, total);
            ASSERT_TRUE(state->puzzle == state->square) << "it can't be solved one line at a time";
        }
    }
};

TEST_F(Puzzles, HaveUniformSquares) {
    constexpr int outcomes = 28800;
    const auto s = stateOf(5, 1, 1);
    std::map<std::vector<double>, int> counts;
    for (int draw = 0; draw < 30 * outcomes; ++draw) {
        buildCompleteSquare(*s, random, events);
        // The other rows follow from the first two.
        std::vector<double> rows(s->square[1].begin() + 1, s->square[1].begin() + 6);
        rows.insert(rows.end(), s->square[2].begin() + 1, s->square[2].begin() + 6);
        ++counts[rows];
    }
    EXPECT_EQ(std::ssize(counts), outcomes);
    double chiSquare = 0;
    for (const auto& [rows, count] : counts)
        chiSquare += (count - 30) * (count - 30) / 30.0;
    EXPECT_LT(std::fabs(chiSquare - outcomes) / std::sqrt(2 * outcomes), 4);
}

TEST_F(Puzzles, AreSolvableLineByLineAndEqualToTheLiteralOnes) {
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31, 101, 103})
        for (int m = 0; m < (n == 5 ? 81 : 1); ++m)
            for (const auto& [rows, diagonals] : {std::pair{1, 0}, {0, 1}, {1, 1}})
                for (const int difficulty : {Difficulty::easy, Difficulty::challenging}) {
                    const std::array modes{m % 3, m / 3 % 3, m / 9 % 3, m / 27};
                    SCOPED_TRACE(::testing::PrintToString(std::tuple(n, rows, diagonals, difficulty, modes)));
                    play(stateOf(n, rows, diagonals, difficulty, modes), 1 + 25000 / (n * n * n));
                }
}

TEST(LineKinds, AreSteppedThroughCellByCell) {
    for (int kind = 1; kind <= lineKindCount; ++kind) {
        std::array<int, 4> modes{};
        if (kind > 4)
            modes[(kind - 5) / 5] = PropertyMode::all;
        const auto s = stateOf(5, kind < 3, kind == 3 || kind == 4, Difficulty::easy, modes);
        s->lineKind = s->probeKind = kind;
        s->anchorRow = s->anchorCol = s->curRow = s->curCol = 8;
        s->probeAnchorRow = s->probeAnchorCol = s->probeRow = s->probeCol = 8;
        Line line{{3, 3}}, probed{{3, 3}};
        for (s->stepIndex = 0; s->stepIndex < 4; ++s->stepIndex) {
            findline2(*s);
            findline1(*s);
            line.push_back({(s->curRow + 4) % 5 + 1, (s->curCol + 4) % 5 + 1});
            probed.push_back({(s->probeRow + 4) % 5 + 1, (s->probeCol + 4) % 5 + 1});
        }
        std::ranges::sort(line);
        std::ranges::sort(probed);
        EXPECT_EQ(linesInPlay(*s).count(line), 1) << kind;
        EXPECT_TRUE(kind < 5 || probed == line) << kind;
    }
}

} // namespace quarvelle::testing

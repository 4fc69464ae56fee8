#include "practice/BlankSelection.h"

#include <gtest/gtest.h>

#include "engine/Construction.h"
#include "engine/MagicArithmetic.h"
#include "tests/support/Literal.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
namespace {

class BlankSelection : public ::testing::Test {
protected:
    std::set<int> m_kindsAtRandom, m_kindsByScan;
    std::vector<int> m_mostBlanks;

    /// Selects the blanks and returns all that a handler can see when it gets its turn, and in the end.
    std::vector<double> watch(ProgramState& s, int seed, bool isLiteral) {
        ScriptedRandom random({}, static_cast<float>(seed));
        ScriptedEvents events;
        std::vector<double> seen;
        int placed = 0;
        events.onYield = [&](int) {
            const std::array fields{random.draws(),   s.placeIndex, s.attemptCount, s.bestBlankCount,
                                    s.stopRequested,  s.anchorRow,  s.anchorCol,    s.probeAnchorRow,
                                    s.probeAnchorCol, s.probeKind};
            seen.insert(seen.end(), fields.begin(), fields.end());
            for (const auto& flags : {s.lineUsable, s.lineBlankCount, s.lineRejected})
                seen.insert(seen.end(), flags.begin(), flags.end());
            // The count of attempts is back at 0 after a scan.
            if (s.placeIndex > std::exchange(placed, s.placeIndex))
                (s.attemptCount == 0 ? m_kindsByScan : m_kindsAtRandom)
                    .insert(markerKind(cellAt(s.puzzle, s.anchorRow, s.anchorCol)));
        };
        isLiteral ? Literal(s, random, events).selectBlanks() : selectBlanks(s, random, events);
        events.yield();
        return seen;
    }

    /// Makes puzzles one after the other in one record, as a run does: some results outlive a selection.
    /// Every fifth has as many blanks as there may be, which is noted.
    void play(int n, const Options& options, int puzzles) {
        const auto state = stateOf(n, options, 0);
        const auto literal = stateOf(n, options, 0);
        const auto lines = linesInPlay(*state);
        ScriptedRandom random;
        ScriptedEvents events;
        m_mostBlanks.clear();
        for (int puzzle = 0; puzzle < puzzles; ++puzzle) {
            buildCompleteSquare(*state, random, events);
            state->blankCount = puzzle % 5 == 4 ? 1e308 : (8 - puzzle % 8) * n / 5.0;
            if (n > 5 || puzzle % 33 == 0) {
                *literal = *state;
                ASSERT_TRUE(watch(*state, puzzle, false) == watch(*literal, puzzle, true) &&
                            state->puzzle == literal->puzzle)
                    << "not what the literal selection makes";
            } else {
                selectBlanks(*state, random, events);
            }
            if (state->blankCount == 1e308)
                m_mostBlanks.push_back(state->placeIndex - 1);
            solve(state->puzzle, lines, magicTotal(n, 1, 1));
            ASSERT_TRUE(state->puzzle == state->square) << "it can't be solved one line at a time";
        }
        std::sort(m_mostBlanks.begin(), m_mostBlanks.end());
    }
};

TEST_F(BlankSelection, IsSolvableLineByLineAndEqualToTheLiteralOne) {
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31, 101})
        for (int m = 0; m < (n == 5 ? 81 : 1); ++m)
            for (const auto& [rows, diagonals] : {std::pair{1, 0}, {0, 1}, {1, 1}})
                for (const int difficulty : {Difficulty::easy, Difficulty::challenging}) {
                    const std::array modes{m % 3, m / 3 % 3, m / 9 % 3, m / 27};
                    SCOPED_TRACE(::testing::PrintToString(std::tuple(n, rows, diagonals, difficulty, modes)));
                    play(n, {rows, diagonals, difficulty, modes}, 1 + 5000 / (n * n));
                }
    EXPECT_EQ(m_kindsAtRandom.size(), 1 + lineKindCount) << "all, and none for the root";
    EXPECT_EQ(m_kindsByScan.size(), lineKindCount);
}

TEST_F(BlankSelection, ReachesTheBlanksThatTheMethodCan) {
    const std::array<int, 4> all{2, 2, 2, 2};
    const struct {
        Options options;
        int fewest;
        double median;
        int most;
    } rows[] = {{{1, 0, 1}, 8, 9.5, 10},      {{1, 0, 3}, 8, 9.5, 10},      {{1, 0, 1, all}, 11, 15, 16},
                {{1, 0, 3, all}, 11, 14, 16}, {{1, 1, 1, all}, 15, 16, 16}, {{1, 1, 3, all}, 15, 16, 16}};
    for (const auto& [options, fewest, median, most] : rows) {
        play(5, options, 1000);
        // One in thousands has one blank less.
        EXPECT_GE(m_mostBlanks[1], fewest);
        EXPECT_NEAR(m_mostBlanks[m_mostBlanks.size() / 2], median, 0.5);
        EXPECT_LE(m_mostBlanks.back(), most);
    }
}

TEST(Puzzle, FollowsItsDrawsAndStopsAtAnyTurn) {
    // clang-format off
    const std::vector<double> draws{
        0.36, 0.64,                               // 1 stands in (3, 5)
        0.9, 0.6,                                 // the first axis steps two down and one across
        0.42, 0.08, 0.42, 0.92, 0.25, 0.75, 0.58, // and holds 1, 4, 2, 7, 3, 6, 5: a second 4 is drawn over
        0.1, 0.6, 0.1, 0.3,                       // that way is taken; the second steps one up and two across
        0.25, 0.92, 0.08, 0.58, 0.42, 0.75,       // and holds 1, 15, 43, 8, 29, 22, 36
        0.07, 0.21, 0.3,                          // the root: row 1 through (1, 2)
        0.36, 0.5, 0.6, 0.1,                      // (3, 4) is off the diagonals: kind 3 is drawn over, then its column
        0.07, 0.64, 0.1,                          // (1, 5) lies on the root line
        0.36, 0.5,                                // (3, 4) is blank already
        0.36, 0.36, 0.1, 0.8, 0.3,                // (3, 3): only its row holds a blank, so only the row will do
        0.79, 0.5, 0.3,                           // (6, 4): its column is taken; a row is all there is
    };
    // clang-format on
    const std::array<double, 7> expected[] = {
        {10, 43, 21, 5, 37, 27, 32}, {7, 40, 23, 34, 11, 45, 15}, {30, 13, 1e201, 1e200, 1, 42, 26},
        {18, 3, 36, 28, 33, 9, 48},  {22, 35, 12, 44, 20, 4, 38}, {47, 16, 6, 1e201, 24, 29, 14},
        {41, 25, 31, 8, 49, 19, 2}};
    constexpr int squareTurns = 55;
    constexpr int turns = squareTurns + 6;
    for (int stopAt = 1; stopAt <= turns + 1; ++stopAt) {
        const auto state = stateOf(7, {1, 0}, 3);
        ScriptedRandom random(draws);
        ScriptedEvents events;
        events.onYield = [&](int turn) {
            if (turn == stopAt)
                state->stopRequested = Request::stop;
        };
        buildCompleteSquare(*state, random, events);
        EXPECT_EQ(state->puzzle == Grid{}, stopAt <= squareTurns) << "an unfinished square was copied";
        if (stopAt > squareTurns)
            selectBlanks(*state, random, events);
        EXPECT_EQ(events.yields(), std::min(stopAt, turns));
        for (std::size_t row = 0; row < 7 && stopAt > turns; ++row)
            EXPECT_TRUE(
                std::equal(expected[row].begin(), expected[row].end(), state->puzzle[row + 1].begin() + 1));
    }
}

} // namespace
} // namespace quarvelle::testing

#include "practice/BlankSelection.h"

#include <gtest/gtest.h>

#include "engine/Construction.h"
#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/Stepping.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle {
namespace {

using testing::Cell;
using testing::Line;
using testing::Options;
using testing::ScriptedEvents;
using testing::ScriptedRandom;
using testing::stateOf;

void makePuzzle(ProgramState& state, RandomSource& random, ScriptedEvents& events) {
    ScriptedEvents building;
    buildCompleteSquare(state, random, building);
    selectBlanks(state, random, events);
}

Line lineOf(int kind, Cell through, int n) {
    Line line;
    line.reserve(static_cast<std::size_t>(n));
    walkLine(kind, through.first, through.second, n, [&](int row, int column) {
        line.emplace_back(row, column);
        return true;
    });
    return line;
}

/// Everything that must hold of a finished selection. Solves the puzzle.
void expectSolvable(ProgramState& state, const std::set<Line>& lines) {
    const int n = state.squareSize;
    const auto kindAt = [&](const Cell& cell) { return markerKind(testing::at(state.puzzle, cell)); };
    for (const Cell& cell : lineOf(state.probeKind, {state.probeAnchorRow, state.probeAnchorCol}, n))
        ASSERT_EQ(kindAt(cell), 0) << "a blank on the root line";
    const auto blanks = testing::blanksOf(state);
    ASSERT_EQ(static_cast<int>(blanks.size()), state.placeIndex - 1);
    ASSERT_GE(blanks.size(), 1U);
    for (const Cell& cell : blanks) {
        const int kind = kindAt(cell);
        Line line = lineOf(kind, cell, n);
        const auto ofKind = [&](const Cell& other) { return kindAt(other) == kind; };
        ASSERT_TRUE(kind > wholeLineKinds || std::count_if(line.begin(), line.end(), ofKind) == 1)
            << "two blanks through one line";
        std::sort(line.begin(), line.end());
        ASSERT_EQ(lines.count(line), 1U) << "kind " << kind << " doesn't take part there";
    }
    testing::solve(state.puzzle, lines, magicTotal(n, state.startNumber, state.distance));
    ASSERT_TRUE(std::equal(state.square.begin(), state.square.begin() + n + 1, state.puzzle.begin()))
        << "order " << n << " can't be solved one line at a time";
}

TEST(BlankSelection, EveryPuzzleCanBeSolvedOneLineAtATime) {
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31})
        for (const Options& options : testing::everyChoice(false))
            for (const double blanks : {1.0, 2.5, 100.0, 1e308}) {
                if (options.rows == 0 && options.diagonals == 0)
                    continue;
                const auto state = stateOf(n, options, blanks);
                ScriptedRandom random({}, static_cast<float>(n));
                ScriptedEvents events;
                makePuzzle(*state, random, events);
                expectSolvable(*state, testing::linesInPlay(*state));
                EXPECT_EQ(state->stopRequested, Request::playing);
                EXPECT_TRUE(blanks > 3 || state->placeIndex == std::ceil(blanks) + 1);
            }
}

TEST(BlankSelection, EveryPropertyGivesSolvablePuzzles) {
    std::set<int> atRandom;
    std::set<int> byScan;
    ScriptedRandom random;
    for (const Options& options : testing::everyChoice(true)) {
        if (options.rows == 0 && options.diagonals == 0)
            continue;
        const auto state = stateOf(5, options, 0);
        const auto lines = testing::linesInPlay(*state);
        for (int round = 0; round < 200; ++round) {
            state->blankCount = round % 4 == 0 ? 1e6 : 1 + round % 15;
            int placed = 0;
            const auto noteKind = [&] {
                // The count of attempts is back at 0 after a scan.
                const int kind = markerKind(cellAt(state->puzzle, state->anchorRow, state->anchorCol));
                if (state->placeIndex > placed)
                    (state->attemptCount == 0 ? byScan : atRandom).insert(kind);
                placed = state->placeIndex;
            };
            ScriptedEvents events;
            events.onYield = [&](int) { noteKind(); };
            makePuzzle(*state, random, events);
            noteKind();
            ASSERT_NO_FATAL_FAILURE(expectSolvable(*state, lines)) << options;
        }
    }
    for (int kind = 1; kind <= lineKindCount; ++kind)
        EXPECT_TRUE(atRandom.count(kind) == 1 && byScan.count(kind) == 1) << kind;
}

TEST(BlankSelection, SaturatesWhereTheMethodPutsIt) {
    const struct {
        Options options;
        int fewest, most, median; ///< a median of 0 stands for any
    } rows[] = {
        {{1, 0, Difficulty::easy}, 8, 10, 0},
        {{1, 0, Difficulty::challenging}, 8, 10, 0},
        {{1, 0, Difficulty::challenging, {2, 2, 2, 2}}, 11, 16, 14},
        {{1, 0, Difficulty::easy, {2, 2, 2, 2}}, 11, 16, 15},
        {{1, 1, Difficulty::easy, {2, 2, 2, 2}}, 15, 16, 0},
        {{1, 1, Difficulty::challenging, {2, 2, 2, 2}}, 15, 16, 0},
    };
    for (const auto& row : rows) {
        const auto state = stateOf(5, row.options, 1e6);
        std::multiset<int> counts;
        for (int seed = 1; seed <= 200; ++seed) {
            ScriptedRandom random({}, static_cast<float>(seed));
            ScriptedEvents events;
            makePuzzle(*state, random, events);
            counts.insert(state->placeIndex - 1);
        }
        EXPECT_GE(*counts.begin(), row.fewest);
        EXPECT_LE(*counts.rbegin(), row.most);
        EXPECT_TRUE(row.median == 0 || *std::next(counts.begin(), 100) == row.median);
    }
}

TEST(BlankSelection, FollowsItsDraws) {
    // A draw of 0.1, 0.3, 0.5, 0.7 or 0.9 names row or column 1 to 5; of 0.1, 0.3, 0.6 or 0.8 a kind 1 to 4.
    const auto state = stateOf(5, {1, 0}, 3);
    ScriptedEvents events;
    ScriptedRandom random({
        0.1, 0.3, 0.3,           // the root: row 1 through (1, 2)
        0.5, 0.7, 0.6, 0.1,      // (3, 4) is off the diagonals: kind 3 is drawn over, then its column
        0.1, 0.9, 0.1,           // (1, 5) lies on the root line
        0.5, 0.7,                // (3, 4) is blank already
        0.5, 0.5, 0.1, 0.8, 0.3, // (3, 3): only its row holds a blank, so only the row will do
        0.9, 0.7, 0.3,           // (5, 4): its row holds none, its column is taken; a row is all there is
    });
    selectBlanks(*state, random, events);
    EXPECT_EQ(random.draws(), 20);
    EXPECT_EQ(state->probeKind, 2);
    EXPECT_EQ(testing::blanksOf(*state), (std::set<Cell>{{3, 4}, {3, 3}, {5, 4}}));
    EXPECT_EQ(cellAt(state->puzzle, 3, 4), 1e200);
    EXPECT_EQ(cellAt(state->puzzle, 3, 3), 1e201);
    EXPECT_EQ(cellAt(state->puzzle, 5, 4), 1e201);
    EXPECT_EQ(state->attemptCount, 6);
}

TEST(BlankSelection, BlanksNothingWithoutLines) {
    const auto none = stateOf(5, {0, 0}, 3);
    ScriptedEvents events;
    ScriptedRandom random;
    selectBlanks(*none, random, events);
    EXPECT_EQ(none->placeIndex, 0);
    EXPECT_EQ(events.yields(), 26) << "one scan after as many attempts as there are cells";
}

} // namespace
} // namespace quarvelle

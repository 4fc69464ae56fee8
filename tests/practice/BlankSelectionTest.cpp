#include "practice/BlankSelection.h"

#include <gtest/gtest.h>

#include "engine/Construction.h"
#include "engine/DeductionCheck.h"
#include "engine/LineKinds.h"
#include "engine/MagicArithmetic.h"
#include "engine/Stepping.h"
#include "tests/support/Lines.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
namespace {

Line lineOf(int kind, Cell through, int n) {
    Line line;
    walkLine(kind, through.first, through.second, n, [&](int row, int column) {
        line.emplace_back(row, column);
        return true;
    });
    return line;
}

bool isAccepted(ProgramState& state, Cell candidate, int kind) {
    std::tie(state.anchorRow, state.anchorCol) = candidate;
    state.lineKind = kind;
    makeblanks(state);
    return state.blankAccepted == 1;
}

/// Everything that must hold of a finished selection. Solves the puzzle.
void expectSolvable(ProgramState& state, const std::set<Line>& lines) {
    const int n = state.squareSize;
    const auto kindAt = [&](const Cell& cell) { return markerKind(at(state.puzzle, cell)); };
    for (const Cell& cell : lineOf(state.probeKind, {state.probeAnchorRow, state.probeAnchorCol}, n))
        ASSERT_EQ(kindAt(cell), 0) << "a blank on the root line";
    const auto blanks = blanksOf(state);
    ASSERT_EQ(static_cast<int>(blanks.size()), state.placeIndex - 1);
    ASSERT_TRUE(state.blankCount > 3 ? !blanks.empty() : state.placeIndex == std::ceil(state.blankCount) + 1);
    for (const Cell& cell : blanks) {
        const int kind = kindAt(cell);
        Line line = lineOf(kind, cell, n);
        const auto ofKind = [&](const Cell& other) { return kindAt(other) == kind; };
        ASSERT_TRUE(kind > wholeLineKinds || std::count_if(line.begin(), line.end(), ofKind) == 1)
            << "two blanks through one line";
        // Order 5 is compared with the literal engine, draw by draw.
        if (n > 5) {
            ASSERT_TRUE(isAccepted(state, cell, kind)) << "an order of solving exists";
            for (const Cell& other : line)
                ASSERT_FALSE(other != cell && kindAt(other) != 0 && isAccepted(state, other, kind))
                    << "the two would wait for each other";
        }
        std::sort(line.begin(), line.end());
        ASSERT_EQ(lines.count(line), 1U) << "kind " << kind << " doesn't take part there";
    }
    solve(state.puzzle, lines, magicTotal(n, state.startNumber, state.distance));
    ASSERT_TRUE(std::equal(state.square.begin(), state.square.begin() + n + 1, state.puzzle.begin()))
        << "it can't be solved one line at a time";
}

TEST(BlankSelection, EveryPuzzleCanBeSolvedOneLineAtATime) {
    std::set<int> atRandom, byScan;
    ScriptedRandom random;
    const std::tuple<std::array<int, 4>, int, int, int> saturated[] = {
        {{0, 0, 0, 0}, 0, 8, 10}, {{2, 2, 2, 2}, 0, 11, 16}, {{2, 2, 2, 2}, 1, 15, 16}};
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31})
        for (const Options& options : everyChoice(n == 5)) {
            if (options.rows == 0 && options.diagonals == 0)
                continue;
            const auto state = stateOf(n, options, 0);
            const auto lines = linesInPlay(*state);
            for (int round = 0; round < (n == 5 ? 200 : 4); ++round) {
                state->blankCount = round % 4 == 0 ? 1e308 : 0.5 + round % 15;
                int placed = 0;
                ScriptedEvents events;
                const auto noteKind = [&](int) {
                    // The count of attempts is back at 0 after a scan.
                    const int kind = markerKind(cellAt(state->puzzle, state->anchorRow, state->anchorCol));
                    if (state->placeIndex > placed)
                        (state->attemptCount == 0 ? byScan : atRandom).insert(kind);
                    placed = state->placeIndex;
                };
                buildCompleteSquare(*state, random, events);
                events.onYield = noteKind;
                selectBlanks(*state, random, events);
                noteKind(0);
                ASSERT_NO_FATAL_FAILURE(expectSolvable(*state, lines)) << "order " << n << ", " << options;
                for (const auto& [modes, diagonals, fewest, most] : saturated) {
                    const bool applies = n == 5 && round % 4 == 0 && options.rows == 1 &&
                                         options.modes == modes && options.diagonals == diagonals;
                    ASSERT_TRUE(!applies || (placed > fewest && placed <= most + 1)) << options;
                }
            }
        }
    for (int kind = 1; kind <= lineKindCount; ++kind)
        EXPECT_TRUE(atRandom.count(kind) == 1 && byScan.count(kind) == 1) << kind;
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
    EXPECT_EQ(state->attemptCount, 6);
    Grid expected{};
    expected[3][4] = 1e200;
    expected[3][3] = expected[5][4] = 1e201;
    EXPECT_EQ(state->puzzle, expected);
}

} // namespace
} // namespace quarvelle::testing

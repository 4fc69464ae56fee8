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

using testing::at;
using testing::Cell;
using testing::ScriptedEvents;
using testing::ScriptedRandom;

struct Options {
    int mainLines, allDiagonals;
    std::array<int, 4> modes{}; ///< in the order of the kinds
};

std::unique_ptr<ProgramState> squareOf(int n, const Options& options, int difficulty, double blanks) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(n);
    state->mainDiagonalsAndLines = options.mainLines;
    state->allDiagonals = options.allDiagonals;
    state->crossDiagonalMode = options.modes[0];
    state->scatteredCrossDiagonalMode = options.modes[1];
    state->crossLineMode = options.modes[2];
    state->scatteredCrossLineMode = options.modes[3];
    state->difficulty = difficulty;
    state->blankCount = blanks;
    return state;
}

testing::Line lineOf(int kind, Cell through, int n) {
    testing::Line line;
    walkLine(kind, through.first, through.second, n, [&](int row, int column) {
        line.emplace_back(row, column);
        return true;
    });
    return line;
}

/// Everything that must hold of a finished selection.
void expectSolvable(const ProgramState& state) {
    const int n = state.squareSize;
    const auto blanks = testing::blanksOf(state);
    ASSERT_EQ(static_cast<int>(blanks.size()), state.placeIndex - 1);
    ASSERT_GE(blanks.size(), 1U);
    const auto found = testing::solve(state, magicTotal(n, state.startNumber, state.distance));
    ASSERT_EQ(found.size(), blanks.size()) << "order " << n << " can't be solved one line at a time";
    for (const auto& [cell, number] : found)
        ASSERT_EQ(number, at(state.square, cell));
    for (const Cell& cell : lineOf(state.probeKind, {state.probeAnchorRow, state.probeAnchorCol}, n))
        ASSERT_EQ(blanks.count(cell), 0U) << "a blank on the root line";
    for (const Cell& cell : blanks) {
        const int kind = markerKind(at(state.puzzle, cell));
        const auto line = lineOf(kind, cell, n);
        if (kind <= 4) {
            ASSERT_EQ(
                std::count_if(line.begin(), line.end(),
                              [&](const Cell& other) { return markerKind(at(state.puzzle, other)) == kind; }),
                1)
                << "two blanks through one line";
        }
    }
}

TEST(BlankSelection, EveryPuzzleCanBeSolvedOneLineAtATime) {
    for (const int n : {5, 7, 11, 13, 17, 19, 23, 29, 31})
        for (const int difficulty : {Difficulty::easy, Difficulty::challenging})
            for (const Options& options : {Options{1, 0}, Options{1, 1}, Options{0, 1}})
                for (const double blanks : {1.0, 2.5, 100.0, 1e308}) {
                    const auto state = squareOf(n, options, difficulty, blanks);
                    ScriptedRandom random({}, static_cast<float>(n));
                    ScriptedEvents events;
                    buildCompleteSquare(*state, random, events);
                    selectBlanks(*state, random, events);
                    expectSolvable(*state);
                    EXPECT_EQ(state->stopRequested, Request::playing);
                    if (blanks < 3) {
                        EXPECT_EQ(state->placeIndex, static_cast<int>(std::ceil(blanks)) + 1);
                    }
                }
}

TEST(BlankSelection, EveryPropertyGivesSolvablePuzzles) {
    std::set<int> atRandom;
    std::set<int> byScan;
    for (int combination = 0; combination < 81 * 6; ++combination) {
        const int modes = combination % 81;
        const Options options{combination / 81 % 3 != 2,
                              combination / 81 % 3 != 0,
                              {modes % 3, modes / 3 % 3, modes / 9 % 3, modes / 27}};
        const int difficulty = combination < 81 * 3 ? Difficulty::easy : Difficulty::challenging;
        ScriptedRandom random({}, static_cast<float>(combination));
        for (int round = 0; round < 100; ++round) {
            const auto state = squareOf(5, options, difficulty, round % 2 == 0 ? 1e6 : 1 + round % 16);
            ScriptedEvents building;
            buildCompleteSquare(*state, random, building);
            ScriptedEvents events;
            Grid before = state->puzzle;
            const auto noteKinds = [&] {
                // The count of attempts is back at 0 after a scan.
                for (int row = 1; row <= 5; ++row)
                    for (int column = 1; column <= 5; ++column)
                        if (at(before, {row, column}) != at(state->puzzle, {row, column}))
                            (state->attemptCount == 0 ? byScan : atRandom)
                                .insert(markerKind(at(state->puzzle, {row, column})));
                before = state->puzzle;
            };
            events.onYield = [&](int) { noteKinds(); };
            selectBlanks(*state, random, events);
            noteKinds();
            expectSolvable(*state);
            for (const Cell& cell : testing::blanksOf(*state)) {
                const int kind = markerKind(at(state->puzzle, cell));
                if (kind < 5 || options.modes[static_cast<std::size_t>(kind - 5) / 5] == PropertyMode::all)
                    continue;
                for (const Step offset : shapeOffsets(kind)) {
                    ASSERT_TRUE(cell.first + offset.row >= 1 && cell.first + offset.row <= 5);
                    ASSERT_TRUE(cell.second + offset.column >= 1 && cell.second + offset.column <= 5);
                }
            }
        }
    }
    for (int kind = 1; kind <= lineKindCount; ++kind) {
        EXPECT_EQ(atRandom.count(kind), 1U) << kind;
        EXPECT_EQ(byScan.count(kind), 1U) << kind;
    }
}

TEST(BlankSelection, SaturatesWhereTheMethodPutsIt) {
    const Options all{1, 1, {2, 2, 2, 2}};
    const struct {
        Options options;
        int difficulty, fewest, most, median;
    } rows[] = {
        {{1, 0}, Difficulty::easy, 8, 10, 0},
        {{1, 0}, Difficulty::challenging, 8, 10, 0},
        {{1, 0, {2, 2, 2, 2}}, Difficulty::challenging, 11, 16, 14},
        {{1, 0, {2, 2, 2, 2}}, Difficulty::easy, 11, 16, 15},
        {all, Difficulty::easy, 15, 16, 0},
        {all, Difficulty::challenging, 15, 16, 0},
    };
    for (const auto& row : rows) {
        std::vector<int> counts;
        for (int seed = 1; seed <= 200; ++seed) {
            const auto state = squareOf(5, row.options, row.difficulty, 1e6);
            ScriptedRandom random({}, static_cast<float>(seed));
            ScriptedEvents events;
            buildCompleteSquare(*state, random, events);
            selectBlanks(*state, random, events);
            counts.push_back(state->placeIndex - 1);
        }
        std::sort(counts.begin(), counts.end());
        EXPECT_GE(counts.front(), row.fewest);
        EXPECT_LE(counts.back(), row.most);
        if (row.median != 0) {
            EXPECT_EQ(counts[100], row.median);
        }
    }
}

TEST(BlankSelection, FollowsItsDraws) {
    // A draw of 0.1, 0.3, 0.5, 0.7 or 0.9 names row or column 1 to 5; of 0.1, 0.3, 0.6 or 0.8 a kind 1 to 4.
    const auto state = squareOf(5, {1, 0}, Difficulty::challenging, 3);
    ScriptedEvents events;
    ScriptedRandom building;
    buildCompleteSquare(*state, building, events);
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
    EXPECT_EQ(at(state->puzzle, {3, 4}), 1e200);
    EXPECT_EQ(at(state->puzzle, {3, 3}), 1e201);
    EXPECT_EQ(at(state->puzzle, {5, 4}), 1e201);
    EXPECT_EQ(state->placeIndex, 4);
    EXPECT_EQ(state->attemptCount, 6);
}

TEST(BlankSelection, StopsAtEveryYieldAndWithoutLines) {
    const auto prototype = squareOf(5, {1, 0}, Difficulty::challenging, 100);
    ScriptedEvents whole;
    ScriptedRandom random;
    buildCompleteSquare(*prototype, random, whole);
    const int building = whole.yields();
    auto state = std::make_unique<ProgramState>(*prototype);
    selectBlanks(*state, random, whole);
    for (int stop = 1; stop <= whole.yields() - building; ++stop) {
        *state = *prototype;
        ScriptedRandom again;
        ScriptedEvents events;
        events.onYield = [&](int turn) {
            state->stopRequested = turn == stop ? Request::stop : Request::abandon;
        };
        selectBlanks(*state, again, events);
        ASSERT_EQ(state->stopRequested, Request::stop);
        ASSERT_EQ(events.yields(), stop);
    }
    const auto none = squareOf(5, {0, 0}, Difficulty::easy, 3);
    ScriptedEvents events;
    selectBlanks(*none, random, events);
    EXPECT_EQ(none->placeIndex, 0);
    EXPECT_EQ(events.yields(), 26) << "one scan after as many attempts as there are cells";
}

} // namespace
} // namespace quarvelle

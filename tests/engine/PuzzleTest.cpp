#include <cmath>
#include <map>

#include "engine/BlankSelection.h"
#include "engine/Construction.h"
#include "engine/MagicArithmetic.h"
#include "tests/support/Literal.h"
#include "tests/support/Scripted.h"

namespace quarvelle::testing {
/// Kinds 5 to 9 and 15 to 19, each by its four other cells; five kinds further on they are twice as large.
static const Step shapes[][4] = {
    {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}},   {{2, 0}, {2, 2}, {0, 2}, {1, 1}},
    {{-2, 0}, {-2, 2}, {0, 2}, {-1, 1}},    {{0, -2}, {2, -2}, {2, 0}, {1, -1}},
    {{0, -2}, {-2, -2}, {-2, 0}, {-1, -1}}, {{-1, 0}, {0, -1}, {1, 0}, {0, 1}},
    {{0, 1}, {0, 2}, {-1, 1}, {1, 1}},      {{1, 0}, {2, 0}, {1, -1}, {1, 1}},
    {{-1, 0}, {-2, 0}, {-1, -1}, {-1, 1}},  {{0, -1}, {0, -2}, {-1, -1}, {1, -1}}};

/// Where such a step of a kind leads a cursor in (20, 21) whose anchor is in (10, 12).
static Cell afterStep(int kind, int step) {
    constexpr Step wholeLines[] = {{1, 0}, {0, 1}, {1, -1}, {1, 1}};
    if (kind <= 4)
        return Cell{20, 21} + wholeLines[kind - 1];
    if (step < 0 || step > 4)
        return {20, 21};
    const auto [row, column] = step == 4 ? Step{} : shapes[(kind - 5) / 10 * 5 + (kind - 5) % 5][step];
    const int size = 1 + (kind - 5) / 5 % 2;
    return {10 + size * row, 12 + size * column};
}

TEST(LineKinds, AreSteppedThroughByTheirTable) {
    for (const int kind : std::views::iota(1, lineKindCount + 1) | untilFailure)
        for (const int step : std::views::iota(-1, 7) | untilFailure) {
            const auto s = stateOf(5, 1, 1);
            s->lineKind = s->probeKind = kind;
            s->stepIndex = step;
            s->anchorRow = s->probeAnchorRow = 10;
            s->anchorCol = s->probeAnchorCol = 12;
            s->curRow = s->probeRow = 20;
            s->curCol = s->probeCol = 21;
            findline2(*s);
            findline1(*s);
            EXPECT_TRUE((Cell{s->curRow, s->curCol} == afterStep(kind, step))) << kind << ' ' << step;
            // The probe takes the steps 0 and 2 of three arms of a cross-diagonal in the other order.
            const bool exchanges = kind < 15 && (kind - 5) % 5 > 1 && (step == 0 || step == 2);
            const Cell probe = kind <= 4 ? Cell{20, 21} : afterStep(kind, exchanges ? 2 - step : step);
            EXPECT_TRUE((Cell{s->probeRow, s->probeCol} == probe)) << kind << ' ' << step;
        }
}

static Line sorted(Line line) {
    std::ranges::sort(line);
    return line;
}

class Puzzles : public ::testing::Test {
protected:
    ScriptedRandom random;
    ScriptedEvents events;

    /// Selects the blanks and returns all that a handler can see when it gets its turn, and in the end.
    std::vector<int> watch(ProgramState& s, int seed, bool isLiteral) {
        ScriptedRandom draws({}, static_cast<float>(seed));
        ScriptedEvents turns;
        std::vector<int> seen;
        turns.onYield = [&] {
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

    /// Solves the puzzle as a person does who is shown a line each time, and now and then holds these lines
    /// against a search of all for those that have no other blank.
    void solve(ProgramState& state, const std::set<Line>& lines, double total) {
        const int n = state.squareSize;
        for (int left = state.placeIndex - 1; left > 0 && !HasFatalFailure(); --left) {
            const auto blank = nextGivenBlank(state, {1 + random.below(n), 1 + random.below(n)});
            ASSERT_TRUE(blank) << left << " blanks can't be found one line at a time";
            std::set<Line> given;
            for (const int kind : kindsThatGive(state, *blank))
                given.insert(sorted(Literal{state, random, events}.line(kind, *blank)));
            const auto isOpen = [&](Cell cell) { return isBlank(cellAt(state.puzzle, cell)); };
            if (left % 8 == 1) {
                std::set<Line> found;
                for (const Line& line : lines)
                    if (std::ranges::count(line, *blank) == 1 && std::ranges::count_if(line, isOpen) == 1)
                        found.insert(line);
                ASSERT_TRUE(given == found) << "at " << blank->row << ", " << blank->column;
            }
            std::vector<double> numbers{-total};
            for (const Cell cell : *given.begin())
                if (!isOpen(cell))
                    numbers.push_back(cellAt(state.puzzle, cell));
            cellAt(state.puzzle, *blank) = -SquareNumbers(state.startNumber, state.distance).sumOf(numbers);
        }
        ASSERT_TRUE(state.puzzle == state.square);
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
            solve(*state, lines, total);
        }
    }
};

TEST_F(Puzzles, HaveUniformSquares) {
    for (const auto& [n, outcomes] : {std::pair{5, 28800}, {7, 49 * 12}, {13, 169 * 12}}) {
        const auto s = stateOf(n, 1, 1);
        std::map<std::vector<int>, int> counts;
        for (int draw = 0; draw < 30 * outcomes; ++draw) {
            buildCompleteSquare(*s, random, events);
            // The rows of a square of order 5 follow from the first two.
            std::vector<int> outcome(s->square[1].begin(), s->square[1].begin() + 6);
            outcome.insert(outcome.end(), s->square[2].begin(), s->square[2].begin() + 6);
            if (n > 5)
                outcome = {s->placedRow[1], s->placedColumn[1], s->firstDirection, s->stepDirection};
            ++counts[outcome];
        }
        EXPECT_EQ(std::ssize(counts), outcomes);
        double chiSquare = 0;
        for (const auto& [outcome, count] : counts)
            chiSquare += (count - 30) * (count - 30) / 30.0;
        EXPECT_LT(std::fabs(chiSquare - outcomes) / std::sqrt(2 * outcomes), 4) << n;
    }
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

TEST(Square, FollowsItsDraws) {
    const std::vector<double> draws{
        // 1 stands in (3, 5). The first axis steps two down and one across and holds 1, 4, 2, 7, 3, 6, 5; a
        // second 4 is drawn over.
        0.36, 0.64, 0.9, 0.6, 0.42, 0.08, 0.42, 0.92, 0.25, 0.75, 0.58,
        // That direction is taken: the second steps one up and two across. It holds 1, 15, 43, 8, 29, 22, 36.
        0.1, 0.6, 0.1, 0.3, 0.25, 0.92, 0.08, 0.58, 0.42, 0.75};
    const std::array<double, 7> rows[] = {{10, 43, 21, 5, 37, 27, 32}, {7, 40, 23, 34, 11, 45, 15},
                                          {30, 13, 46, 17, 1, 42, 26}, {18, 3, 36, 28, 33, 9, 48},
                                          {22, 35, 12, 44, 20, 4, 38}, {47, 16, 6, 39, 24, 29, 14},
                                          {41, 25, 31, 8, 49, 19, 2}};
    const auto state = stateOf(7, 1, 0);
    ScriptedRandom random(draws);
    ScriptedEvents events;
    buildCompleteSquare(*state, random, events);
    for (int row = 0; row < 7; ++row)
        EXPECT_TRUE(std::equal(rows[row].begin(), rows[row].end(), state->square[row + 1].begin() + 1));
    EXPECT_EQ(random.draws(), 21);
}

} // namespace quarvelle::testing

#include <gtest/gtest.h>
#include <set>

#include "engine/DeductionCheck.h"
#include "engine/LineKinds.h"
#include "engine/PropertyShapes.h"
#include "engine/Stepping.h"
#include "tests/support/Lines.h"

namespace quarvelle {
namespace {

using testing::Cell;

TEST(Stepping, FollowsTheExamples) {
    const struct {
        int kind, stepIndex;
        Cell anchor, mainAfter, probeAfter;
    } rows[] = {
        {3, 0, {1, 1}, {2, 0}, {1, 1}},  {2, 0, {4, 5}, {4, 6}, {4, 5}},  {7, 0, {3, 3}, {1, 3}, {3, 5}},
        {7, 2, {3, 3}, {3, 5}, {1, 3}},  {12, 0, {5, 1}, {1, 1}, {5, 5}}, {13, 2, {1, 5}, {5, 5}, {1, 1}},
        {9, 3, {4, 4}, {3, 3}, {3, 3}},  {16, 1, {2, 2}, {2, 4}, {2, 4}}, {20, 4, {2, 2}, {2, 2}, {2, 2}},
        {24, 7, {2, 2}, {2, 2}, {2, 2}},
    };
    for (const auto& row : rows) {
        ProgramState state;
        state.lineKind = state.probeKind = row.kind;
        state.stepIndex = row.stepIndex;
        state.anchorRow = state.curRow = state.probeAnchorRow = state.probeRow = row.anchor.first;
        state.anchorCol = state.curCol = state.probeAnchorCol = state.probeCol = row.anchor.second;
        findline2(state);
        findline1(state);
        EXPECT_EQ(Cell(state.curRow, state.curCol), row.mainAfter) << row.kind;
        EXPECT_EQ(Cell(state.probeRow, state.probeCol), row.probeAfter) << row.kind;
    }
}

struct Blank {
    int row, column, kind;
};

/// A puzzle of order n whose other cells hold 1.
std::unique_ptr<ProgramState> puzzleWith(int n, const std::vector<Blank>& blanks) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(n);
    for (auto& row : state->puzzle)
        row.fill(1);
    for (const Blank& blank : blanks)
        cellAt(state->puzzle, blank.row, blank.column) = blankMarker(blank.kind);
    return state;
}

void setCandidate(ProgramState& state, Cell candidate) {
    state.anchorRow = candidate.first;
    state.anchorCol = candidate.second;
}

TEST(DeductionCheck, RejectsOnlyCycles) {
    const struct {
        const char* what;
        int n;
        std::vector<Blank> blanks;
        Blank candidate;
        int accepted;
    } rows[] = {
        {"no other blank", 5, {}, {3, 3, 24}, 1},
        {"candidate on the shape of a blank it needs", 5, {{2, 3, 15}}, {3, 3, 1}, 0},
        {"the same blank off the candidate's row", 5, {{2, 3, 15}}, {3, 3, 2}, 1},
        {"two columns need each other", 7, {{2, 3, 1}}, {5, 3, 1}, 0},
        {"a needed blank that leads elsewhere", 7, {{2, 3, 2}}, {5, 3, 1}, 1},
        {"chain of three", 7, {{2, 3, 2}, {2, 6, 1}}, {5, 6, 2}, 1},
        {"chain of three closed", 7, {{2, 3, 2}, {2, 6, 1}, {5, 6, 2}}, {5, 3, 1}, 0},
        {"met twice", 7, {{1, 3, 2}, {1, 5, 1}, {3, 3, 3}}, {6, 3, 1}, 1},
        {"through the wrap-around", 7, {{7, 7, 3}}, {3, 4, 3}, 0},
        {"largest order", 103, {{103, 103, 4}, {1, 103, 2}}, {103, 1, 3}, 1},
    };
    for (const auto& row : rows) {
        const auto state = puzzleWith(row.n, row.blanks);
        const Grid before = state->puzzle;
        setCandidate(*state, {row.candidate.row, row.candidate.column});
        state->lineKind = row.candidate.kind;
        makeblanks(*state);
        EXPECT_EQ(state->blankAccepted, row.accepted) << row.what;
        EXPECT_EQ(Cell(state->anchorRow, state->anchorCol), Cell(row.candidate.row, row.candidate.column));
        EXPECT_EQ(state->puzzle, before);
    }
}

TEST(PropertyShapes, PlaceTheFirstPlacementThatPasses) {
    const struct {
        const char* what;
        void (*place)(ProgramState&);
        int mode;
        std::vector<Blank> blanks;
        Cell candidate;
        int kind; ///< placed; 0 for none
    } rows[] = {
        {"inside the square only", d1scline, 1, {}, {1, 3}, 17},
        {"over the edge", d1scline, 2, {}, {1, 3}, 15},
        {"middle, scattered", d1scross2, 1, {}, {3, 3}, 10},
        {"corner, scattered", d1scross2, 1, {}, {5, 5}, 14},
        {"corner, scattered line", d1scline2, 1, {}, {1, 1}, 0},
        {"middle of an edge", d1scline2, 1, {}, {1, 3}, 22},
        {"nothing fits", d1scross2, 1, {}, {2, 2}, 0},
        {"nothing fits", d1scline2, 1, {}, {2, 2}, 0},
        {"marker of the same kind", d1scross, 1, {{2, 2, 5}}, {3, 3}, 6},
        {"marker of another kind", d1scross, 1, {{2, 2, 10}}, {3, 3}, 5},
        {"rejected by the check", d1scross, 1, {{2, 2, 4}}, {3, 3}, 6},
        {"already blank", d1scline, 2, {{3, 3, 5}}, {3, 3}, 15},
    };
    for (const auto& row : rows) {
        const auto state = puzzleWith(5, row.blanks);
        state->crossDiagonalMode = state->scatteredCrossDiagonalMode = row.mode;
        state->crossLineMode = state->scatteredCrossLineMode = row.mode;
        setCandidate(*state, row.candidate);
        const double before = testing::at(state->puzzle, row.candidate);
        row.place(*state);
        EXPECT_EQ(state->blankPlaced, row.kind != 0) << row.what;
        EXPECT_EQ(testing::at(state->puzzle, row.candidate), row.kind == 0 ? before : blankMarker(row.kind))
            << row.what;
        EXPECT_EQ(state->blanksOnShape, 0);
    }
}

TEST(PropertyShapes, RateWithoutTouchingThePuzzle) {
    const auto state = puzzleWith(5, {{2, 3, 1}, {3, 4, 2}});
    state->crossLineMode = PropertyMode::all;
    setCandidate(*state, {3, 3});
    d2scline(*state);
    EXPECT_EQ(state->lineBlankCount[15], 2);
    EXPECT_EQ(state->lineUsable[16], 1);
    EXPECT_EQ(state->lineBlankCount[16], 0) << "a count below the best is not recorded";
    EXPECT_EQ(state->bestBlankCount, 2);

    // The own marker on the last cell walked: rejected, and its blanks leak into nothing.
    const auto marked = puzzleWith(5, {{2, 3, 1}, {3, 4, 15}});
    marked->crossLineMode = PropertyMode::onlyMain;
    setCandidate(*marked, {3, 3});
    d2scline(*marked);
    EXPECT_EQ(marked->lineUsable[15], 0);
    EXPECT_EQ(marked->lineRejected[15], 1);
    EXPECT_EQ(marked->lineBlankCount[16], 1);
    EXPECT_EQ(marked->blanksOnShape, 0);

    // A placement that doesn't fit only counts as rejected.
    const auto corner = puzzleWith(5, {});
    corner->crossDiagonalMode = PropertyMode::onlyMain;
    corner->lineBlankCount[5] = 4;
    setCandidate(*corner, {1, 1});
    d2scross(*corner);
    EXPECT_EQ(corner->lineRejected[5], 1);
    EXPECT_EQ(corner->lineBlankCount[5], 4);
    EXPECT_EQ(corner->lineUsable[6], 1);
    EXPECT_EQ(corner->lineRejected[6], 0);
}

} // namespace
} // namespace quarvelle

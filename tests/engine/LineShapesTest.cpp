#include <gtest/gtest.h>

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
        {24, 7, {2, 2}, {4, 4}, {4, 4}}, {4, 0, {5, 5}, {6, 6}, {5, 5}},  {6, 0, {1, 1}, {3, 1}, {3, 1}},
        {8, 0, {1, 3}, {1, 1}, {3, 3}},  {10, 0, {3, 3}, {1, 1}, {1, 1}}, {14, 0, {5, 5}, {5, 1}, {1, 5}},
        {11, 0, {1, 1}, {5, 1}, {5, 1}}, {15, 0, {2, 2}, {1, 2}, {1, 2}},
    };
    for (const auto& row : rows) {
        ProgramState state;
        state.lineKind = state.probeKind = row.kind;
        state.stepIndex = row.stepIndex;
        std::tie(state.anchorRow, state.anchorCol) = row.anchor;
        std::tie(state.probeAnchorRow, state.probeAnchorCol) = row.anchor;
        const Cell cursor = row.kind <= wholeLineKinds ? row.anchor : Cell{4, 4};
        std::tie(state.curRow, state.curCol) = cursor;
        std::tie(state.probeRow, state.probeCol) = cursor;
        findline2(state);
        findline1(state);
        EXPECT_EQ(Cell(state.curRow, state.curCol), row.mainAfter) << row.kind;
        EXPECT_EQ(Cell(state.probeRow, state.probeCol), row.probeAfter) << row.kind;
    }
}

TEST(Markers, ArePowersOfTen) {
    for (int kind = 1; kind <= lineKindCount; ++kind) {
        EXPECT_EQ(blankMarker(kind), std::stod("1e" + std::to_string(199 + kind)));
        EXPECT_EQ(markerKind(blankMarker(kind)), kind);
    }
}

struct Blank {
    int row, column, kind;
};

/// A puzzle of order n whose other cells hold 1, with the candidate as its anchor.
std::unique_ptr<ProgramState> puzzleWith(int n, const std::vector<Blank>& blanks, Cell candidate) {
    auto state = std::make_unique<ProgramState>();
    state->squareSize = static_cast<std::int16_t>(n);
    for (auto& row : state->puzzle)
        row.fill(1);
    for (const Blank& blank : blanks)
        cellAt(state->puzzle, blank.row, blank.column) = blankMarker(blank.kind);
    state->anchorRow = candidate.first;
    state->anchorCol = candidate.second;
    return state;
}

TEST(DeductionCheck, RejectsOnlyCycles) {
    const struct {
        const char* what;
        int n;
        std::vector<Blank> blanks;
        Blank candidate;
        int accepted;
    } rows[] = {
        {"candidate on the shape of a blank it needs", 5, {{2, 3, 15}}, {3, 3, 1}, 0},
        {"the same blank off the candidate's row", 5, {{2, 3, 15}}, {3, 3, 2}, 1},
        {"chain of three", 7, {{2, 3, 2}, {2, 6, 1}}, {5, 6, 2}, 1},
        {"chain of three closed", 7, {{2, 3, 2}, {2, 6, 1}, {5, 6, 2}}, {5, 3, 1}, 0},
        {"through the wrap-around", 7, {{7, 7, 3}}, {3, 4, 3}, 0},
        {"blanks that wait for each other already", 7, {{2, 3, 2}, {2, 6, 2}}, {5, 3, 1}, 1},
        {"blanks that meet on one", 7, {{1, 3, 2}, {1, 5, 1}, {3, 3, 3}}, {6, 3, 1}, 1},
        {"candidate blank already", 5, {{3, 3, 1}, {2, 3, 2}}, {3, 3, 1}, 1},
        {"largest order", 103, {{103, 103, 4}, {1, 103, 2}}, {103, 1, 3}, 1},
    };
    for (const auto& row : rows) {
        const Cell candidate(row.candidate.row, row.candidate.column);
        const auto state = puzzleWith(row.n, row.blanks, candidate);
        const Grid before = state->puzzle;
        state->lineKind = row.candidate.kind;
        makeblanks(*state);
        EXPECT_EQ(state->blankAccepted, row.accepted) << row.what;
        EXPECT_EQ(Cell(state->anchorRow, state->anchorCol), candidate) << row.what;
        EXPECT_EQ(state->puzzle, before) << row.what;
    }
}

TEST(PropertyShapes, PlaceTheFirstPlacementThatPasses) {
    const struct {
        const char* what;
        int mode;
        std::vector<Blank> blanks;
        Cell candidate;
        int kind; ///< placed; 0 for none
    } rows[] = {
        {"inside the square only", 1, {}, {1, 3}, 17},
        {"over the edge", 2, {}, {1, 3}, 15},
        {"nothing fits", 1, {}, {1, 1}, 0},
        {"marker of the same kind", 1, {{2, 3, 15}}, {3, 3}, 16},
        {"marker of another kind", 1, {{2, 3, 20}}, {3, 3}, 15},
        {"rejected by the check", 1, {{2, 3, 1}}, {3, 3}, 16},
    };
    for (const auto& row : rows) {
        const auto state = puzzleWith(5, row.blanks, row.candidate);
        state->crossLineMode = row.mode;
        d1scline(*state);
        EXPECT_EQ(state->blankPlaced, row.kind != 0) << row.what;
        EXPECT_EQ(testing::at(state->puzzle, row.candidate), row.kind == 0 ? 1 : blankMarker(row.kind))
            << row.what;
    }
}

TEST(PropertyShapes, RateWithoutTouchingThePuzzle) {
    const auto state = puzzleWith(5, {{2, 3, 1}, {3, 4, 2}}, {3, 3});
    state->crossLineMode = PropertyMode::all;
    d2scline(*state);
    EXPECT_EQ(state->lineBlankCount[15], 2);
    EXPECT_EQ(state->lineUsable[16], 1);
    EXPECT_EQ(state->lineBlankCount[16], 0) << "a count below the best is not recorded";

    const auto marked = puzzleWith(5, {{2, 3, 1}, {3, 4, 15}}, {3, 3});
    marked->crossLineMode = PropertyMode::onlyMain;
    d2scline(*marked);
    EXPECT_EQ(marked->lineUsable[15], 0);
    EXPECT_EQ(marked->lineRejected[15], 1);
    EXPECT_EQ(marked->lineBlankCount[16], 1) << "the blanks counted before the marker leak into nothing";

    const auto corner = puzzleWith(5, {}, {1, 1});
    corner->crossDiagonalMode = PropertyMode::onlyMain;
    corner->lineBlankCount[5] = 4;
    d2scross(*corner);
    EXPECT_EQ(corner->lineRejected[5], 1) << "doesn't fit";
    EXPECT_EQ(corner->lineBlankCount[5], 4);
    EXPECT_EQ(corner->lineUsable[6], 1);
}

} // namespace
} // namespace quarvelle
